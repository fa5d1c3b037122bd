// Remote calls to the TV service.
#pragma once

#include "tvs-api-internal/Marshalable.h"

#include <memory>
#include <string>
#include <vector>

/// In which message a value travels.
enum EMarshallingDirection { MARSHALLING_REPLY = 0, MARSHALLING_REQUEST = 1 };

/// A messaging connection to one object of the TV service. It opens at once; where that cannot be done the object
/// is there all the same and each call tries again. Used by one thread at a time.
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

/// The list of values of one remote call, in call order. Values are kept by address: they must stay valid, and
/// request values unchanged, until the call has run.
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
    /// Sends the request values, waits up to 10 seconds for the reply and writes the reply values. False on any
    /// failure: no connection (null included), an error reply, or a reply of another form than the values pushed.
    /// The last bool is reserved, false.
    bool Run(TVServiceAPIConnection* connection, std::string& interfaceName, const std::string& method, short number,
             bool reserved);
};
