#include "vconf/vconf.h"

#include "host/call/Operation.h"

int vconf_get_int(const char* key, int* value)
{
    return host::Operation(host::Op::vconf_get_int, host::With(key), [&](host::Outputs& outputs) {
        const auto& store = host::Host::Instance().scenario.vconf;
        const auto found = store.find(key);
        if (found == store.end())
            return -1;
        outputs.Write(*value, found->second);
        return 0;
    });
}
