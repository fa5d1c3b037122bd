// The bus on which remote calls reach the TV service.
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

/// The clock and the bus of remote calls; tests derive a mock from it. The operations throw std::system_error. Used by
/// one thread at a time.
class Transport
{
public:
    virtual ~Transport() = default;
    virtual Clock::time_point Now() = 0;
    /// Opens a bus, whose handshake may still be running. Throws ETIMEDOUT when none is open at `end`.
    virtual Bus Open(Clock::time_point end) = 0;
    /// Handles one step of the handshake or one message; returns false when there was nothing to handle.
    virtual bool Process(sd_bus* bus) = 0;
    /// Waits until there is something to handle. Throws ETIMEDOUT at `end`.
    virtual void Wait(sd_bus* bus, Clock::time_point end) = 0;
    /// Sends the call. While the caller keeps the slot, Process stores the answer in `reply`.
    virtual BusSlot Send(sd_bus* bus, sd_bus_message* call, BusMessage& reply) = 0;
};

/// The bus that the setting names: `session`, `system` or a D-Bus address. Without a setting: the embedded TV service.
class BusTransport : public Transport
{
public:
    explicit BusTransport(std::optional<std::string> setting) : m_setting(std::move(setting)) {}

    Clock::time_point Now() override { return Clock::now(); }
    /// After ETIMEDOUT the next call continues to wait for the same bus. Throws std::invalid_argument for an invalid
    /// setting.
    Bus Open(Clock::time_point end) override;
    bool Process(sd_bus* bus) override { return Checked(sd_bus_process(bus, nullptr)) > 0; }
    void Wait(sd_bus* bus, Clock::time_point end) override;
    BusSlot Send(sd_bus* bus, sd_bus_message* call, BusMessage& reply) override;

private:
    std::optional<std::string> m_setting;
    EmbeddedService m_embedded;
    std::future<Bus> m_opening;
};

/// Runs `open` on a new thread and waits for its result. Throws ETIMEDOUT at `end`; the next call continues to wait.
Bus OpenOnThread(std::future<Bus>& opening, std::function<Bus()> open, Clock::time_point end);

/// Handles what comes in next, or waits for it. Throws ETIMEDOUT when that time has come, also while messages keep coming.
void HandleNext(Transport& transport, sd_bus* bus, Clock::time_point end);

/// Continues the handshake until the bus is ready. Throws std::system_error, at `end` with ETIMEDOUT.
void WaitUntilReady(Transport& transport, sd_bus* bus, Clock::time_point end);

/// Runs a step of a remote call. A std::system_error of `work` is rethrown as "STEP: REASON".
template <class Work> auto Step(const char* step, Work&& work)
{
    try {
        return work();
    } catch (const std::system_error& error) {
        throw std::system_error(error.code(), step);
    }
}

/// What Step prints when the bus of that setting cannot be opened.
const char* OpenStepOf(const std::optional<std::string>& setting);

} // namespace host
