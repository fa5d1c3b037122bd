#include "debugutil/DebugPrintControlProxy.h"

#include "debugutil/Console.h"
#include "tvs-api-internal/Diagnostics.h"

#include <new>
#include <utility>

namespace
{

constexpr std::int32_t kFailed = -1;

// PushValue takes non-const pointers, but a request only reads the values.
template <class Value> Value* ForRequest(const Value& value) { return const_cast<Value*>(&value); }

// A call whose reply starts with a result of 4 bytes.
class TCRemoteCall : public TCMarshallingHelperProxy
{
public:
    TCRemoteCall() { PushValue(MARSHALLING_REPLY, sizeof m_result, &m_result); }
    std::int32_t ResultIf(bool succeeded) const { return succeeded ? m_result : kFailed; }

private:
    std::int32_t m_result = kFailed;
};

// Returns null instead of an exception: the console starts without the TV service, too.
std::unique_ptr<TVServiceAPIConnection> OpenConnection()
{
    return std::unique_ptr<TVServiceAPIConnection>(new (std::nothrow) TVServiceAPIConnection(
        "com.kavrin.TVService.SignalIFace", "/com/kavrin/TVService/SignalObject", true));
}

} // namespace

TCDebugPrintControlProxy::TCDebugPrintControlProxy(const std::string& serviceName)
    : TCDebugPrintControlProxy(serviceName, OpenConnection())
{
}

TCDebugPrintControlProxy::TCDebugPrintControlProxy(std::string serviceName,
                                                   std::unique_ptr<TVServiceAPIConnection> connection)
    : m_serviceName(std::move(serviceName)), m_pTVSConnection(std::move(connection))
{
    if (m_pTVSConnection == nullptr) {
        _TCApiAssert("m_pTVSConnection", "src/debugutil/DebugPrintControlProxy", 20, nullptr);
        console::Write("ASSERT!!! - function TCDebugPrintControlProxy, line 20");
    }
}

bool TCDebugPrintControlProxy::m_Run(TCMarshallingHelperProxy& call, EDebugPrintMethod method)
{
    return call.Run(m_pTVSConnection.get(), m_serviceName, kDebugPrintMethodNames[method], method, false);
}

std::int32_t TCDebugPrintControlProxy::Start(std::string& response)
{
    TCRemoteCall call;
    TCMarshalableString text(&response);
    call.PushMarshalableClass(MARSHALLING_REPLY, &text);
    return call.ResultIf(m_Run(call, DEBUG_PRINT_START));
}

std::int32_t TCDebugPrintControlProxy::Execute(const std::string& command, std::string& response)
{
    TCRemoteCall call;
    TCMarshalableString word(ForRequest(command));
    TCMarshalableString text(&response);
    call.PushMarshalableClass(MARSHALLING_REQUEST, &word);
    call.PushMarshalableClass(MARSHALLING_REPLY, &text);
    return call.ResultIf(m_Run(call, DEBUG_PRINT_EXECUTE));
}

std::int32_t TCDebugPrintControlProxy::Stop()
{
    TCRemoteCall call;
    return call.ResultIf(m_Run(call, DEBUG_PRINT_STOP));
}

std::int32_t TCDebugPrintControlProxy::Check(std::int32_t& value)
{
    TCRemoteCall call;
    call.PushValue(MARSHALLING_REPLY, sizeof value, &value);
    return call.ResultIf(m_Run(call, DEBUG_PRINT_CHECK));
}

std::vector<TSMenuItem> TCDebugPrintControlProxy::GetMenuItems()
{
    std::vector<TSMenuItem> items;
    TCRemoteCall call;
    TCMarshalableMenuItems list(&items, std::make_unique<TCMarshalableNodeCreator>());
    call.PushMarshalableClass(MARSHALLING_REPLY, &list);
    m_Run(call, DEBUG_PRINT_GET_MENU_ITEMS);
    return items;
}

bool TCDebugPrintControlProxy::SetMenuItems(const std::vector<TSMenuItem>& items)
{
    TCRemoteCall call;
    TCMarshalableMenuItems list(ForRequest(items), std::make_unique<TCMarshalableNodeCreator>());
    call.PushMarshalableClass(MARSHALLING_REQUEST, &list);
    return m_Run(call, DEBUG_PRINT_SET_MENU_ITEMS);
}

bool TCDebugPrintControlProxy::SetMenuItem(const TSMenuItem& item)
{
    TCRemoteCall call;
    call.PushMarshalableClass(MARSHALLING_REQUEST, ForRequest(item));
    return m_Run(call, DEBUG_PRINT_SET_MENU_ITEM);
}

bool TCDebugPrintControlProxy::SetQoSEnabled(bool enabled)
{
    TCRemoteCall call;
    call.PushValue(MARSHALLING_REQUEST, sizeof enabled, &enabled);
    return m_Run(call, DEBUG_PRINT_SET_QOS_ENABLED);
}

bool TCDebugPrintControlProxy::IsQoSEnabled()
{
    TCMarshallingHelperProxy call;
    unsigned char enabled = 0; // the received byte may not be a valid bool
    call.PushValue(MARSHALLING_REPLY, sizeof enabled, &enabled);
    m_Run(call, DEBUG_PRINT_IS_QOS_ENABLED);
    return enabled != 0;
}

bool TCDebugPrintControlProxy::SetDebugMode(EDebugMode mode, bool enable)
{
    TCRemoteCall call;
    call.PushValue(MARSHALLING_REQUEST, sizeof mode, &mode);
    call.PushValue(MARSHALLING_REQUEST, sizeof enable, &enable);
    return m_Run(call, DEBUG_PRINT_SET_DEBUG_MODE);
}

bool TCDebugPrintControlProxy::IsDebugModeEnabled(EDebugMode mode)
{
    TCMarshallingHelperProxy call;
    unsigned char enabled = 0;
    call.PushValue(MARSHALLING_REPLY, sizeof enabled, &enabled);
    call.PushValue(MARSHALLING_REQUEST, sizeof mode, &mode);
    m_Run(call, DEBUG_PRINT_IS_DEBUG_MODE_ENABLED);
    return enabled != 0;
}
