// A TV service on a bus that answers as the test wants.
#pragma once

#include "host/messaging/MessageCodec.h"

#include <atomic>
#include <functional>
#include <string>
#include <thread>

/// Fills a reply.
using Answer = std::function<int(sd_bus_message* reply)>;

/// The values as sd_bus_message_append takes them.
template <class... Values> Answer Reply(const char* types, Values... values)
{
    return [=](sd_bus_message* reply) { return sd_bus_message_append(reply, types, values...); };
}

/// A result and a screen of three letters.
inline Answer ScreenReply(int result, const char (&text)[4])
{
    return Reply("av", 2, "u", result, "a(nv)", 2, 0, "u", 3, 1, "ay", 3, text[0], text[1], text[2]);
}

class FakeService
{
public:
    /// Owns the TV service's name and gives one answer after the other; called once more, it leaves without an answer.
    FakeService(const std::string& address, std::vector<Answer> answers);
    ~FakeService() { End(); }
    FakeService(const FakeService&) = delete;
    FakeService& operator=(const FakeService&) = delete;

    /// Leaves the bus; returns the calls received, one a line.
    std::string End();

private:
    static int OnMessage(sd_bus_message* message, void* self, sd_bus_error* error);
    std::vector<Answer> m_answers;
    std::size_t m_next = 0;
    std::string m_received;
    std::atomic<bool> m_done{false};
    std::thread m_thread;
};
