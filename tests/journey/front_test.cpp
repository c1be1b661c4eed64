// A second start of the real program while something stands over the sheet, which takes no keys then.
#include "driver/editor.h"
#include "resource.h"
#include "support/registry.h"

namespace
{
void PressEscape()
{
    keybd_event(VK_ESCAPE, 0, 0, 0);
    keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
}

using FrontJourney = SettingsTest;
}  // namespace

TEST_F(FrontJourney, SecondStartComesToTheDialogThatStandsOpen)
{
    const EditorProcess first;
    const Sheet sheet = first.WaitForSheet();
    for (const auto& [page, button] : {std::pair{6, IDC_ADVANCED_TCP}, {1, IDC_EHCI_BROWSE}})
    {
        SCOPED_TRACE(button);
        ASSERT_TRUE(sheet.SelectIndex(page));
        sheet.ClickToOpen(button);
        HWND top = first.WaitForWindowBeside(sheet.Window());
        if (button == IDC_ADVANCED_TCP)
        {
            // A prompt over the dialog.
            Form(top).SetText(IDC_TCP_SNDBUF, L"");
            Form(top).ClickToOpen(IDOK);
            top = first.WaitForWindow(L"QBSettings");
        }
        const HWND cover = CreateWindowExW(0, L"STATIC", L"Cover", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                           900, 700, nullptr, nullptr, nullptr, nullptr);
        SetForegroundWindow(cover);
        ASSERT_EQ(GetForegroundWindow(), cover);
        EXPECT_TRUE(EditorProcess().WaitForEnd());
        EXPECT_TRUE(WaitUntil([top] { return GetForegroundWindow() == top; }));
        PressEscape();
        EXPECT_TRUE(WaitUntil([top] { return !IsWindow(top); }));
        PressEscape();
        EXPECT_TRUE(button != IDC_ADVANCED_TCP || WaitUntil([&] { return IsWindowEnabled(sheet.Window()); }));
        DestroyWindow(cover);
    }
}
