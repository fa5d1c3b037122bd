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
    static int m_OnCall(sd_bus_message* message, void* service, sd_bus_error* error);

    Values m_Start(RequestReader& request);
    Values m_Execute(RequestReader& request);
    Values m_Stop(RequestReader& request);
    Values m_Check(RequestReader& request);
    Values m_GetMenuItems(RequestReader& request);
    Values m_SetMenuItems(RequestReader& request);
    Values m_SetMenuItem(RequestReader& request);
    Values m_SetQoSEnabled(RequestReader& request);
    Values m_IsQoSEnabled(RequestReader& request);
    Values m_SetDebugMode(RequestReader& request);
    Values m_IsDebugModeEnabled(RequestReader& request);

    static Item m_ReadItem(RequestReader& request);
    /// Throws std::invalid_argument if the names are too long for a reply.
    void m_SetItems(std::vector<Item> items);
    std::string m_Screen() const;

    std::vector<Item> m_items;
    std::set<std::uint32_t> m_debugModes;
    bool m_qos = false;
};

} // namespace host
