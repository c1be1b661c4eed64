// What pages and dialogs say in tooltips, and the order of their controls for the Tab key and for the
// exchange.
#include "support/scripts.h"

#include <afxwin.h>
#include <commctrl.h>

namespace {
using Ids = std::vector<int>;

// The controls with a tip, in the order in which they get it.
const std::map<Text, Ids> TipOrders = {
    {tabs::General, {1006, 1053, 1127}},
    {tabs::Drivers, {1032, 1036, 1045, 1200}},
    {tabs::Chapter9, {1182, 1183}},
    {tabs::Waivers, {}},
    {tabs::Xhci, {}},
    {tabs::Identity, {1138, 1150, 1149, 1124, 1123, 1132, 1133, 1134}},
    {tabs::Media, {1190, 1191}},
    {tabs::Protocol,
     {1099, 1100, 1177, 1087, 1088, 1089, 1090, 1091, 1092, 1094, 1095, 1093, 1178, 1106, 1107, 1108, 1111, 1112,
      1179}},
    {tabs::HostUnderTest, {1160, 1164, 1168, 1162, 1166, 1181}},
    {titles::AdvancedTCP, {1061, 1146, 1142, 1147, 1144, 1145}},
    {titles::ClientPorts, {1188, 1191, 1194, 1197, 1189, 1192, 1195, 1198}},
};

// The controls that an exchange asks for what they hold.
const std::map<Text, Ids> ExchangeOrders = {
    {tabs::General, {1006, 1053, 1127}},
    {tabs::Drivers, {1032, 1034, 1036, 1038, 1045, 1053, 1200, 1202, 1048, 1051}},
    {tabs::Chapter9, {1182, 1183}},
    {tabs::Waivers, {1031, 1024}},
    {tabs::Xhci, {1002, 1000, 1003, 1004, 1005, 1008, 1009, 1012, 1013, 1020, 1021, 1022, 1023}},
    {tabs::Identity, {1138, 1133, 1134, 1149, 1150}},
    {tabs::Media, {1055, 1057, 1066, 1067, 1072, 1073, 1065, 1078, 1115, 1117, 1119, 1120, 1123, 1157, 1152, 1154}},
    {tabs::Protocol, {1099, 1100, 1087, 1088, 1089, 1090, 1091, 1092, 1094, 1095, 1093, 1106, 1107, 1108, 1111, 1112}},
    {tabs::HostUnderTest, {1160, 1164, 1168, 1162, 1166, 1181}},
    {titles::AdvancedTCP, {1061, 1142, 1144, 1145, 1146, 1147}},
    {titles::ClientPorts, {}},
};

Ids asked;

LRESULT CALLBACK NoteQuestions(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_GETTEXT || message == BM_GETCHECK || message == LB_GETCURSEL || message == CB_GETCURSEL) {
        asked.push_back(GetDlgCtrlID(control));
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

Ids AskedInExchange(const Form& form) {
    asked.clear();
    const std::vector<HWND> controls = ControlsOf(form.Page());
    for (const HWND control : controls) { SetWindowSubclass(control, NoteQuestions, 0, 0); }
    CWnd::FromHandlePermanent(form.Page())->UpdateData(TRUE);
    for (const HWND control : controls) { RemoveWindowSubclass(control, NoteQuestions, 0); }
    return asked;
}

int helpCommands;

LRESULT CALLBACK CountHelp(int code, WPARAM wParam, LPARAM lParam) {
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    helpCommands += message->message == WM_COMMAND && message->wParam == ID_HELP ? 1 : 0;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

using PagesTest = SettingsTest;
}  // namespace

TEST_F(PagesTest, TipsAreOnTheirControls) {
    unsigned sum = 0;
    ForEachForm([&sum](const Form& form, const Text& name) {
        EXPECT_EQ(TipsOf(form.Page()), TipOrders.at(name));
        for (const int id : TipOrders.at(name)) {
            for (const TCHAR character : TipText(form.Page(), id)) { sum = sum * 31 + character; }
        }
    });
    EXPECT_EQ(sum, 4058785876U) << "the words of a tip have changed: if they are meant to, this is their new sum";
}

// F1 as the system tells of it: taken by the application, which has no help, and by nobody in a message box.
TEST_F(PagesTest, HelpKeyIsTheApplicationsCommandAndDoesNoHarm) {
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, CountHelp, nullptr, GetCurrentThreadId());
    const auto press = [](HWND window) {
        helpCommands = 0;
        HELPINFO info = {sizeof(info), HELPINFO_WINDOW, 0, window, 0, {}};
        SendMessageW(window, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
        EXPECT_GE(helpCommands, 1);
    };
    ForEachForm([&press](const Form& form, const Text& name) {
        press(GetWindow(form.Page(), GW_CHILD));
        press(form.Window());
        if (name == tabs::General) {
            WithDialog(
                _T("Box"), [&form] { MessageBoxW(form.Window(), _T("text"), _T("Box"), MB_OKCANCEL); },
                [&press](const Form& box) { press(box.Control(IDOK)); });
        }
    });
    UnhookWindowsHookEx(hook);
}

TEST_F(PagesTest, ExchangeAsksControlsInItsOrder) {
    ForEachForm([](const Form& form, const Text& name) { EXPECT_EQ(AskedInExchange(form), ExchangeOrders.at(name)); });
}

TEST_F(PagesTest, DialogsComeUpOverTheirOwnerWithTheFocusOnTheirFirstControl) {
    ForEachForm([](const Form& form, const Text& name) {
        if (form.Window() == form.Page()) {
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), name == titles::AdvancedTCP ? 1061 : 1188);
            const HWND owner = GetWindow(form.Window(), GW_OWNER);
            EXPECT_FALSE(IsWindowEnabled(owner));
            RECT inner = {};
            RECT outer = {};
            GetWindowRect(form.Window(), &inner);
            GetWindowRect(owner, &outer);
            EXPECT_NEAR(inner.left + inner.right, outer.left + outer.right, 2);
            EXPECT_NEAR(inner.top + inner.bottom, outer.top + outer.bottom, 2);
            EXPECT_EQ(LOWORD(SendMessageW(form.Window(), DM_GETDEFID, 0, 0)), IDOK);
        }
    });
}
