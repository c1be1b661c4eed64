// The tooltip control: it keeps the tools and their texts; as nobody looks, no tip is ever shown.
#include <algorithm>
#include <utility>
#include <vector>

#include "commctrl.h"
#include "control.h"
#include "fault.h"
#include "unicode.h"

namespace headless
{
namespace
{
// Messages that give a text without the size of the buffer count on this many characters.
constexpr std::size_t UnsizedBuffer = 80;

struct Tool
{
    TTTOOLINFOW info = {};
    std::u16string text;
};

std::u16string TextOf(const TTTOOLINFOW& info)
{
    if (info.lpszText == nullptr || info.lpszText == LPSTR_TEXTCALLBACKW)
    {
        return {};
    }
    if (!IS_INTRESOURCE(info.lpszText))
    {
        return info.lpszText;
    }
    WCHAR text[UnsizedBuffer] = {};
    LoadStringW(info.hinst, LOWORD(reinterpret_cast<ULONG_PTR>(info.lpszText)), text,
                static_cast<int>(UnsizedBuffer));
    return text;
}

// Older records end before lParam, or before the member behind it.
bool HasParam(const TTTOOLINFOW& info)
{
    return info.cbSize >= TTTOOLINFOW_V2_SIZE;
}

class ToolTips : public Control
{
public:
    explicit ToolTips(HWND window) : Control(window) { SetTimes(-1); }

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (NeedsRecord(message))
        {
            auto* info = reinterpret_cast<TTTOOLINFOW*>(lParam);
            return info == nullptr || info->cbSize < TTTOOLINFOW_V1_SIZE ? 0
                                                                         : HandleTool(message, wParam, *info);
        }
        switch (message)
        {
        case WM_CREATE:
            SetWindowLongPtrW(Window(), GWL_EXSTYLE,
                              GetWindowLongPtrW(Window(), GWL_EXSTYLE) | WS_EX_TOOLWINDOW);
            return 0;
        case WM_NCHITTEST:
            return HTTRANSPARENT;
        case TTM_GETTOOLCOUNT:
            return static_cast<LRESULT>(m_tools.size());
        case TTM_SETMAXTIPWIDTH:
            return std::exchange(m_maxWidth, static_cast<int>(lParam));
        case TTM_GETMAXTIPWIDTH:
            return m_maxWidth;
        case TTM_SETDELAYTIME:
            SetDelay(wParam, static_cast<short>(LOWORD(lParam)));
            return 0;
        case TTM_GETDELAYTIME:
            return GetDelay(wParam);
        case TTM_ACTIVATE:
        case TTM_RELAYEVENT:
        case TTM_POP:
        case TTM_UPDATE:
            return 0;
        default:
            return Control::Handle(message, wParam, lParam);
        }
    }

private:
    static bool NeedsRecord(UINT message)
    {
        return message == TTM_ADDTOOLW || message == TTM_DELTOOLW || message == TTM_GETTOOLINFOW ||
               message == TTM_SETTOOLINFOW || message == TTM_GETTEXTW || message == TTM_UPDATETIPTEXTW ||
               message == TTM_ENUMTOOLSW;
    }

    LRESULT HandleTool(UINT message, WPARAM wParam, TTTOOLINFOW& info)
    {
        if (message == TTM_ADDTOOLW)
        {
            return Add(info);
        }
        if (message == TTM_ENUMTOOLSW)
        {
            return wParam < m_tools.size() && Give(m_tools[wParam], info);
        }
        const auto tool =
            std::find_if(m_tools.begin(), m_tools.end(),
                         [&](const Tool& candidate)
                         { return candidate.info.hwnd == info.hwnd && candidate.info.uId == info.uId; });
        if (tool == m_tools.end())
        {
            return 0;
        }
        switch (message)
        {
        case TTM_DELTOOLW:
            m_tools.erase(tool);
            return 0;
        case TTM_GETTOOLINFOW:
            return Give(*tool, info);
        case TTM_SETTOOLINFOW:
            *tool = Take(info);
            return 0;
        case TTM_UPDATETIPTEXTW:
            tool->text = TextOf(info);
            return 0;
        default:
            CopyText(info.lpszText, wParam, tool->text);
            return 0;
        }
    }

    LRESULT Add(const TTTOOLINFOW& info)
    {
        DWORD error = 0;
        if (TakeFault("TTM_ADDTOOLW", &error))
        {
            SetLastError(error);
            return FALSE;
        }
        m_tools.push_back(Take(info));
        return TRUE;
    }

    static Tool Take(const TTTOOLINFOW& info)
    {
        Tool tool;
        tool.info.uFlags = info.uFlags;
        tool.info.hwnd = info.hwnd;
        tool.info.uId = info.uId;
        tool.info.rect = info.rect;
        tool.info.hinst = info.hinst;
        tool.info.lParam = HasParam(info) ? info.lParam : 0;
        tool.text = TextOf(info);
        return tool;
    }

    static LRESULT Give(const Tool& tool, TTTOOLINFOW& info)
    {
        info.uFlags = tool.info.uFlags;
        info.hwnd = tool.info.hwnd;
        info.uId = tool.info.uId;
        info.rect = tool.info.rect;
        info.hinst = tool.info.hinst;
        if (HasParam(info))
        {
            info.lParam = tool.info.lParam;
        }
        CopyText(info.lpszText, UnsizedBuffer, tool.text);
        return TRUE;
    }

    // In milliseconds; less than nothing is the system's choice.
    void SetTimes(int initial)
    {
        m_initial = initial < 0 ? static_cast<int>(GetDoubleClickTime()) : initial;
        m_reshow = m_initial / 5;
        m_shown = m_initial * 10;
    }

    void SetDelay(WPARAM kind, int time)
    {
        switch (kind)
        {
        case TTDT_AUTOMATIC:
            SetTimes(time);
            break;
        case TTDT_RESHOW:
            m_reshow = time < 0 ? static_cast<int>(GetDoubleClickTime()) / 5 : time;
            break;
        case TTDT_AUTOPOP:
            m_shown = time < 0 ? static_cast<int>(GetDoubleClickTime()) * 10 : time;
            break;
        case TTDT_INITIAL:
            m_initial = time < 0 ? static_cast<int>(GetDoubleClickTime()) : time;
            break;
        default:
            break;
        }
    }

    LRESULT GetDelay(WPARAM kind) const
    {
        switch (kind)
        {
        case TTDT_RESHOW:
            return m_reshow;
        case TTDT_AUTOPOP:
            return m_shown;
        case TTDT_AUTOMATIC:
        case TTDT_INITIAL:
            return m_initial;
        default:
            return -1;
        }
    }

    std::vector<Tool> m_tools;
    int m_maxWidth = -1;
    int m_initial = 0;
    int m_reshow = 0;
    int m_shown = 0;
};
}  // namespace

void RegisterToolTips()
{
    RegisterControl<ToolTips>(TOOLTIPS_CLASSW);
}
}  // namespace headless
