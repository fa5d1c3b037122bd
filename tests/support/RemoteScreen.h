// The screen of the TV service's own menu.
#pragma once

#include <string>

/// With its prompt; of the items, all off, the third shows what is given.
inline std::string RemoteScreen(const std::string& video, const std::string& qos = "off",
                                const std::string& signals = "off")
{
    const std::string thin = "------------------------------------\n", thick = "====================================\n";
    return thick + "\t[TV Service Debug Print]\t\n" + thin + " 1. Tuner [off]\n 2. Source [off]\n 3. Video [" + video +
           "]\n 4. Audio [off]\n 5. Service list [off]\n 6. Programme guide [off]\n" + thin + " QoS: " + qos +
           "\n Debug mode print: off\n Debug mode signal: " + signals + "\n Debug mode performance: off\n" + thin +
           " 99 : Exit\n" + thick + "tvs> ";
}
