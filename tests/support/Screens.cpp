#include "support/Screens.h"

const std::string kTopMenu = R"(====================================
DebugUtilMenu
------------------------------------
1 TVS
2 TV Player
3 TV Plug in
4 Dravel-Provider
5 TVS Debug
6 TVS HT Debug
------------------------------------
99 Exit
====================================
cmd> )";

const std::string kTVSMenu = "====================================\n"
                             "\t[Process Debug List]\t\n"
                             "------------------------------------\n"
                             " 1. Size Control\n"
                             " 2. Add reference Count\n"
                             " 3. Release reference Count\n"
                             " 4. Signal Test - Subscribe\n"
                             " 5. Signal Test - Unsubscribe\n"
                             " 6. Set Source\n"
                             " 7. Get Source\n"
                             " 8. Set Analog Clean view\n"
                             " 12.[LFD]StartSourceMonitoring\n"
                             " 13.[LFD]StopSourceMonitoring\n"
                             " 14.[LFD]SetSoundOnVideoCall\n"
                             " 15.GetPIDSetStatus\n"
                             "------------------------------------\n"
                             " 99 : Exit\n"
                             "====================================\n"
                             "cmd> ";

const std::string kTPMSMenu = "====================================\n"
                              "\t[Process Debug List]\t\n"
                              R"(------------------------------------
 1. Reference Count Test
 2. AV Mute Test
 3. HDMI Anaysis (Capture) test
 4. GetCurrentTPMSStatus test
 5. SetTvMode to DTV Air
 6. SetDTVMode test
 7. SetSource Test
 8. RestartVideoDecorder
 9. Set AVMode test
 10. Check Tuner Signal Sate
 11. Get Lastest Channel info
 12. Preparation Logic Test
 13. Preparation SetTvMode with service Id Test
 14. Set Crop Video test
 15. Check Caption Exist test
 16. SetPreviewSource
 17. SIGNAL_TUNE_PREPARATION mechanism
 18. Epg Data Feeding
 19. IZoomControl test
 20. InvalidService test
 21. Set boot up service
------------------------------------
 99 : Exit
====================================

cmd> )";

const std::string kSourceGuide = "**Source LIST**\n"
                                 "0.          TV \n"
                                 "1.          AV1 \n"
                                 "2.          AV2 \n"
                                 "3.          AV3 \n"
                                 "7.          COMP1 \n"
                                 "8.          COMP2 \n"
                                 "9.          COMP3 \n"
                                 "13.         HDMI1 \n"
                                 "14.         HDMI2 \n"
                                 "15.         HDMI3 \n"
                                 "16.         HDMI4 \n"
                                 "17.         HDMI5 \n"
                                 "18.         HDMI6 \n"
                                 "***************\n"
                                 "Input ? >";

const std::string kSubIdPrompt = "**********************\n*****Select SubID*****\n**********************\nInput ? >";

std::string InTVSMenu(const std::string& text)
{
    return "DebugUtil\n" + kTopMenu + "executing: TVS Debug\nDebugUtil\n" + kTVSMenu + text + kTVSMenu + kTopMenu;
}
