// What pages and dialogs say in tooltips, and the order of their controls for the Tab key and for the
// exchange.
#include "support/settings.h"
#include "support/tips.h"

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

// From the first control on; what is disabled at first is passed.
const std::map<Text, Ids> TabOrders = {
    {tabs::General, {1006, 1053, 1127}},
    {tabs::Drivers, {1032, 1034, 1035, 1036, 1038, 1039, 1045, 1053, 1054, 1200, 1202, 1203, 1048, 1049, 1051, 1052}},
    {tabs::Chapter9, {1182, 1183}},
    {tabs::Waivers, {1024, 1031}},
    {tabs::Xhci, {1002, 1000, 1003, 1004, 1005, 1020, 1021, 1022, 1023, 1008, 1009, 1012, 1013}},
    {tabs::Identity, {1138, 1123, 1132, 1133, 1134}},
    {tabs::Media, {1066, 1055, 1119, 1139, 1057, 1072, 1115, 1117, 1123, 1190, 1191}},
    {tabs::Protocol,
     {1099, 1100, 1087, 1088, 1089, 1090, 1091, 1092, 1094, 1095, 1093, 1106, 1107, 1108, 1111, 1112, 1177, 1178,
      1179}},
    {tabs::HostUnderTest, {1160, 1164, 1168, 1162, 1166, 1181}},
    {titles::AdvancedTCP, {1061, 1146, 1147, 1145, IDOK, IDCANCEL}},
    {titles::ClientPorts, {1188, 1189, 1191, 1194, 1197, IDOK, IDCANCEL}},
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
    for (HWND control = GetWindow(form.Page(), GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        SetWindowSubclass(control, NoteQuestions, 0, 0);
    }
    CWnd::FromHandlePermanent(form.Page())->UpdateData(TRUE);
    for (HWND control = GetWindow(form.Page(), GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        RemoveWindowSubclass(control, NoteQuestions, 0);
    }
    return asked;
}

class PagesTest : public SettingsTest {
protected:
    // Runs the check on all pages and dialogs, each under its name.
    static void OnEach(const std::function<void(const Form&, const Text& name)>& check) {
        InstallTools(AllTools);
        RunEditor([&check](const Sheet& sheet) {
            for (const Text& tab : AllTabs) {
                SCOPED_TRACE(Printable(tab));
                ASSERT_TRUE(sheet.Select(tab));
                check(sheet, tab);
            }
            sheet.Select(tabs::Media);
            for (const auto& [button, title] : {std::pair{1139, titles::AdvancedTCP}, {1190, titles::ClientPorts}}) {
                WithDialog(
                    title, [&check, &name = title](const Form& dialog) { check(dialog, name); },
                    [&sheet, id = button] { sheet.Click(id); });
            }
        });
    }
};
}  // namespace

// Of controls that differ in a word only, that word.
TEST_F(PagesTest, TipsAreOnTheirControls) {
    const std::map<int, LPCTSTR> words = {{1032, _T("EHCI")},           {1036, _T("xHCI")},
                                          {1045, _T("USB4")},           {1200, _T("RVSK")},
                                          {1123, _T("byte-aligned")},   {1124, _T("DWORD-aligned")},
                                          {1133, _T("SleepReq")},       {1134, _T("Link Sleep")},
                                          {1099, _T("See Table 70")},   {1091, _T("Tables 70 and 73")},
                                          {1112, _T("Table 71")},       {1177, _T("to values")},
                                          {1178, _T("suggested")},      {1179, _T("minimum")},
                                          {1160, _T("bulk")},           {1164, _T("control")},
                                          {1168, _T("interrupt")},      {1162, _T("management packet")},
                                          {1166, _T("setup")},          {1142, _T("send buffer")},
                                          {1144, _T("receive buffer")}, {1146, _T("SNDBUF")},
                                          {1147, _T("RCVBUF")}};
    OnEach([&words](const Form& form, const Text& name) {
        EXPECT_EQ(TipsOf(form.Page()), TipOrders.at(name));
        for (const int id : TipOrders.at(name)) {
            const Text text = TipText(form.Page(), id);
            EXPECT_GE(text.size(), 24U);
            EXPECT_TRUE(!words.contains(id) || text.find(words.at(id)) != Text::npos) << id << Printable(text);
        }
    });
}

TEST_F(PagesTest, TabGoesThroughControlsInTheirOrder) {
    OnEach([](const Form& form, const Text& name) {
        const Ids& order = TabOrders.at(name);
        EXPECT_EQ(TabOrder(form, order.front()), order);
    });
}

TEST_F(PagesTest, ExchangeAsksControlsInItsOrder) {
    OnEach([](const Form& form, const Text& name) { EXPECT_EQ(AskedInExchange(form), ExchangeOrders.at(name)); });
}

TEST_F(PagesTest, DialogsComeUpOverTheirOwnerWithTheFocusOnTheirFirstControl) {
    OnEach([](const Form& form, const Text& name) {
        if (form.Window() == form.Page()) {
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), TabOrders.at(name).front());
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
