// Replies that the tool receives. Each reply should have a number of each width, then a text or a list of menu items. The
// first letter of an input selects that: T or L. After a blank follows the reply as a tree, with a + at its end if it has
// one argument too many, or a ! and the bytes of the reply.
#include "debugutil/DebugPrintControlProxy.h"
#include "host/messaging/MessageCodec.h"
#include "support/Trees.h"

#include <atomic>
#include <cassert>
#include <cstring>
#include <sstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace
{

std::string g_reply;               // the reply to the next call
std::atomic<bool> g_closed{false}; // whether the connection was closed after bytes were sent

int Answer(sd_bus_message* call, void*, sd_bus_error*)
{
    if (sd_bus_message_is_method_call(call, nullptr, "Hello") > 0)
        return sd_bus_reply_method_return(call, "s", ":1.1");
    if (g_reply[0] == '!') {
        std::uint64_t cookie = 0;
        host::Checked(sd_bus_message_get_cookie(call, &cookie));
        std::string bytes = g_reply.substr(1);
        if (bytes.size() >= 24)
            std::memcpy(&bytes[20], LowerBytes(cookie, 4), 4);
        sd_bus* const bus = sd_bus_message_get_bus(call);
        (void)!write(sd_bus_get_fd(bus), bytes.data(), bytes.size());
        sd_bus_close(bus); // the caller must not wait for the rest of half a message
        g_closed = true;
        return 1;
    }
    sd_bus_message* made = nullptr;
    host::Checked(sd_bus_message_new_method_return(call, &made));
    const host::BusMessage reply(made);
    try {
        host::AppendValues(made, Branch(std::istringstream(g_reply)).GetChildren());
    } catch (const std::system_error&) { // the tree is too deep for a message
        return sd_bus_reply_method_errno(call, EINVAL, nullptr);
    }
    if (g_reply.back() == '+')
        host::Checked(sd_bus_message_append(made, "u", 1));
    return sd_bus_send(nullptr, made, nullptr);
}

// Simulates a bus with the TV service, for one client at a time.
[[noreturn]] void Serve(int listener)
{
    for (;;) {
        const int client = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        sd_bus* made = nullptr;
        host::Checked(sd_bus_new(&made));
        const host::Bus bus(made);
        host::Checked(sd_bus_set_fd(made, client, client));
        host::Checked(sd_bus_set_server(made, 1, sd_id128_t{}));
        host::Checked(sd_bus_add_filter(made, nullptr, Answer, nullptr));
        host::Checked(sd_bus_start(made));
        for (int done = 0; done >= 0 && sd_bus_is_open(made) > 0;)
            done = sd_bus_process(made, nullptr) == 0 ? host::WaitForBus(made, UINT64_MAX) : 0;
    }
}

TVServiceAPIConnection* Connect()
{
    const std::string name = "debugutil-fuzz-" + std::to_string(getpid());
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address = {AF_UNIX, ""};
    name.copy(address.sun_path + 1, name.size());
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    host::Checked(bind(listener, reinterpret_cast<sockaddr*>(&address), size));
    host::Checked(listen(listener, 1));
    std::thread(Serve, listener).detach();
    setenv("TVS_BUS", ("unix:abstract=" + name).c_str(), 1);
    return new TVServiceAPIConnection("", "/com/kavrin/TVService/SignalObject", true);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static TVServiceAPIConnection* const connection = Connect();
    static std::string interfaceName = host::kDebugPrintInterface;
    static TCDebugPrintControlProxy proxy(interfaceName, std::unique_ptr<TVServiceAPIConnection>(connection));
    if (size < 3)
        return 0;
    const bool list = data[0] == 'L', raw = data[2] == '!';
    g_reply.assign(data + 2, data + size);
    g_closed = false;
    TCTreeBranch sent = raw ? TCTreeBranch() : Branch(std::istringstream(g_reply));
    NumberTags(sent);
    const bool valid = Fit(sent.GetChildren(), list ? "yqutL" : "yqutT") && g_reply.back() != '+';
    if (valid && list)
        NormaliseFlags(sent.GetChildren().back());

    std::uint64_t numbers[] = {1, 2, 3, 4}; // of 1, 2, 4 and 8 bytes
    std::string text;
    std::vector<TSMenuItem> items;
    TCMarshalableString string(&text);
    TCMarshalableMenuItems itemList(&items, std::make_unique<TCMarshalableNodeCreator>());
    TIMarshalable* const object = list ? static_cast<TIMarshalable*>(&itemList) : &string;
    TCMarshallingHelperProxy call;
    TCTreeBranch received;
    for (int i = 0; i < 4; ++i)
        call.PushValue(MARSHALLING_REPLY, 1 << i, LowerBytes(numbers[i], 1U << i));
    call.PushMarshalableClass(MARSHALLING_REPLY, object);
    const bool accepted = call.Run(connection, interfaceName, "Start", DEBUG_PRINT_START, false);
    while (raw && !g_closed)
        std::this_thread::yield();
    for (int i = 0; i < 4; ++i)
        received.AppendChild(
            *DefaultNodeCreator().CreateNode(LowerBytes(numbers[i], 1U << i), 1U << i, static_cast<short>(i), 1));
    received.AppendChild(*TCMarshalableNodeCreator().CreateNode(object, sizeof *object, 4, 1));
    assert(raw || accepted == valid);
    assert(raw || !accepted || Show(received) == Show(sent));
    assert(accepted || (Show(received).rfind("0:y1 1:q2 2:u3 3:t4 4:", 0) == 0 && text.empty()));

    g_reply = "0:u1 0:u7";
    std::int32_t value = 0;
    const std::int32_t next = proxy.Check(value);
    assert(next == 1 && value == 7);
    return 0;
}
