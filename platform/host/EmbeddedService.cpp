#include "EmbeddedService.h"

#include "Environment.h"

#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace host
{
namespace
{

// A bus on the socket, which it owns from here on.
Bus MakeBus(int socket)
{
    sd_bus* made = nullptr;
    const int result = sd_bus_new(&made);
    Bus bus(made);
    if (result < 0 || sd_bus_set_fd(made, socket, socket) < 0)
        close(socket);
    Checked(result);
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
    Bus client = MakeBus(sockets[0]);
    Bus server = MakeBus(sockets[1]);
    sd_id128_t id;
    Checked(sd_id128_randomize(&id));
    Checked(sd_bus_set_server(server.get(), 1, id));
    Checked(sd_bus_set_anonymous(server.get(), 1));
    Checked(sd_bus_start(server.get()));
    Checked(sd_bus_start(client.get()));
    m_thread = std::thread([this, bus = std::move(server)] {
        try {
            m_service.Serve(bus.get());
        } catch (const std::exception& error) {
            Complain(std::string("embedded TV service: ") + error.what()); // the client finds its bus closed
        }
    });
    return client;
}

void EmbeddedService::Join()
{
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace host
