#include "support/tool_page.h"

#include <commctrl.h>
#include <prsht.h>

#include <utility>

void ToolPageTest::SetUp()
{
    SettingsTest::SetUp();
    InstallTools({KauriQB});
}

Values ToolPageTest::StoredByTool()
{
    Values values;
    for (const auto& [key, stored] : StoredSettings())
    {
        if (key == keys::Kauri)
        {
            values = stored;
        }
        else if (key != keys::Bench)
        {
            EXPECT_EQ(stored, Values{}) << Printable(key);
        }
    }
    return values;
}

EventRecord* EventRecord::s_current = nullptr;

EventRecord::EventRecord(HWND page)
{
    s_current = this;
    for (const HWND window : {page, GetParent(page)})
    {
        m_watched.push_back({window, GetWindowLongPtrW(window, GWLP_WNDPROC)});
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
    }
}

EventRecord::~EventRecord()
{
    for (const Watched& watched : m_watched)
    {
        SetWindowLongPtrW(watched.window, GWLP_WNDPROC, watched.procedure);
    }
    s_current = nullptr;
}

PageEvents EventRecord::Take()
{
    return std::exchange(m_events, {});
}

LRESULT CALLBACK EventRecord::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    s_current->Note(message, wParam, lParam);
    for (const Watched& watched : s_current->m_watched)
    {
        if (watched.window == window)
        {
            return CallWindowProcW(reinterpret_cast<WNDPROC>(watched.procedure), window, message, wParam,
                                   lParam);
        }
    }
    return 0;
}

void EventRecord::Note(UINT message, WPARAM wParam, LPARAM lParam)
{
    const std::string id = std::to_string(LOWORD(wParam));
    if (message == PSM_CHANGED || message == PSM_UNCHANGED)
    {
        m_events.emplace_back(message == PSM_CHANGED ? "marked" : "unmarked");
    }
    else if (message == WM_COMMAND && lParam != 0 && HIWORD(wParam) == EN_CHANGE)
    {
        m_events.push_back(id + " changed");
    }
    else if (message == WM_COMMAND && lParam != 0 && HIWORD(wParam) == BN_CLICKED)
    {
        m_events.push_back(id + " clicked");
    }
}
