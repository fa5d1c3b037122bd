// The client of the debug menu that runs in the TV service.
#pragma once

#include "debugutil/MenuItem.h"
#include "tvs-api-internal/DebugPrintMethods.h"
#include "tvs-api-internal/Messaging.h"
#include "tvs-api/Types.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// The remote interface of the TV service. Each operation is one synchronous remote call. One thread at a time. #N is the
/// number of the remote method, which is not the position in this class. Append new operations.
class IDebugPrintControl
{
public:
    virtual ~IDebugPrintControl() = default;

    /// #0: Opens the remote menu. Above 0: it is open, and `response` holds its first screen. -1: the call failed.
    virtual std::int32_t Start(std::string& response) = 0;
    /// #1: Sends one word. Above 0: the menu goes on, and `response` holds the next screen. Otherwise it has ended.
    virtual std::int32_t Execute(const std::string& command, std::string& response) = 0;
    /// #3: Fills in the service's check value. -1: the call failed.
    virtual std::int32_t Check(std::int32_t& value) = 0;
    /// #4: The items of the reply, as far as they were readable; empty if the call failed.
    virtual std::vector<TSMenuItem> GetMenuItems() = 0;
    /// #5: Returns true if the call succeeded, even if the service did not set the items. The same for all setters.
    virtual bool SetMenuItems(const std::vector<TSMenuItem>& items) = 0;
    /// #6: Changes the item with that number.
    virtual bool SetMenuItem(const TSMenuItem& item) = 0;
    /// #7: Turns QoS on or off.
    virtual bool SetQoSEnabled(bool enabled) = 0;
    /// #8: False also if the call failed.
    virtual bool IsQoSEnabled() = 0;
    /// #9: Turns one debug mode on or off.
    virtual bool SetDebugMode(EDebugMode mode, bool enable) = 0;
    /// #10: False also if the call failed.
    virtual bool IsDebugModeEnabled(EDebugMode mode) = 0;
    /// #2: Closes the remote menu. -1: the call failed.
    virtual std::int32_t Stop() = 0;
};

class TCDebugPrintControlProxy : public IDebugPrintControl
{
public:
    /// Opens the messaging connection. If that fails, every call fails.
    explicit TCDebugPrintControlProxy(const std::string& serviceName);
    /// Takes over the connection. If it is null, prints an assertion.
    TCDebugPrintControlProxy(std::string serviceName, std::unique_ptr<TVServiceAPIConnection> connection);

    std::int32_t Start(std::string& response) override;
    std::int32_t Execute(const std::string& command, std::string& response) override;
    std::int32_t Check(std::int32_t& value) override;
    std::vector<TSMenuItem> GetMenuItems() override;
    bool SetMenuItems(const std::vector<TSMenuItem>& items) override;
    bool SetMenuItem(const TSMenuItem& item) override;
    bool SetQoSEnabled(bool enabled) override;
    bool IsQoSEnabled() override;
    bool SetDebugMode(EDebugMode mode, bool enable) override;
    bool IsDebugModeEnabled(EDebugMode mode) override;
    std::int32_t Stop() override;

private:
    bool m_Run(TCMarshallingHelperProxy& call, EDebugPrintMethod method);

    std::string m_serviceName;
    std::unique_ptr<TVServiceAPIConnection> m_pTVSConnection;
};
