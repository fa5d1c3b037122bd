// The platform's assertions and message log.
#pragma once

/// Reports a failed assertion and returns. `message` may be null.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the SDK's name
void _TCApiAssert(const char* expression, const char* path, unsigned long line, const char* message);

/// Writes one message to the platform's log. Takes a printf format.
void TCApiPrintMessage(const char* format, ...) __attribute__((format(printf, 1, 2)));
