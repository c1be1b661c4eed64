#include "support/tips.h"

#include <commctrl.h>

namespace {
std::vector<HWND> TipControls() {
    std::vector<HWND> controls;
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()) { controls.push_back(window); }
    }
    return controls;
}

// A control's tool of that number from 0; which dialog the control serves shows in it: its window's parent.
bool GetTool(HWND control, size_t index, TTTOOLINFOW* tool) {
    *tool = {};
    tool->cbSize = sizeof(*tool);
    return SendMessageW(control, TTM_ENUMTOOLSW, index, reinterpret_cast<LPARAM>(tool)) != 0;
}
}  // namespace

HWND TipControlOf(HWND dialog) {
    for (const HWND control : TipControls()) {
        TTTOOLINFOW tool;
        if (GetTool(control, 0, &tool) && tool.hwnd == dialog) { return control; }
    }
    return nullptr;
}

int CountTipControls() { return static_cast<int>(TipControls().size()); }

std::vector<int> TipsOf(HWND dialog) {
    std::vector<int> ids;
    TTTOOLINFOW tool;
    for (size_t index = 0; GetTool(TipControlOf(dialog), index, &tool); ++index) {
        // A tool that is not its window shows its tip nowhere: none here has a rectangle.
        ids.push_back((tool.uFlags & TTF_IDISHWND) != 0 ? GetDlgCtrlID(reinterpret_cast<HWND>(tool.uId)) : 0);
    }
    return ids;
}

Text TipText(HWND dialog, int id) {
    TCHAR text[1024] = {};
    TTTOOLINFOW tool = {};
    tool.cbSize = sizeof(tool);
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(dialog, id));
    tool.lpszText = text;
    SendMessageW(TipControlOf(dialog), TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
    return text;
}
