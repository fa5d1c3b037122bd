// Remote calls to the TV service.
#pragma once

#include "tvs-api-internal/Marshalable.h"

#include <memory>
#include <string>
#include <vector>

/// The message that carries a value.
enum EMarshallingDirection { MARSHALLING_REPLY = 0, MARSHALLING_REQUEST = 1 };

/// A messaging connection to one object of the TV service. The constructor opens it; if that fails, each call tries
/// again. Used by one thread at a time.
class TVServiceAPIConnection
{
public:
    /// The bool is reserved, true.
    TVServiceAPIConnection(std::string signalInterface, std::string objectPath, bool reserved);
    virtual ~TVServiceAPIConnection();
    TVServiceAPIConnection(const TVServiceAPIConnection&) = delete;
    TVServiceAPIConnection& operator=(const TVServiceAPIConnection&) = delete;

private:
    friend class TCMarshallingHelperProxy;
    class Channel;
    std::unique_ptr<Channel> m_channel;
};

/// The values of one remote call, in order. Stores pointers: the values must stay valid, and request values unchanged,
/// until the call has run.
class TCMarshallingHelper
{
public:
    /// Width in bytes: 1, 2, 4 or 8.
    void PushValue(EMarshallingDirection direction, int width, void* value);
    void PushMarshalableClass(EMarshallingDirection direction, TIMarshalable* object);

protected:
    struct Value {
        EMarshallingDirection direction;
        int width; ///< of a plain value
        void* plain;
        TIMarshalable* object; ///< null for a plain value
    };
    std::vector<Value> m_values;
};

/// Makes one remote call.
class TCMarshallingHelperProxy : public TCMarshallingHelper
{
public:
    /// Sends the request values, waits for the reply (timeout 10 s) and writes the reply values. Returns false if there
    /// is no connection (or it is null), and for an error reply or a reply that does not match the pushed values. The
    /// last bool is reserved, false.
    bool Run(TVServiceAPIConnection* connection, std::string& interfaceName, const std::string& method, short number,
             bool reserved);
};
