// The names of signals, and the callback that prints them.
#include "debugutil/Console.h"
#include "debugutil/DebugUtil.h"

#include <cstdio>

const char* TCDebugUtil::GetStringOfSignalType(ESignalType type)
{
    // Several threads may receive signals at the same time.
    static thread_local char strDefault[64];
    switch (type) {
#define NAMED(signal)                                                                                                  \
    case signal:                                                                                                       \
        return #signal;
        NAMED(SIGNAL_SEARCH_CHANNEL)
        NAMED(SIGNAL_CHANNEL_FOUND)
        NAMED(SIGNAL_SEARCH_CHANNEL_DONE)
        NAMED(SIGNAL_SEARCH_OPTION_CHANGE)
        NAMED(SIGNAL_SEARCH_SERVICE_LIST_FULL)
        NAMED(SIGNAL_SERVICE_LIST_CHANGED)
        NAMED(SIGNAL_DIGITURK_AUTO_TUNING_RESULT)
        NAMED(SIGNAL_EPG_COMPLETED)
        NAMED(SIGNAL_PROGRAM_CHANGED)
        NAMED(SIGNAL_EXT_SOURCE_CHANGE_START)
        NAMED(SIGNAL_EXT_SOURCE_SIGNAL_OK)
        NAMED(SIGNAL_EXT_SOURCE_NOT_SUPPORT)
        NAMED(SIGNAL_EXT_SOURCE_NO_SIGNAL)
        NAMED(SIGNAL_EXT_SOURCE_UNPLUG)
        NAMED(SIGNAL_EXT_SOURCE_STOP)
        NAMED(SIGNAL_PVR_SYSTEM_EVENT)
        NAMED(SIGNAL_RATING_CHANGED)
        NAMED(SIGNAL_CHANNEL_SCRAMBLED_FOUND)
        NAMED(SIGNAL_SEARCH_SCRAMBLE)
        NAMED(SIGNAL_SEARCH_SCRAMBLE_DONE)
        NAMED(SIGNAL_RECV_CURRENT_EVENT)
        NAMED(SIGNAL_TUNE_START)
        NAMED(SIGNAL_TUNE_SUCCESS)
        NAMED(SIGNAL_TUNER_LOCK_FAIL)
        NAMED(SIGNAL_SERVICE_LOCKED)
        NAMED(SIGNAL_TUNE_STOP)
        NAMED(SIGNAL_SIGNAL_STRENGTH)
        NAMED(SIGNAL_CHANGE_TV_MODE)
        NAMED(SIGNAL_RESOLUTION_CHANGED)
        NAMED(SIGNAL_CAPTION_DESCRIPTOR)
        NAMED(SIGNAL_SI_TIME_OUT)
        NAMED(SIGNAL_TUNE_PREPARATION)
        NAMED(SIGNAL_TUNE_ABANDONED)
        NAMED(SIGNAL_TUNE_WEAK_SIGNAL)
        NAMED(SIGNAL_MTS_CHANGED)
        NAMED(SIGNAL_TVS_ACTIVATE)
        NAMED(SIGNAL_TVS_DEACTIVATE)
        NAMED(SIGNAL_DELIVERY_SYSTEM_CHANGED)
        NAMED(SIGNAL_PRESENT_EIT_CHANGED)
        NAMED(SIGNAL_FOLLOWING_EIT_CHANGED)
        NAMED(SIGNAL_SI_STARTED)
        NAMED(SIGNAL_PICTURE_SIZE_CHANGE)
        NAMED(SIGNAL_COUNTRY_CHANGED)
        NAMED(SIGNAL_SEARCH_HOMING_CHANNEL_DONE)
        NAMED(SIGNAL_PES_CHANGED)
        NAMED(SIGNAL_LOCK_SUCCESS)
        NAMED(SIGNAL_KORLIX_CONNECTED_CHANGE)
        NAMED(SIGNAL_KORLIX_PANEL_OFF_CHANGE)
        NAMED(SIGNAL_VSI_3D_CHANGE)
        NAMED(SIGNAL_UNMUTE_VIDEO)
        NAMED(SIGNAL_NEW_TRANSPONDERS_DETECTED)
        NAMED(SIGNAL_BAT_CHANGED)
        NAMED(SIGNAL_RECEIVED_MATCHED_3DCHANNEL)
        NAMED(SIGNAL_DATA_SERVICE)
        NAMED(SIGNAL_SCRAMBLED_SERVICE)
        NAMED(SIGNAL_CLEAR_SERVICE)
        NAMED(SIGNAL_NOT_AVAILABLE_SERVICE)
        NAMED(SIGNAL_TUNE_FOR_FEEDING_SI)
        NAMED(SIGNAL_CI_VIDEODEC_ERROR_DETECT)
        NAMED(SIGNAL_RATING_CHANGED_FROM_GUIDE)
        NAMED(SIGNAL_MAJOR_TUNE)
        NAMED(SIGNAL_PICTURE_SIZE_CHANGE_AFD)
#undef NAMED
    default:
        std::snprintf(strDefault, sizeof strDefault, "UNKOWN[%d]", static_cast<int>(type));
        return strDefault;
    }
}

int TCDebugUtil::SignalReceivedCallback(ESignalType type, TSSignalData /*data*/, void* /*userData*/)
{
    console::WriteLine(std::string("[DebugUtil] SignalReceivedCallback - signal:") + GetStringOfSignalType(type));
    return 0;
}
