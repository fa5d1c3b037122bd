// Requests that the service receives. An input is a call as text, as in CallService, or a ! and the bytes that are sent.
#include "host/messaging/EmbeddedService.h"
#include "support/CallService.h"
#include "support/Trees.h"

#include <cassert>
#include <fcntl.h>
#include <sstream>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace
{

// The shapes of each method's arguments and of its reply.
constexpr const char* kShapes[][2] = {{"", "uT"}, {"T", "uT"}, {"", "u"}, {"", "uu"},  {"", "uL"}, {"L", "u"},
                                      {"I", "u"}, {"y", "u"},  {"", "y"}, {"uy", "u"}, {"u", "y"}};
static_assert(std::size(kShapes) == std::size(kDebugPrintMethodNames));

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
    const bool known = number >= 0 && number < int{std::size(kShapes)} &&
                       method.c_str() == std::string(kDebugPrintMethodNames[number]);
    assert(accepted == (known && Fit(request.GetChildren(), kShapes[number][0])));
    assert(!accepted || Fit(Branch(std::istringstream(reply)).GetChildren(), kShapes[number][1]));
    const std::string before = std::exchange(state, StateOf(client));
    if (!accepted || *kShapes[number][0] == '\0')
        assert(state == before);
    else if (number == DEBUG_PRINT_SET_MENU_ITEMS) {
        NormaliseFlags(request.GetChildren()[0]);
        const std::string items = Show(request).substr(1);
        assert(state.substr(state.size() - items.size()) == items);
    }
    return 0;
}
