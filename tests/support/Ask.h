// Calls to the TV service, past the console.
#pragma once

#include "host/messaging/MessageCodec.h"

#include <string>

/// The answer to one call, written as "Start 0", with its values behind; the error's text if it is refused. Throws
/// std::system_error if there is no such message.
std::string Ask(const host::Bus& client, const std::string& call);
