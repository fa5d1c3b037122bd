// Zoom windows. Every value is passed on as it was read; nothing is sent once the input has ended.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"

namespace
{

constexpr const char* kWindowPrompt = "WindowId = ";
constexpr const char* kOnOffPrompt = "OnOff (1/0) = ";

void ReportApiResult(const std::string& outcome, int result)
{
    console::WriteLine(outcome + " API ret[" + std::to_string(result) + "]");
}

std::string Bracketed(int value) { return "[" + std::to_string(value) + "]"; }

void ReportAvailable(IZoomControl& zoom)
{
    bool available = false;
    const int result = zoom.IsZoomAvailable(available);
    ReportApiResult("Zoom available" + Bracketed(available), result);
}

void ReportSharingType(IZoomControl& zoom)
{
    int type = 0;
    const int result = zoom.GetZoomSharingAvailableType(type);
    ReportApiResult("Zoom sharing available type" + Bracketed(type), result);
}

void ReportConnected(IZoomControl& zoom)
{
    std::vector<int> ids;
    const int result = zoom.GetConnectedZoomWindows(ids);
    console::WriteLine("GetConnectedZoomWindows API ret[" + std::to_string(result));
    std::string list;
    for (const int id : ids)
        list += std::to_string(id) + ", ";
    console::WriteLine("Connected window ids = [" + list + "]");
}

} // namespace

TSRectInfo TCDebugMenuTPMS::m_ReadRect(const std::string& name)
{
    TSRectInfo rectangle;
    rectangle.x = m_SelectCmd(name + "X = ");
    rectangle.y = m_SelectCmd(name + "Y = ");
    rectangle.width = m_SelectCmd(name + "Width = ");
    rectangle.height = m_SelectCmd(name + "Height = ");
    return rectangle;
}

const TCDebugMenuTPMS::TZoomRows& TCDebugMenuTPMS::m_Menu_ZoomControlTest()
{
    // Reads a window and a switch, and calls one operation with them.
    const auto switchWindow = [](int (IZoomControl::*operation)(std::vector<int>, bool), const char* outcome) {
        return [operation, outcome](TCDebugMenuTPMS& menu, IZoomControl& zoom) {
            const int id = menu.m_SelectCmd(kWindowPrompt);
            const bool on = menu.m_SelectCmd(kOnOffPrompt) != 0;
            if (!console::InputEnded())
                ReportApiResult(outcome, (zoom.*operation)({id}, on));
        };
    };
    // Reads a window and asks one question about it.
    const auto askWindow = [](int (IZoomControl::*question)(int, bool&), const char* outcome) {
        return [question, outcome](TCDebugMenuTPMS& menu, IZoomControl& zoom) {
            const int id = menu.m_SelectCmd(kWindowPrompt);
            if (console::InputEnded())
                return;
            bool answer = false;
            const int result = (zoom.*question)(id, answer);
            ReportApiResult(outcome + Bracketed(answer), result);
        };
    };
    static const TZoomRows rows = {
        {1, " 1. Check if zoom available\n", [](TCDebugMenuTPMS&, IZoomControl& zoom) { ReportAvailable(zoom); }},
        {2, " 2. Check available zoom sharing type\n",
         [](TCDebugMenuTPMS&, IZoomControl& zoom) { ReportSharingType(zoom); }},
        {3, " 3. Create zoom window\n",
         [](TCDebugMenuTPMS& menu, IZoomControl& zoom) {
             const TSRectInfo source = menu.m_ReadRect("Src");
             const TSRectInfo destination = menu.m_ReadRect("Dst");
             const TSRectInfo main = menu.m_ReadRect("Main");
             if (console::InputEnded())
                 return;
             int handle = -1;
             const int result = zoom.CreateZoomWindow(handle, source, destination, main);
             ReportApiResult("Created window handle" + Bracketed(handle), result);
         }},
        {4, " 4. Delete zoom window\n",
         [](TCDebugMenuTPMS& menu, IZoomControl& zoom) {
             const int id = menu.m_SelectCmd(kWindowPrompt);
             const TSRectInfo main = menu.m_ReadRect("Main");
             if (!console::InputEnded())
                 ReportApiResult("Window destroy!", zoom.DeleteZoomWindow({id}, main));
         }},
        {5, " 5. Set zoom window (ON/OFF)\n", switchWindow(&IZoomControl::SetZoomWindow, "Window set!")},
        {6, " 6. Mute/unmute zoom window\n", switchWindow(&IZoomControl::MuteZoomWindow, "Window muted!")},
        {7, " 7. Check if zoom window started\n", askWindow(&IZoomControl::IsZoomWindowStarted, "Is window started")},
        {8, " 8. Check if zoom window muted\n", askWindow(&IZoomControl::IsZoomWindowMuted, "Is window muted")},
        {9, " 9. Set zoom window src-dst\n",
         [](TCDebugMenuTPMS& menu, IZoomControl& zoom) {
             const int id = menu.m_SelectCmd(kWindowPrompt);
             const TSRectInfo source = menu.m_ReadRect("Src");
             const TSRectInfo destination = menu.m_ReadRect("Dst");
             const TSRectInfo main = menu.m_ReadRect("Main");
             if (!console::InputEnded())
                 ReportApiResult("Window size updated!", zoom.UpdateZoomWindowSize(id, source, destination, main));
         }},
        {10, " 10. Get connected zoom windows\n", [](TCDebugMenuTPMS&, IZoomControl& zoom) { ReportConnected(zoom); }},
    };
    return rows;
}

void TCDebugMenuTPMS::m_ZoomControlTest()
{
    const auto zoom =
        CreateControl("ZoomControl interface creation failed!\n", TVServiceAPI::CreateZoomControl, PROFILE_MAIN, 0);
    const auto refuse = [](int) {
        console::WriteLine("Unsupported command!");
        return true;
    };
    if (zoom)
        m_RunMenu([this] { m_PrintMenu_ZoomControlTest(); }, tpms::kCommandPrompt, m_Menu_ZoomControlTest(), refuse,
                  *this, *zoom);
}

void TCDebugMenuTPMS::m_PrintMenu_ZoomControlTest()
{
    tpms::PrintMenu("\t[Test19 List - IZoomControl]\t\n", m_Menu_ZoomControlTest());
}
