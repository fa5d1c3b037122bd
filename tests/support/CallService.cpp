#include "support/CallService.h"

#include "support/Trees.h"

#include <cerrno>
#include <sstream>

std::string CallService(const host::Bus& client, const std::string& call)
{
    std::istringstream stream(call);
    std::int16_t number = -1;
    std::string method;
    stream >> method >> number;
    sd_bus_message *made = nullptr, *received = nullptr;
    host::Checked(sd_bus_message_new_method_call(client.get(), &made, "com.kavrin.TVService",
                                                 "/com/kavrin/TVService/SignalObject", "com.kavrin.IDebugPrintControl",
                                                 method.c_str()));
    const host::BusMessage request(made);
    host::Checked(sd_bus_message_append_basic(made, 'n', &number));
    host::AppendValues(made, Branch(std::move(stream)).GetChildren());
    sd_bus_error error = {};
    TCTreeBranch answer;
    const int result = sd_bus_call(client.get(), made, 0, &error, &received);
    if (result == -EINTR) { // interrupted by the fuzzer's timer
        sd_bus_error_free(&error);
        return CallService(client, call);
    }
    if (result >= 0)
        answer.GetChildren() = host::ReadValues(received);
    const host::BusMessage reply(received);
    const std::string text = error.message == nullptr ? Show(answer) : error.message;
    sd_bus_error_free(&error);
    return text;
}
