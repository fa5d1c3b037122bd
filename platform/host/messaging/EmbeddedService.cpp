#include "host/messaging/EmbeddedService.h"

#include "host/call/StandardStreams.h"

#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace host
{
namespace
{

class Socket
{
public:
    explicit Socket(int descriptor) : m_descriptor(descriptor) {}
    ~Socket()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    /// A bus that owns the descriptor from here on.
    Bus MakeBus()
    {
        sd_bus* made = nullptr;
        Checked(sd_bus_new(&made));
        Bus bus(made);
        Checked(sd_bus_set_fd(made, m_descriptor, m_descriptor));
        m_descriptor = -1;
        return bus;
    }

private:
    int m_descriptor;
};

} // namespace

EmbeddedService::~EmbeddedService() { Join(); }

Bus EmbeddedService::Connect()
{
    Join();
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0)
        Checked(-errno);
    Socket clientEnd(ends[0]);
    Socket serverEnd(ends[1]);
    Bus client = clientEnd.MakeBus();
    Bus server = serverEnd.MakeBus();
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
            PrintError(std::string("embedded TV service: ") + error.what()); // the client finds its bus closed
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
