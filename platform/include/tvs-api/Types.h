// Numbers and small records of all TV service interfaces.
#pragma once

#include <cstdint>
#include <tuple>

/// Purpose of a pipeline.
enum EProfile : std::int32_t {
    PROFILE_MAIN = 1,
    PROFILE_PIP = 101,
    PROFILE_ANALYSIS = 401,
    PROFILE_SOURCE_MONITORING = 701,
    PROFILE_SCAN = 702,
    PROFILE_CROP = 1001,
};

/// Input source. 0 to 47 are valid on a TV set; only some of them have a name here.
enum ESource : std::int32_t {
    SOURCE_TV = 0,
    SOURCE_AV1 = 1,
    SOURCE_AV2 = 2,
    SOURCE_AV3 = 3,
    SOURCE_COMP1 = 7,
    SOURCE_COMP2 = 8,
    SOURCE_COMP3 = 9,
    SOURCE_HDMI1 = 13,
    SOURCE_HDMI2 = 14,
    SOURCE_HDMI3 = 15,
    SOURCE_HDMI4 = 16,
    SOURCE_HDMI5 = 17,
    SOURCE_HDMI6 = 18,
    SOURCE_LAST = 47,
};

/// Event of the TV service.
enum ESignalType : std::int32_t {
    SIGNAL_SEARCH_CHANNEL = 16,
    SIGNAL_CHANNEL_FOUND = 17,
    SIGNAL_SEARCH_CHANNEL_DONE = 18,
    SIGNAL_SEARCH_OPTION_CHANGE = 19,
    SIGNAL_SEARCH_SERVICE_LIST_FULL = 20,
    SIGNAL_SERVICE_LIST_CHANGED = 21,
    SIGNAL_DIGITURK_AUTO_TUNING_RESULT = 22,
    SIGNAL_EPG_COMPLETED = 23,
    SIGNAL_PROGRAM_CHANGED = 24,
    SIGNAL_EXT_SOURCE_CHANGE_START = 25,
    SIGNAL_EXT_SOURCE_SIGNAL_OK = 26,
    SIGNAL_EXT_SOURCE_NOT_SUPPORT = 27,
    SIGNAL_EXT_SOURCE_NO_SIGNAL = 28,
    SIGNAL_EXT_SOURCE_UNPLUG = 29,
    SIGNAL_EXT_SOURCE_STOP = 30,
    SIGNAL_PVR_SYSTEM_EVENT = 31,
    SIGNAL_RATING_CHANGED = 32,
    SIGNAL_CHANNEL_SCRAMBLED_FOUND = 33,
    SIGNAL_SEARCH_SCRAMBLE = 34,
    SIGNAL_SEARCH_SCRAMBLE_DONE = 35,
    SIGNAL_RECV_CURRENT_EVENT = 48,
    SIGNAL_TUNE_START = 59,
    SIGNAL_TUNE_SUCCESS = 60,
    SIGNAL_TUNER_LOCK_FAIL = 61,
    SIGNAL_SERVICE_LOCKED = 62,
    SIGNAL_TUNE_STOP = 63,
    SIGNAL_SIGNAL_STRENGTH = 64,
    SIGNAL_CHANGE_TV_MODE = 65,
    SIGNAL_RESOLUTION_CHANGED = 66,
    SIGNAL_CAPTION_DESCRIPTOR = 67,
    SIGNAL_SI_TIME_OUT = 68,
    SIGNAL_TUNE_PREPARATION = 70,
    SIGNAL_TUNE_ABANDONED = 71,
    SIGNAL_TUNE_WEAK_SIGNAL = 72,
    SIGNAL_MTS_CHANGED = 74,
    SIGNAL_TVS_ACTIVATE = 75,
    SIGNAL_TVS_DEACTIVATE = 76,
    SIGNAL_DELIVERY_SYSTEM_CHANGED = 78,
    SIGNAL_PRESENT_EIT_CHANGED = 79,
    SIGNAL_FOLLOWING_EIT_CHANGED = 80,
    SIGNAL_SI_STARTED = 81,
    SIGNAL_PICTURE_SIZE_CHANGE = 82,
    SIGNAL_COUNTRY_CHANGED = 83,
    SIGNAL_SEARCH_HOMING_CHANNEL_DONE = 84,
    SIGNAL_PES_CHANGED = 85,
    SIGNAL_LOCK_SUCCESS = 87,
    SIGNAL_KORLIX_CONNECTED_CHANGE = 88,
    SIGNAL_KORLIX_PANEL_OFF_CHANGE = 89,
    SIGNAL_VSI_3D_CHANGE = 90,
    SIGNAL_UNMUTE_VIDEO = 91,
    SIGNAL_NEW_TRANSPONDERS_DETECTED = 92,
    SIGNAL_BAT_CHANGED = 93,
    SIGNAL_RECEIVED_MATCHED_3DCHANNEL = 94,
    SIGNAL_DATA_SERVICE = 95,
    SIGNAL_SCRAMBLED_SERVICE = 96,
    SIGNAL_CLEAR_SERVICE = 97,
    SIGNAL_NOT_AVAILABLE_SERVICE = 98,
    SIGNAL_TUNE_FOR_FEEDING_SI = 99,
    SIGNAL_CI_VIDEODEC_ERROR_DETECT = 100,
    SIGNAL_RATING_CHANGED_FROM_GUIDE = 101,
    SIGNAL_MAJOR_TUNE = 102,
    SIGNAL_TUNE_AROUND_SERVICE_DONE = 193,
    SIGNAL_TUNE_AROUND_FINISHED = 194,
    SIGNAL_BARKER_CHANNEL_TUNE = 195,
    SIGNAL_PICTURE_SIZE_CHANGE_AFD = 2817,
};

enum EAntennaMode : std::int32_t {
    ANTENNA_MODE_UNKNOWN = -1,
    ANTENNA_MODE_AIR = 0,
    ANTENNA_MODE_CABLE = 1,
    ANTENNA_MODE_SATELLITE = 2,
};

enum EServiceMode : std::int32_t {
    SERVICE_MODE_UNKNOWN = -1,
    SERVICE_MODE_DTV = 0,
};

enum EServiceProfile : std::int32_t {
    SERVICE_PROFILE_DTV = 0,
    SERVICE_PROFILE_OTHER = 2,
};

/// The services of a navigation query, and their order.
enum ENavigationMode : std::int32_t { NAVIGATION_MODE_TV = 1, NAVIGATION_MODE_CHANNEL = 14 };
enum ENavigationSortMode : std::int32_t { NAVIGATION_SORT_DEFAULT = 0 };

/// The parts of a digital service that are decoded.
enum EDTVMode : std::int32_t {
    DTV_MODE_DEMUX_ONLY = 0,
    DTV_MODE_AUDIO_ONLY = 1,
    DTV_MODE_VIDEO_ONLY = 2,
    DTV_MODE_ALL = 3,
};

/// Kind of change in which applications take part.
enum EStateChange : std::int32_t { STATE_CHANGE_SERVICE = 0, STATE_CHANGE_SOURCE = 1 };

/// Debug modes of the TV service.
enum EDebugMode : std::int32_t {
    DEBUG_MODE_PRINT = 0,
    DEBUG_MODE_SIGNAL = 1,
    DEBUG_MODE_PERFORMANCE = 2,
};

/// The id of no service: all 64 bits are set.
constexpr unsigned long long INVALID_SERVICE_ID = ~0ULL;

/// Identifies one pipeline.
struct TVSHandle {
    EProfile profile = PROFILE_MAIN;
    std::uint16_t screenId = 0; ///< 0 is the main screen
};

inline bool operator==(const TVSHandle& a, const TVSHandle& b)
{
    return a.profile == b.profile && a.screenId == b.screenId;
}

inline bool operator<(const TVSHandle& a, const TVSHandle& b)
{
    return std::tie(a.profile, a.screenId) < std::tie(b.profile, b.screenId);
}

/// The data of a signal. The layout depends on the signal; numbers are little-endian.
struct TSSignalData {
    unsigned char bytes[64] = {};
};
