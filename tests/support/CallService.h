// Remote calls without the proxy.
#pragma once

#include "host/messaging/MessageCodec.h"

#include <string>

/// Sends one call, written as "Start 0" and its values, to the debug print service. Returns the values of the reply, or
/// the message of the error. Throws std::system_error if such a message cannot be made.
std::string CallService(const host::Bus& client, const std::string& call);
