// What pages and dialogs say to a screen reader and in tooltips, and the order of their controls for the Tab key and
// for the exchange.
#include "framework/ControlNames.h"
#include "support/scripts.h"

#include <afxwin.h>
#include <commctrl.h>

namespace {
using Ids = std::vector<int>;

struct Expected {
    std::string names;  // of the controls that can take the focus, in their order, each behind a bar
    Ids tips;           // the controls with a tip, in the order in which they get it
    Ids exchanged;      // those that an exchange asks for what they hold, in its order
};

const std::map<Text, Expected> Forms = {
    {tabs::General,
     {"|Certification Mode|Log Output Level|Minimum Display Update Time", {1006, 1053, 1127}, {1006, 1053, 1127}}},
    {tabs::Drivers,
     {"|Enable StackSwitcher|Driver|Browse...|Enable StackSwitcher|Driver|Browse...|Enable StackSwitcher|Driver"
      "|Browse...|Enable StackSwitcher|Driver|Browse...|Location|Browse...|Driver|Browse...",
      {1032, 1036, 1045, 1200},
      {1032, 1034, 1036, 1038, 1045, 1053, 1200, 1202, 1048, 1051}}},
    {tabs::Chapter9,
     {"|Skip BOS Descriptor Test On Legacy Devices|Skip BOS Descriptor Test On Legacy Devices",
      {1182, 1183},
      {1182, 1183}}},
    {tabs::Waivers, {"|Port Number Waiver|BT Remote Wake Waiver", {}, {1031, 1024}}},
    {tabs::Xhci,
     {"|IMOD Interval|Prompt During Device Connect|xHCI Interrupt Loopback Starting MaxPacketSize"
      "|xHCI Interrupt Loopback Starting Burst Size|xHCI Isoch Loopback Starting Burst Size"
      "|Interrupt Loopback Skip Scatter-Gather|Interrupt Loopback Skip Contiguous Buffer|Interrupt LB Skip IOC"
      "|Interrupt LB Skip Event Data|xHCI Isoch Loopback Skip Read Loop|xHCI Isoch Loopback Skip Write Loopback"
      "|xHCI Isoch Delay HS Read|Stop Test On Error",
      {},
      {1002, 1000, 1003, 1004, 1005, 1008, 1009, 1012, 1013, 1020, 1021, 1022, 1023}}},
    {tabs::Identity,
     {"|MAUSB Protocol Version|BYTE|DWORD|New ID|Refuse Sleep Requests|Link Sleep Capability",
      {1138, 1150, 1149, 1124, 1123, 1132, 1133, 1134},
      {1138, 1133, 1134, 1149, 1150}}},
    {tabs::Media,
     {"|TCP/IP|UDP/IP|Network Level Logging|Max bytes to log|Max MAUSB Packet Size|Advanced TCP Settings"
      "|Default Host IP Address|Default Host IP Address|Default Port Number|Max MAUSB Packet Size"
      "|Default MAC Address|OUI|PID|Max MAUSB Packet Size|Client Port Numbers|Server Port Numbers",
      {1190, 1191},
      {1055, 1057, 1066, 1067, 1072, 1073, 1065, 1078, 1115, 1117, 1119, 1120, 1123, 1157, 1152, 1154}}},
    {tabs::Protocol,
     {"|aManagementResponseTime|aTransferResponseTime|aDataChannelDelay, TCP/IP|aManagementChannelDelay, TCP/IP"
      "|aMaxIsochLinkDelay, TCP/IP|aDataChannelDelay, UDP/IP|aManagementChannelDelay, UDP/IP"
      "|aMaxIsochLinkDelay, UDP/IP|aDataChannelDelay, SNAP|aManagementChannelDelay, SNAP|aMaxIsochLinkDelay, SNAP"
      "|aBulkTransferRetries|aControlTransferRetries|aInterruptTransferRetries|aManagementRetries"
      "|aTransferSetupRetries|Set to Default|Set to Suggested|Set to Minimum",
      {1099, 1100, 1177, 1087, 1088, 1089, 1090, 1091, 1092, 1094, 1095, 1093, 1178, 1106, 1107, 1108, 1111, 1112,
       1179},
      {1099, 1100, 1087, 1088, 1089, 1090, 1091, 1092, 1094, 1095, 1093, 1106, 1107, 1108, 1111, 1112}}},
    {tabs::HostUnderTest,
     {"|aBulkTransferRetries|aControlTransferRetries|aInterruptTransferRetries|aManagementRetries"
      "|aTransferSetupRetries|Sends GetPortBWReq Packets",
      {1160, 1164, 1168, 1162, 1166, 1181},
      {1160, 1164, 1168, 1162, 1166, 1181}}},
    {titles::ClientPorts,
     {"|Port Number|Packet Type|Port Number|Packet Type|Port Number|Packet Type|Port Number|Packet Type|OK|Cancel",
      {1188, 1191, 1194, 1197, 1189, 1192, 1195, 1198},
      {}}},
    {titles::AdvancedTCP,
     {"|Send Delay (in ms)|Use Default SO_SNDBUF|SO_SNDBUF|Use Default SO_RCVBUF|SO_RCVBUF|TCP_NODELAY|OK|Cancel",
      {1061, 1146, 1142, 1147, 1144, 1145},
      {1061, 1142, 1144, 1145, 1146, 1147}}},
};

std::map<HWND, Text> givenNames;

HRESULT STDMETHODCALLTYPE KeepName(IAccPropServices*, HWND window, DWORD, DWORD, MSAAPROPID, LPCWSTR name) {
    givenNames[window] = name;
    return S_OK;
}

// A given name, its own text, or the label directly before it.
Text NameSaid(HWND window) {
    if (givenNames.count(window) != 0) { return givenNames[window]; }
    const HWND label = IsOf(window, _T("Button")) ? window : GetWindow(window, GW_HWNDPREV);
    EXPECT_TRUE(label == window || IsOf(label, _T("Static")));
    return Form(label).Title();
}

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

TEST_F(PagesTest, EveryControlHasItsNameAndStandsInReadingOrder) {
    CoInitialize(nullptr);
    IAccPropServices* service = nullptr;
    CoCreateInstance(AccPropServicesClass, nullptr, CLSCTX_INPROC_SERVER, AccPropServicesInterface,
                     reinterpret_cast<void**>(&service));
    // Wine 8 has the service, but it takes no names; ours keeps them.
    void** setHwndPropStr = *reinterpret_cast<void***>(service) + 7;
    DWORD protection = 0;
    VirtualProtect(setHwndPropStr, sizeof(void*), PAGE_READWRITE, &protection);
    void* before = std::exchange(*setHwndPropStr, reinterpret_cast<void*>(KeepName));
    ForEachForm([](const Form& form, const Text& name) {
        std::string names;
        std::vector<RECT> passed;
        for (const HWND window : ControlsOf(form.Page())) {
            const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
            const bool isGroup = IsOf(window, _T("Button")) && (style & BS_TYPEMASK) == BS_GROUPBOX;
            const int id = GetDlgCtrlID(window);
            // The Container ID is shown by an edit that is never enabled.
            if ((style & WS_VISIBLE) == 0 || isGroup || IsOf(window, _T("Static")) || id == 1130) { continue; }
            names += '|' + Printable(NameSaid(window));
            // What comes before it lies above or to the left; but the buttons of the two port tables come last.
            RECT place = {};
            GetWindowRect(window, &place);
            for (const RECT& earlier : passed) {
                EXPECT_TRUE(earlier.bottom <= place.top || earlier.right <= place.left ||
                            (name == tabs::Media && id >= 1190))
                    << names;
            }
            passed.push_back(place);
        }
        EXPECT_EQ(names, Forms.at(name).names);
    });
    *setHwndPropStr = before;
    service->Release();
    CoUninitialize();
    givenNames.clear();
}

TEST_F(PagesTest, TipsAndTheExchangeHaveTheirControlsInOrder) {
    unsigned sum = 0;
    ForEachForm([&sum](const Form& form, const Text& name) {
        EXPECT_EQ(AskedInExchange(form), Forms.at(name).exchanged);
        EXPECT_EQ(TipsOf(form.Page()), Forms.at(name).tips);
        for (const int id : Forms.at(name).tips) {
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
