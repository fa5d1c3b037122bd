// The server side of com.kavrin.IDebugPrintControl: debug print items, QoS and debug modes, and a menu to change them.
// The menu has no state per client, so several consoles can have it open.
#pragma once

#include "host/messaging/MessageCodec.h"
#include "tvs-api-internal/DebugPrintMethods.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace host
{

class DebugPrintService
{
public:
    DebugPrintService();

    /// Serves the interface until the connection of the bus ends. One bus at a time.
    void Serve(sd_bus* bus);

    struct Item {
        std::string name;
        bool on;
        std::uint32_t id;
    };
    /// What the methods read and change.
    struct State {
        std::vector<Item> items;
        std::set<std::uint32_t> debugModes;
        bool qos = false;
    };

private:
    static int m_OnCall(sd_bus_message* message, void* service, sd_bus_error* error);

    State m_state;
};

} // namespace host
