#include "host/messaging/EmbeddedService.h"

#include "host/call/StandardStreams.h"

#include <cerrno>
#include <sys/socket.h>
#include <utility>

namespace host
{

EmbeddedService::~EmbeddedService() { m_Join(); }

Bus EmbeddedService::Connect()
{
    m_Join();
    Bus client = NewBus();
    Bus server = NewBus();
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0)
        Checked(-errno);
    const int clientSet = sd_bus_set_fd(client.get(), ends[0], ends[0]); // the buses own the descriptors
    const int serverSet = sd_bus_set_fd(server.get(), ends[1], ends[1]);
    Checked(clientSet);
    Checked(serverSet);
    sd_id128_t id;
    Checked(sd_id128_randomize(&id));
    Checked(sd_bus_set_server(server.get(), true, id));
    Checked(sd_bus_set_anonymous(server.get(), true));
    Checked(sd_bus_start(server.get()));
    Checked(sd_bus_start(client.get()));
    m_thread = std::thread([this, bus = std::move(server)] {
        try {
            m_service.Serve(bus.get());
        } catch (const std::exception& error) {
            PrintError(std::string("embedded TV service: ") + error.what()); // the client finds its bus closed
        }
    });
    return client;
}

void EmbeddedService::m_Join()
{
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace host
