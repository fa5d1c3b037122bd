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

class RequestReader;

class DebugPrintService
{
public:
    DebugPrintService();

    /// Serves the interface until the connection of the bus ends. One bus at a time.
    void Serve(sd_bus* bus);

private:
    struct Item {
        std::string name;
        bool on;
        std::uint32_t id;
    };
    using Values = std::vector<TCTreeNode>;
    static int OnCall(sd_bus_message* message, void* service, sd_bus_error* error);

    Values Start(RequestReader& request);
    Values Execute(RequestReader& request);
    Values Stop(RequestReader& request);
    Values Check(RequestReader& request);
    Values GetMenuItems(RequestReader& request);
    Values SetMenuItems(RequestReader& request);
    Values SetMenuItem(RequestReader& request);
    Values SetQoSEnabled(RequestReader& request);
    Values IsQoSEnabled(RequestReader& request);
    Values SetDebugMode(RequestReader& request);
    Values IsDebugModeEnabled(RequestReader& request);

    static Item ReadItem(RequestReader& request);
    /// Throws std::invalid_argument if the names are too long for a reply.
    void SetItems(std::vector<Item> items);
    std::string Screen() const;

    std::vector<Item> m_items;
    std::set<std::uint32_t> m_debugModes;
    bool m_qos = false;
};

} // namespace host
