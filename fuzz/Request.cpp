// Requests that the service receives. An input is a call as text, as in CallService, or a ! and the bytes that are sent.
#include "host/messaging/EmbeddedService.h"
#include "support/CallService.h"
#include "support/Trees.h"

#include <cassert>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <sstream>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace
{

// The shapes of the request and of the reply of each method, from the recorded exchanges of the service.
struct Shapes {
    std::string request, reply;
};

std::string ShapesOf(TCTreeBranch branch)
{
    NumberTags(branch);
    const auto& values = branch.GetChildren();
    std::string shapes;
    for (auto value = values.begin(); value != values.end(); ++value)
        for (const char shape : {'y', 'q', 'u', 't', 'T', 'I', 'L'})
            if (Fit({values.begin(), value + 1}, shapes + shape)) {
                shapes += shape;
                break;
            }
    return shapes;
}

std::map<std::string, Shapes> ReadShapes(const host::Bus& client)
{
    std::map<std::string, Shapes> shapes;
    std::ifstream exchanges(EXCHANGES_PATH "/service");
    for (std::string line, method, number; std::getline(exchanges, line);) {
        std::istringstream words(line.substr(0, 2) == "> " ? line.substr(2) : "");
        if (!(words >> method >> number) || shapes.count(method) > 0)
            continue;
        const std::string reply = CallService(client, line.substr(2));
        if (reply.rfind("0:", 0) == 0)
            shapes[method] = {ShapesOf(Branch(std::move(words))), ShapesOf(Branch(std::istringstream(reply)))};
    }
    return shapes;
}

// The state of the service, as a client reads it.
std::string StateOf(const host::Bus& client)
{
    return CallService(client, "Start 0") + CallService(client, "GetMenuItems 4");
}

void Send(const host::Bus& client, const std::string& bytes)
{
    const int end = sd_bus_get_fd(client.get());
    fcntl(end, F_SETFL, 0);
    (void)!write(end, bytes.data(), bytes.size());
    shutdown(end, SHUT_WR);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static host::EmbeddedService service;
    static host::Bus client = service.Connect();
    static const auto shapes = ReadShapes(client);
    static std::string state = StateOf(client);
    std::string call(data, data + size);
    if (call[0] == '!') {
        Send(client, call.substr(1));
        client = service.Connect();
        state = StateOf(client);
        call = "Check 3";
    }
    std::istringstream words(call);
    std::string method, reply;
    std::int16_t number = -1;
    words >> method >> number;
    TCTreeBranch request = Branch(std::move(words));
    NumberTags(request);
    try {
        reply = CallService(client, call);
    } catch (const std::system_error&) {
        return 0; // the call cannot be written as a message
    }
    const bool accepted = reply.rfind("0:", 0) == 0;
    const bool known = number >= 0 && number < DEBUG_PRINT_METHOD_COUNT &&
                       method.c_str() == std::string(kDebugPrintMethodNames[number]);
    const Shapes expected = known ? shapes.at(method.c_str()) : Shapes();
    assert(accepted == (known && Fit(request.GetChildren(), expected.request)));
    assert(!accepted || Fit(Branch(std::istringstream(reply)).GetChildren(), expected.reply));
    const std::string before = std::exchange(state, StateOf(client));
    if (!accepted || expected.request.empty())
        assert(state == before);
    else if (number == DEBUG_PRINT_SET_MENU_ITEMS) {
        NormaliseFlags(request.GetChildren()[0]);
        const std::string items = Show(request).substr(1);
        assert(state.substr(state.size() - items.size()) == items);
    }
    return 0;
}
