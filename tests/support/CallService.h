// Remote calls without the proxy.
#pragma once

#include "host/messaging/MessageCodec.h"

#include <string>

/// Sends one call to the debug print service: its method, number and values as text, for example `Start 0`. Returns the
/// values of the reply, or the message of the error. Throws std::system_error if the call cannot be written as a message.
std::string CallService(const host::Bus& client, const std::string& call);
