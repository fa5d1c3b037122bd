// A TV service on a bus that answers as the test wants.
#pragma once

#include <atomic>
#include <string>
#include <systemd/sd-bus.h>
#include <thread>
#include <vector>

class FakeService
{
public:
    /// Owns the TV service's name and gives one answer after the other: its values, and behind a + one argument that
    /// no reply has. Called once more, it leaves the bus without an answer.
    FakeService(const std::string& address, std::vector<std::string> answers);
    ~FakeService() { End(); }
    /// Leaves the bus; returns the calls received, one a line.
    std::string End();

private:
    static int OnMessage(sd_bus_message* message, void* self, sd_bus_error* error);
    std::vector<std::string> m_answers;
    std::size_t m_next = 0;
    std::string m_received;
    std::atomic<bool> m_done{false};
    std::thread m_thread;
};
