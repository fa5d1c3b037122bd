// Tests of zoom windows. Values are passed on without a check. After the end of input no call is made.
#include "debugutil/DebugMenuTPMS.h"
#include "debugutil/DebugMenuTPMSCommon.h"

namespace
{

constexpr const char* kWindowPrompt = "WindowId = ";
constexpr const char* kSourcePrompts[] = {"SrcX = ", "SrcY = ", "SrcWidth = ", "SrcHeight = "};
constexpr const char* kDestinationPrompts[] = {"DstX = ", "DstY = ", "DstWidth = ", "DstHeight = "};
constexpr const char* kMainPrompts[] = {"MainX = ", "MainY = ", "MainWidth = ", "MainHeight = "};
constexpr const char* kOnOffPrompt = "OnOff (1/0) = ";

void ReportApiResult(const std::string& outcome, int result)
{
    console::WriteLine(outcome + " API ret[" + std::to_string(result) + "]");
}

std::string Bracketed(int value) { return "[" + std::to_string(value) + "]"; }

bool PrintUnsupported(int /*number*/)
{
    console::WriteLine("Unsupported command!");
    return true;
}

} // namespace

// The commands of the zoom menu.
class TCDebugMenuTPMS::TCZoomTest
{
public:
    TCZoomTest(TCDebugMenuTPMS& menu, IZoomControl& zoom) : m_menu(menu), m_zoom(zoom) {}

    using TWindowSwitch = int (IZoomControl::*)(std::vector<int> ids, bool on);
    using TWindowQuery = int (IZoomControl::*)(int windowId, bool& value);

    void CheckAvailable();
    void CheckSharingType();
    void CreateWindow();
    void DeleteWindow();
    void SwitchWindow(TWindowSwitch operation, const char* outcome);
    void QueryWindow(TWindowQuery operation, const char* outcome);
    void ResizeWindow();
    void ListWindows();

private:
    TSRectInfo m_ReadRect(const char* const (&prompts)[4]);

    TCDebugMenuTPMS& m_menu;
    IZoomControl& m_zoom;
};

const TCMenu<TCDebugMenuTPMS::TCZoomTest&> TCDebugMenuTPMS::m_zoomMenu = {
    tpms::Frame(),
    "\t[Test19 List - IZoomControl]\t\n",
    {
        {1, " 1. Check if zoom available\n", &TCZoomTest::CheckAvailable},
        {2, " 2. Check available zoom sharing type\n", &TCZoomTest::CheckSharingType},
        {3, " 3. Create zoom window\n", &TCZoomTest::CreateWindow},
        {4, " 4. Delete zoom window\n", &TCZoomTest::DeleteWindow},
        {5, " 5. Set zoom window (ON/OFF)\n",
         [](TCZoomTest& test) { test.SwitchWindow(&IZoomControl::SetZoomWindow, "Window set!"); }},
        {6, " 6. Mute/unmute zoom window\n",
         [](TCZoomTest& test) { test.SwitchWindow(&IZoomControl::MuteZoomWindow, "Window muted!"); }},
        {7, " 7. Check if zoom window started\n",
         [](TCZoomTest& test) { test.QueryWindow(&IZoomControl::IsZoomWindowStarted, "Is window started"); }},
        {8, " 8. Check if zoom window muted\n",
         [](TCZoomTest& test) { test.QueryWindow(&IZoomControl::IsZoomWindowMuted, "Is window muted"); }},
        {9, " 9. Set zoom window src-dst\n", &TCZoomTest::ResizeWindow},
        {10, " 10. Get connected zoom windows\n", &TCZoomTest::ListWindows},
    },
};

void TCDebugMenuTPMS::TCZoomTest::CheckAvailable()
{
    bool available = false;
    const int result = m_zoom.IsZoomAvailable(available);
    ReportApiResult("Zoom available" + Bracketed(available), result);
}

void TCDebugMenuTPMS::TCZoomTest::CheckSharingType()
{
    int type = 0;
    const int result = m_zoom.GetZoomSharingAvailableType(type);
    ReportApiResult("Zoom sharing available type" + Bracketed(type), result);
}

void TCDebugMenuTPMS::TCZoomTest::CreateWindow()
{
    const TSRectInfo source = m_ReadRect(kSourcePrompts);
    const TSRectInfo destination = m_ReadRect(kDestinationPrompts);
    const TSRectInfo main = m_ReadRect(kMainPrompts);
    if (console::InputEnded())
        return;
    int handle = -1;
    const int result = m_zoom.CreateZoomWindow(handle, source, destination, main);
    ReportApiResult("Created window handle" + Bracketed(handle), result);
}

void TCDebugMenuTPMS::TCZoomTest::DeleteWindow()
{
    const int id = m_menu.m_SelectCmd(kWindowPrompt);
    const TSRectInfo main = m_ReadRect(kMainPrompts);
    if (!console::InputEnded())
        ReportApiResult("Window destroy!", m_zoom.DeleteZoomWindow({id}, main));
}

void TCDebugMenuTPMS::TCZoomTest::SwitchWindow(TWindowSwitch operation, const char* outcome)
{
    const int id = m_menu.m_SelectCmd(kWindowPrompt);
    const bool on = m_menu.m_SelectCmd(kOnOffPrompt) != 0;
    if (!console::InputEnded())
        ReportApiResult(outcome, (m_zoom.*operation)({id}, on));
}

void TCDebugMenuTPMS::TCZoomTest::QueryWindow(TWindowQuery operation, const char* outcome)
{
    const int id = m_menu.m_SelectCmd(kWindowPrompt);
    if (console::InputEnded())
        return;
    bool value = false;
    const int result = (m_zoom.*operation)(id, value);
    ReportApiResult(outcome + Bracketed(value), result);
}

void TCDebugMenuTPMS::TCZoomTest::ResizeWindow()
{
    const int id = m_menu.m_SelectCmd(kWindowPrompt);
    const TSRectInfo source = m_ReadRect(kSourcePrompts);
    const TSRectInfo destination = m_ReadRect(kDestinationPrompts);
    const TSRectInfo main = m_ReadRect(kMainPrompts);
    if (!console::InputEnded())
        ReportApiResult("Window size updated!", m_zoom.UpdateZoomWindowSize(id, source, destination, main));
}

void TCDebugMenuTPMS::TCZoomTest::ListWindows()
{
    std::vector<int> ids;
    const int result = m_zoom.GetConnectedZoomWindows(ids);
    console::WriteLine("GetConnectedZoomWindows API ret[" + std::to_string(result));
    std::string list;
    for (const int id : ids)
        list += std::to_string(id) + ", ";
    console::WriteLine("Connected window ids = [" + list + "]");
}

TSRectInfo TCDebugMenuTPMS::TCZoomTest::m_ReadRect(const char* const (&prompts)[4])
{
    TSRectInfo rectangle;
    rectangle.x = m_menu.m_SelectCmd(prompts[0]);
    rectangle.y = m_menu.m_SelectCmd(prompts[1]);
    rectangle.width = m_menu.m_SelectCmd(prompts[2]);
    rectangle.height = m_menu.m_SelectCmd(prompts[3]);
    return rectangle;
}

void TCDebugMenuTPMS::m_ZoomControlTest()
{
    const auto zoom =
        CreateControl("ZoomControl interface creation failed!\n", TVServiceAPI::CreateZoomControl, PROFILE_MAIN, 0);
    if (!zoom)
        return;
    TCZoomTest test(*this, *zoom);
    m_RunMenu([this] { m_PrintMenu_ZoomControlTest(); },
              [&](int command) { return m_zoomMenu.Dispatch(command, PrintUnsupported, test); });
}

void TCDebugMenuTPMS::m_PrintMenu_ZoomControlTest() { tpms::PrintMenu(m_zoomMenu); }
