// The set's key-value store.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/// Writes the integer of that key and returns 0; returns -1 and writes nothing for a key that is not there.
int vconf_get_int(const char* key, int* value);

#ifdef __cplusplus
}
#endif
