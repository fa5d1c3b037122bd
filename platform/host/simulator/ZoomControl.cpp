// Zoom windows. An operation on a window that does not exist returns 0 and does nothing.
#include "host/simulator/Controls.h"

#include <algorithm>

namespace host
{
namespace
{

class ZoomControl : public Control<IZoomControl>
{
public:
    using Control::Control;

    int CreateZoomWindow(int& handle, const TSRectInfo& source, const TSRectInfo& destination,
                         const TSRectInfo& main) override
    {
        return m_Succeed(Op::IZoomControl_CreateZoomWindow, With(source, destination, main), [&](Outputs& outputs) {
            const int id = ++m_tv.lastZoomWindow;
            m_tv.zoomWindows[id] = {source, destination, main};
            outputs.Write(handle, id);
        });
    }
    int DeleteZoomWindow(const std::vector<int>& ids, const TSRectInfo& main) override
    {
        return m_tv.Call(Op::IZoomControl_DeleteZoomWindow, With(ids, main), [&](Outputs&) {
            if (!m_HasAll(ids))
                return 0;
            for (const int id : ids)
                m_tv.zoomWindows.erase(id);
            return 1;
        });
    }
    int SetZoomWindow(std::vector<int> ids, bool on) override
    {
        return m_tv.Call(Op::IZoomControl_SetZoomWindow, With(ids, on),
                         [&](Outputs&) { return m_Switch(ids, &ZoomWindow::started, on); });
    }
    int MuteZoomWindow(std::vector<int> ids, bool mute) override
    {
        return m_tv.Call(Op::IZoomControl_MuteZoomWindow, With(ids, mute),
                         [&](Outputs&) { return m_Switch(ids, &ZoomWindow::muted, mute); });
    }
    int IsZoomWindowStarted(int windowId, bool& started) override
    {
        return m_tv.Call(Op::IZoomControl_IsZoomWindowStarted, With(windowId), [&](Outputs& outputs) {
            return m_WithWindow(windowId, [&](const ZoomWindow& window) { outputs.Write(started, window.started); });
        });
    }
    int IsZoomWindowMuted(int windowId, bool& muted) override
    {
        return m_tv.Call(Op::IZoomControl_IsZoomWindowMuted, With(windowId), [&](Outputs& outputs) {
            return m_WithWindow(windowId, [&](const ZoomWindow& window) { outputs.Write(muted, window.muted); });
        });
    }
    int UpdateZoomWindowSize(int windowId, const TSRectInfo& source, const TSRectInfo& destination,
                             const TSRectInfo& main) override
    {
        return m_tv.Call(
            Op::IZoomControl_UpdateZoomWindowSize, With(windowId, source, destination, main), [&](Outputs&) {
                return m_WithWindow(windowId, [&](ZoomWindow& window) {
                    std::tie(window.source, window.destination, window.main) = std::tie(source, destination, main);
                });
            });
    }
    int GetZoomWindowSize(int windowId, TSRectInfo& source, TSRectInfo& destination, TSRectInfo& main) override
    {
        return m_tv.Call(Op::IZoomControl_GetZoomWindowSize, With(windowId), [&](Outputs& outputs) {
            return m_WithWindow(windowId, [&](const ZoomWindow& window) {
                outputs.Write(source, window.source);
                outputs.Write(destination, window.destination);
                outputs.Write(main, window.main);
            });
        });
    }
    int IsZoomAvailable(bool& available) override
    {
        return m_Succeed(Op::IZoomControl_IsZoomAvailable, With(),
                         [&](Outputs& outputs) { outputs.Write(available, m_tv.Tv().zoomAvailable); });
    }
    int GetZoomSharingAvailableType(int& type) override
    {
        return m_Succeed(Op::IZoomControl_GetZoomSharingAvailableType, With(),
                         [&](Outputs& outputs) { outputs.Write(type, m_tv.Tv().zoomSharingType); });
    }
    int GetConnectedZoomWindows(std::vector<int>& ids) override
    {
        return m_Succeed(Op::IZoomControl_GetConnectedZoomWindows, With(), [&](Outputs& outputs) {
            std::vector<int> connected;
            for (const auto& entry : m_tv.zoomWindows)
                connected.push_back(entry.first);
            outputs.Write(ids, connected);
        });
    }

private:
    bool m_HasAll(const std::vector<int>& ids) const
    {
        return std::all_of(ids.begin(), ids.end(), [&](int id) { return m_tv.zoomWindows.count(id) > 0; });
    }
    template <class Work> int m_WithWindow(int id, Work work)
    {
        const auto found = m_tv.zoomWindows.find(id);
        if (found == m_tv.zoomWindows.end())
            return 0;
        work(found->second);
        return 1;
    }
    int m_Switch(const std::vector<int>& ids, bool ZoomWindow::*flag, bool on)
    {
        if (!m_HasAll(ids))
            return 0;
        for (const int id : ids)
            m_tv.zoomWindows[id].*flag = on;
        return 1;
    }
};

} // namespace
} // namespace host

PIPELINE_FACTORY(ZoomControl)
