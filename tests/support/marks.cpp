#include "support/marks.h"

#include <commctrl.h>
#include <prsht.h>

namespace {
LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR list) {
    Events& events = *reinterpret_cast<Events*>(list);
    if (message == PSM_CHANGED || message == PSM_UNCHANGED) {
        events.emplace_back(message == PSM_CHANGED ? "marked" : "unmarked");
    } else if (message == WM_COMMAND && lParam != 0 && (HIWORD(wParam) == EN_CHANGE || HIWORD(wParam) == BN_CLICKED)) {
        events.push_back(std::to_string(LOWORD(wParam)) + (HIWORD(wParam) == EN_CHANGE ? " changed" : " clicked"));
    }
    return DefSubclassProc(window, message, wParam, lParam);
}
}  // namespace

Events EventsOf(const Sheet& sheet, const std::function<void()>& steps) {
    Events events;
    const HWND windows[] = {sheet.Page(), sheet.Window()};
    for (const HWND window : windows) { SetWindowSubclass(window, Note, 1, reinterpret_cast<DWORD_PTR>(&events)); }
    steps();
    for (const HWND window : windows) { RemoveWindowSubclass(window, Note, 1); }
    return events;
}
