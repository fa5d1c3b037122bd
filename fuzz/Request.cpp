// The bytes of a request as the service receives them. An input is a call as Ask takes it, or behind a ! the bytes that
// are sent.
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

// What each method takes and answers.
constexpr const char* kShapes[][2] = {{"", "uT"}, {"T", "uT"}, {"", "u"}, {"", "uu"},  {"", "uL"}, {"L", "u"},
                                      {"I", "u"}, {"y", "u"},  {"", "y"}, {"uy", "u"}, {"u", "y"}};
static_assert(std::size(kShapes) == std::size(kDebugPrintMethodNames));

// What a valid client sees of the service.
std::string Look(const host::Bus& client)
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
    static std::string seen = Look(client);
    std::string said(data, data + size);
    if (said[0] == '!') {
        Send(client, said.substr(1));
        client = service.Connect();
        seen = Look(client);
        said = "Check 3";
    }
    std::istringstream words(said);
    std::string method, answer;
    std::int16_t number = -1;
    words >> method >> number;
    TCTreeBranch request = Branch(std::move(words));
    NumberTags(request);
    try {
        answer = CallService(client, said);
    } catch (const std::system_error&) {
        return 0; // there is no such message
    }
    const bool taken = answer.rfind("0:", 0) == 0;
    const bool known = number >= 0 && number < int{std::size(kShapes)} &&
                       method.c_str() == std::string(kDebugPrintMethodNames[number]);
    assert(taken == (known && Fit(request.GetChildren(), kShapes[number][0])));
    assert(!taken || Fit(Branch(std::istringstream(answer)).GetChildren(), kShapes[number][1]));
    const std::string before = std::exchange(seen, Look(client));
    if (!taken || *kShapes[number][0] == '\0')
        assert(seen == before);
    else if (number == DEBUG_PRINT_SET_MENU_ITEMS) {
        NormaliseFlags(request.GetChildren()[0]);
        const std::string items = Show(request).substr(1);
        assert(seen.substr(seen.size() - items.size()) == items);
    }
    return 0;
}
