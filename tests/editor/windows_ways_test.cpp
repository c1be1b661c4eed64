// The editor where Windows does more than is seen elsewhere: radio buttons that check themselves on getting
// the focus, F1, and the styles that templates must not leave to a compiler.
#include "resource.h"
#include "support/form.h"
#include "support/registry.h"

#include <afxwin.h>

#include <utility>

namespace {
WNDCLASSW systemButton;

LONG StyleOf(HWND window) { return GetWindowLongW(window, GWL_STYLE); }

// As Windows' buttons: a program that checks one touches no other, and an unchecked radio button that gets
// the focus otherwise than by a click clicks itself. That the tab stop follows is documented nowhere.
LRESULT CALLBACK WindowsButton(HWND button, UINT message, WPARAM wParam, LPARAM lParam) {
    static bool clicking = false;
    const LONG style = StyleOf(button);
    const bool isRadio = (style & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
    const bool outer = std::exchange(clicking, clicking || message == BM_CLICK);
    if (isRadio && message == BM_SETCHECK && !clicking) {
        SetWindowLongW(button, GWL_STYLE, (style & ~BS_TYPEMASK) | BS_RADIOBUTTON);
    }
    const LRESULT result = CallWindowProcW(systemButton.lpfnWndProc, button, message, wParam, lParam);
    clicking = outer;
    if (isRadio && message == BM_SETCHECK) {
        SetWindowLongW(button, GWL_STYLE, style);
    }
    if (isRadio && message == WM_SETFOCUS && !clicking && SendMessageW(button, BM_GETCHECK, 0, 0) == BST_UNCHECKED) {
        SendMessageW(button, BM_CLICK, 0, 0);
    }
    return result;
}

struct RadioGroup {
    Text tab;
    LPCTSTR name;
    int buttons[2];
    StoredValue stored[2];
};

void ExpectChecked(const Sheet& sheet, const RadioGroup& group, int position) {
    for (const int at : {0, 1}) {
        const HWND button = sheet.Control(group.buttons[at]);
        EXPECT_EQ(SendMessageW(button, BM_GETCHECK, 0, 0), at == position ? BST_CHECKED : BST_UNCHECKED);
        EXPECT_EQ((StyleOf(button) & WS_TABSTOP) != 0, at == position);
    }
}

int helpCommands;

LRESULT CALLBACK CountHelp(int code, WPARAM wParam, LPARAM lParam) {
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    helpCommands += message->message == WM_COMMAND && message->wParam == ID_HELP ? 1 : 0;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// F1 as the system tells of it.
void PressHelp(HWND focus) {
    helpCommands = 0;
    HELPINFO info = {sizeof(info), HELPINFO_WINDOW, 0, focus, 0, {}};
    SendMessageW(focus, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_GE(helpCommands, 1);
}

// What a control of this class has in every template, apart from what is one control's own.
DWORD ExpectedStyle(WORD className, DWORD style) {
    const DWORD kind = style & BS_TYPEMASK;
    const DWORD group = style & WS_GROUP;
    // Of radio buttons the first of the group is the tab stop until one is checked.
    const bool isStop = kind != BS_GROUPBOX && (kind != BS_AUTORADIOBUTTON || group != 0);
    // From the number of the class of buttons on; the last is that of combo boxes.
    const DWORD expected[] = {kind | group | (isStop ? WS_TABSTOP : 0),
                              ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP,
                              SS_LEFT | WS_GROUP,
                              LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_BORDER | WS_TABSTOP,
                              0,
                              CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP};
    return WS_CHILD | (style & (WS_VISIBLE | WS_DISABLED | ES_NUMBER)) | expected[className - 0x80];
}

using WindowsWaysOfEditorTest = SettingsTest;
}  // namespace

TEST_F(WindowsWaysOfEditorTest, TabGoesThroughThePageWithoutChangingARadioGroup) {
    // A program's own class goes before the system's of the same name.
    GetClassInfoW(nullptr, _T("Button"), &systemButton);
    WNDCLASSW ours = systemButton;
    ours.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
    ours.lpfnWndProc = WindowsButton;
    ours.hInstance = GetModuleHandleW(nullptr);
    ours.lpszClassName = _T("Button");
    ASSERT_NE(RegisterClassW(&ours), 0);
    InstallTools({KauriQB});
    for (const RadioGroup& group :
         {RadioGroup{tabs::Identity, _T("IsochPayloadAlignment"), {1123, 1124}, {Dword(1), Dword(4)}},
          RadioGroup{tabs::Media, _T("NetworkType"), {1066, 1067}, {Sz(_T("TCP/IP")), Sz(_T("UDP/IP"))}}}) {
        for (const int checked : {0, 1}) {
            SCOPED_TRACE(Printable(group.name) + std::to_string(checked));
            Store(keys::Kauri, group.name, group.stored[checked]);
            RunOnTab(group.tab, [&](Sheet& sheet) {
                ExpectChecked(sheet, group, checked);
                const bool marked = sheet.CanApply();
                for (int steps = 0; steps < 30; ++steps) {
                    SetFocus(GetNextDlgTabItem(sheet.Page(), GetFocus(), FALSE));
                }
                EXPECT_EQ(sheet.CanApply(), marked);
                for (const int clicked : {1 - checked, checked}) {
                    sheet.Click(group.buttons[clicked]);
                    ExpectChecked(sheet, group, clicked);
                }
                sheet.Ok();
            });
            EXPECT_EQ(Stored(keys::Kauri, group.name), group.stored[checked]);
        }
    }
    UnregisterClassW(_T("Button"), GetModuleHandleW(nullptr));
}

TEST_F(WindowsWaysOfEditorTest, HelpKeyIsTheApplicationsCommandAndDoesNoHarm) {
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, CountHelp, nullptr, GetCurrentThreadId());
    InstallTools(AllTools);
    RunEditor([](Sheet& sheet) {
        for (const Text& tab : sheet.Tabs()) {
            SCOPED_TRACE(Printable(tab));
            sheet.Select(tab);
            PressHelp(GetWindow(sheet.Page(), GW_CHILD));
        }
        PressHelp(sheet.Window());
        sheet.Select(tabs::Media);
        WithDialog(
            titles::ClientPorts, [](const Form& form) { PressHelp(form.Control(1188)); },
            [&sheet] { sheet.Click(1190); });
        WithDialog(
            titles::AdvancedTCP, [](const Form& form) { PressHelp(form.Control(1061)); },
            [&sheet] { sheet.Click(1139); });
        WithDialog(
            _T("Box"), [](const Form& box) { PressHelp(box.Control(IDOK)); },
            [&sheet] { MessageBoxW(sheet.Window(), _T("text"), _T("Box"), MB_OKCANCEL); });
    });
    UnhookWindowsHookEx(hook);
}

TEST_F(WindowsWaysOfEditorTest, StylesInTemplatesAreThoseOfTheKindOfControl) {
    for (const int id : {102, 104, 130, 131, 132, 133, 135, 136, 137, 140, 143}) {
        const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_DIALOG);
        const auto* words = static_cast<const WORD*>(LockResource(LoadResource(nullptr, resource)));
        const WORD* next = words + 13;
        // A text, or a number behind a mark.
        const auto skipName = [&next] {
            next += *next == 0xFFFF ? 2 : std::char_traits<WORD>::find(next, 999, 0) - next + 1;
        };
        skipName();
        skipName();
        skipName();
        next += 3;  // the font, which has a name as well
        skipName();
        for (int control = 0; control < words[8]; ++control) {
            next = words + (next - words + 1) / 2 * 2;
            const DWORD style = MAKELONG(next[4], next[5]);
            EXPECT_EQ(style, ExpectedStyle(next[13], style)) << id << ", control " << next[10];
            next += 14;
            skipName();
            EXPECT_EQ(*next++, 0);  // no data of its own
        }
    }
}
