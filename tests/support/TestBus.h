// A D-Bus daemon of the test's own, and a TV service on it that answers as the test wants.
#pragma once

#include "support/Process.h"

#include <functional>
#include <memory>
#include <string>
#include <systemd/sd-bus.h>
#include <thread>

class TestBus
{
public:
    TestBus();

    const std::string& Address() const { return m_address; }
    void StartService(); ///< the real tvserviced, when it returns the name is owned
    void KillService() { m_service.Kill(); }
    /// Connects a client.
    std::shared_ptr<sd_bus> Connect() const;

private:
    Process m_daemon;
    std::string m_address = "unix:path=" + m_daemon.Path("bus");
    Process m_service;
};

/// Owns the TV service's name and answers every method with what `fill` appends to the reply; a fill that returns below
/// 0 leaves the call without an answer.
class FakeService
{
public:
    FakeService(const TestBus& bus, std::function<int(sd_bus_message* reply)> fill);
    ~FakeService();
    FakeService(const FakeService&) = delete;
    FakeService& operator=(const FakeService&) = delete;

private:
    static int OnMessage(sd_bus_message* message, void* self, sd_bus_error* error);
    std::function<int(sd_bus_message*)> m_fill;
    int m_stop[2];
    std::thread m_thread;
};
