// The key-value store of the TV set.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/// Writes the integer of the key to *value and returns 0. If the key is missing, writes nothing and returns -1.
int vconf_get_int(const char* key, int* value);

#ifdef __cplusplus
}
#endif
