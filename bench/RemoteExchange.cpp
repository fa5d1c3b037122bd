// One remote call of the debug menu to the embedded service, compared with a plain sd-bus call with the same payload.
#include "debugutil/DebugPrintControlProxy.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <string>
#include <sys/socket.h>
#include <systemd/sd-bus.h>
#include <thread>

namespace
{

constexpr const char* kInterface = "com.kavrin.IDebugPrintControl";
constexpr const char* kPath = "/com/kavrin/TVService/SignalObject";

void Require(int result)
{
    if (result < 0)
        std::abort();
}

void Remote(benchmark::State& state)
{
    TCDebugPrintControlProxy proxy(kInterface);
    std::string screen;
    proxy.Start(screen);
    for (auto _ : state)
        if (proxy.Execute("3", screen) != 1)
            state.SkipWithError("the call failed");
}
BENCHMARK(Remote)->UseRealTime();

// Replies like the service, with a prepared text.
int Answer(sd_bus_message* call, void* data, sd_bus_error*)
{
    const auto& screen = *static_cast<std::string*>(data);
    short number = 0;
    std::uint32_t length = 0;
    const void* bytes = nullptr;
    std::size_t size = 0;
    Require(sd_bus_message_read(call, "n", &number));
    Require(sd_bus_message_enter_container(call, 'a', "v"));
    Require(sd_bus_message_enter_container(call, 'v', "a(nv)"));
    Require(sd_bus_message_enter_container(call, 'a', "(nv)"));
    Require(sd_bus_message_read(call, "(nv)", &number, "u", &length));
    Require(sd_bus_message_enter_container(call, 'r', "nv"));
    Require(sd_bus_message_read(call, "n", &number));
    Require(sd_bus_message_enter_container(call, 'v', "ay"));
    Require(sd_bus_message_read_array(call, 'y', &bytes, &size));

    sd_bus_message* reply = nullptr;
    Require(sd_bus_message_new_method_return(call, &reply));
    Require(sd_bus_message_open_container(reply, 'a', "v"));
    Require(sd_bus_message_append(reply, "v", "u", 1));
    Require(sd_bus_message_open_container(reply, 'v', "a(nv)"));
    Require(sd_bus_message_open_container(reply, 'a', "(nv)"));
    Require(sd_bus_message_append(reply, "(nv)", 0, "u", static_cast<std::uint32_t>(screen.size())));
    Require(sd_bus_message_open_container(reply, 'r', "nv"));
    Require(sd_bus_message_append(reply, "n", 1));
    Require(sd_bus_message_open_container(reply, 'v', "ay"));
    Require(sd_bus_message_append_array(reply, 'y', screen.data(), screen.size()));
    for (int open = 0; open < 5; ++open)
        Require(sd_bus_message_close_container(reply));
    Require(sd_bus_send(nullptr, reply, nullptr));
    sd_bus_message_unref(reply);
    return 1;
}

void Exchange(sd_bus* client, std::string& screen)
{
    sd_bus_message *call = nullptr, *reply = nullptr;
    Require(sd_bus_message_new_method_call(client, &call, "com.kavrin.TVService", kPath, kInterface, "Execute"));
    Require(sd_bus_message_append(call, "nav", 1, 1, "a(nv)", 2, 0, "u", 1, 1, "ay", 1, '3'));
    Require(sd_bus_call(client, call, 0, nullptr, &reply));
    short number = 0;
    std::uint32_t result = 0, length = 0;
    const void* bytes = nullptr;
    std::size_t size = 0;
    Require(sd_bus_message_enter_container(reply, 'a', "v"));
    Require(sd_bus_message_read(reply, "v", "u", &result));
    Require(sd_bus_message_enter_container(reply, 'v', "a(nv)"));
    Require(sd_bus_message_enter_container(reply, 'a', "(nv)"));
    Require(sd_bus_message_read(reply, "(nv)", &number, "u", &length));
    Require(sd_bus_message_enter_container(reply, 'r', "nv"));
    Require(sd_bus_message_read(reply, "n", &number));
    Require(sd_bus_message_enter_container(reply, 'v', "ay"));
    Require(sd_bus_message_read_array(reply, 'y', &bytes, &size));
    screen.assign(static_cast<const char*>(bytes), size);
    sd_bus_message_unref(call);
    sd_bus_message_unref(reply);
}

sd_bus* Start(int socket, bool server)
{
    sd_bus* bus = nullptr;
    sd_id128_t id;
    Require(sd_bus_new(&bus));
    Require(sd_bus_set_fd(bus, socket, socket));
    if (server) {
        Require(sd_id128_randomize(&id));
        Require(sd_bus_set_server(bus, 1, id));
        Require(sd_bus_set_anonymous(bus, 1));
    }
    Require(sd_bus_start(bus));
    return bus;
}

void BareSdBus(benchmark::State& state)
{
    std::string screen, received;
    TCDebugPrintControlProxy(kInterface).Start(screen);
    int sockets[2];
    Require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets));
    sd_bus* client = Start(sockets[0], false);
    std::thread service([bus = Start(sockets[1], true), &screen] {
        const sd_bus_vtable table[] = {SD_BUS_VTABLE_START(0),
                                       SD_BUS_METHOD("Execute", "nav", "av", Answer, SD_BUS_VTABLE_UNPRIVILEGED),
                                       SD_BUS_VTABLE_END};
        Require(sd_bus_add_object_vtable(bus, nullptr, kPath, kInterface, table, &screen));
        while (sd_bus_is_open(bus) > 0) {
            const int processed = sd_bus_process(bus, nullptr);
            if (processed < 0 || (processed == 0 && sd_bus_wait(bus, UINT64_MAX) < 0))
                break;
        }
        sd_bus_close_unref(bus);
    });
    for (auto _ : state)
        Exchange(client, received);
    if (received != screen)
        state.SkipWithError("the two replies differ");
    sd_bus_close_unref(client);
    service.join();
}
BENCHMARK(BareSdBus)->UseRealTime();

} // namespace
