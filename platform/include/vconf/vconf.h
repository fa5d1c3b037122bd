// The key-value store of the TV set.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/// Writes the integer stored under the key to *value and returns 0. Returns -1 and writes nothing if the key is
/// missing.
int vconf_get_int(const char* key, int* value);

#ifdef __cplusplus
}
#endif
