// How remote calls reach the TV service: a clock and a bus.
#pragma once

#include "host/messaging/EmbeddedService.h"

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

namespace host
{

using Clock = std::chrono::steady_clock;
using BusSlot = std::unique_ptr<sd_bus_slot, sd_bus_slot* (*)(sd_bus_slot*)>;

/// The outside world of remote calls. Tests put one in its place that records what is called. The operations throw
/// std::system_error. Used by one thread at a time.
class Transport
{
public:
    virtual ~Transport() = default;
    /// The time now.
    virtual Clock::time_point Now() = 0;
    /// A new bus; its handshake may not have ended. Throws ETIMEDOUT when there is none by then.
    virtual Bus Open(Clock::time_point end) = 0;
    /// Handles one step of the handshake or one message; false when there was nothing to handle.
    virtual bool Process(sd_bus* bus) = 0;
    /// Waits until there is something to handle. Throws ETIMEDOUT when that time has come.
    virtual void Wait(sd_bus* bus, Clock::time_point end) = 0;
    /// Sends the call. Process puts the answer into `reply` as long as the slot is kept.
    virtual BusSlot Send(sd_bus* bus, sd_bus_message* call, BusMessage& reply) = 0;
};

/// The bus of `setting` (`session`, `system` or a D-Bus address), or a service inside this process without a setting.
class BusTransport : public Transport
{
public:
    explicit BusTransport(std::optional<std::string> setting) : m_setting(std::move(setting)) {}

    Clock::time_point Now() override { return Clock::now(); }
    /// After ETIMEDOUT the next call goes on waiting for the same bus. Throws std::invalid_argument when the setting is
    /// not valid.
    Bus Open(Clock::time_point end) override;
    bool Process(sd_bus* bus) override { return Checked(sd_bus_process(bus, nullptr)) > 0; }
    void Wait(sd_bus* bus, Clock::time_point end) override;
    BusSlot Send(sd_bus* bus, sd_bus_message* call, BusMessage& reply) override;

private:
    std::optional<std::string> m_setting;
    EmbeddedService m_embedded;
    std::future<Bus> m_opening;
};

/// Waits until that time for what `open` returns on a thread of its own. After ETIMEDOUT the next call goes on waiting.
Bus OpenOnThread(std::future<Bus>& opening, std::function<Bus()> open, Clock::time_point end);

/// Handles what comes in next, or waits for it. Throws ETIMEDOUT when that time has come, also while messages keep coming.
void HandleNext(Transport& transport, sd_bus* bus, Clock::time_point end);

/// Goes on with the handshake until the bus is ready. Throws std::system_error; ETIMEDOUT when that time has come.
void WaitUntilReady(Transport& transport, sd_bus* bus, Clock::time_point end);

/// Runs a step of the messaging. A std::system_error out of it is passed on as "STEP: REASON".
template <class Work> auto Step(const char* step, Work&& work)
{
    try {
        return work();
    } catch (const std::system_error& error) {
        throw std::system_error(error.code(), step);
    }
}

/// The step of opening that bus.
const char* OpenStepOf(const std::optional<std::string>& setting);

} // namespace host
