#include "EmbeddedService.h"

#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace host
{
namespace
{

// Starts a bus on the socket, which it owns from here on.
template <class Configure> Bus StartOn(int socket, Configure configure)
{
    sd_bus* made = nullptr;
    const int result = sd_bus_new(&made);
    Bus bus(made);
    if (result < 0 || sd_bus_set_fd(made, socket, socket) < 0)
        close(socket);
    Checked(result);
    configure(made);
    Checked(sd_bus_start(made));
    return bus;
}

} // namespace

EmbeddedService::~EmbeddedService() { Join(); }

Bus EmbeddedService::Connect()
{
    Join();
    int sockets[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets) != 0)
        Checked(-errno);
    Bus client = StartOn(sockets[0], [](sd_bus*) {});
    Bus server = StartOn(sockets[1], [](sd_bus* bus) {
        sd_id128_t id;
        Checked(sd_id128_randomize(&id));
        Checked(sd_bus_set_server(bus, 1, id));
        Checked(sd_bus_set_anonymous(bus, 1));
    });
    m_thread = std::thread([this, bus = std::move(server)] { m_service.Serve(bus.get()); });
    return client;
}

void EmbeddedService::Join()
{
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace host
