// Assertions and log messages are printed on standard error and traced.
#include "tvs-api-internal/Diagnostics.h"

#include "host/call/Operation.h"
#include "host/call/StandardStreams.h"

#include <cstdarg>
#include <glib.h>

void _TCApiAssert(const char* expression, const char* path, unsigned long line, const char* message)
{
    host::Operation(host::Op::_TCApiAssert, host::With(expression, path, line), [&](host::Outputs&) {
        host::PrintError(std::string("ASSERT ") + expression + " at " + path + ":" + std::to_string(line) +
                         (message == nullptr ? "" : std::string(": ") + message));
    });
}

void TCApiPrintMessage(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    g_autofree char* text = g_strdup_vprintf(format, arguments);
    va_end(arguments);
    const char* message = text;
    host::Operation(host::Op::TCApiPrintMessage, host::With(message),
                    [&](host::Outputs&) { host::PrintError(message); });
}
