// The two dialogs of MAUSB Media Settings.
#include "mausb/PortNumbersDialog.h"
#include "resource.h"
#include "support/scripts.h"

namespace
{
// The controls of each row of Port Numbers.
constexpr int Edits[] = {IDC_PORT_EDIT_0, IDC_PORT_EDIT_1, IDC_PORT_EDIT_2, IDC_PORT_EDIT_3};
constexpr int Types[] = {IDC_PORT_TYPE_0, IDC_PORT_TYPE_1, IDC_PORT_TYPE_2, IDC_PORT_TYPE_3};
using Row = std::tuple<Text, LRESULT, bool>;  // text, selected type, whether the type is enabled
const Row EmptyRow = {{}, 0, false};

Row RowOf(const Form& form, int row)
{
    return {form.TextOf(Edits[row]), form.SelectionOf(Types[row]), form.IsEnabled(Types[row])};
}

std::vector<Row> RowsOf(const Form& form)
{
    return {RowOf(form, 0), RowOf(form, 1), RowOf(form, 2), RowOf(form, 3)};
}

// Runs the script on the dialog and clicks the button. Returns the table afterwards.
PortTable RunDialog(PortTable table, int button, const std::function<void(const Form&)>& script)
{
    CPortNumbersDialog dialog(_T("Some Ports"), table, nullptr);
    int result = 0;
    const auto open = [&] { result = dialog.DoModal(); };
    WithDialog(_T("Some Ports"), open, [&](const Form& form) {
        script(form);
        form.Click(button);
    });
    EXPECT_EQ(result, button);
    return table;
}

class AdvancedTCPTest : public SettingsTest
{
protected:
    static Values Six(DWORD delay, DWORD sndBuf, DWORD rcvBuf, DWORD noDelay, DWORD defaultSnd,
                      DWORD defaultRcv)
    {
        return {{_T("AdvancedTCP_SocketSendDelay"), Dword(delay)},
                {_T("AdvancedTCP_SO_SNDBUF"), Dword(sndBuf)},
                {_T("AdvancedTCP_SO_RCVBUF"), Dword(rcvBuf)},
                {_T("AdvancedTCP_TCP_NODELAY"), Dword(noDelay)},
                {_T("AdvancedTCP_Default_SO_SNDBUF"), Dword(defaultSnd)},
                {_T("AdvancedTCP_Default_SO_RCVBUF"), Dword(defaultRcv)}};
    }
    static Values StoredSix()
    {
        Values six = StoredTree(keys::Kauri)[keys::Kauri];
        std::erase_if(six, [](const auto& value) { return value.first.find(_T("AdvancedTCP_")) != 0; });
        return six;
    }
    static void ExpectSizes(const Form& form, bool send, bool receive)
    {
        ExpectEnabled(form, {IDC_TCP_SNDBUF, IDC_TCP_SNDBUF_LABEL}, send);
        ExpectEnabled(form, {IDC_TCP_RCVBUF, IDC_TCP_RCVBUF_LABEL}, receive);
    }
};
}  // namespace

TEST(PortNumbersTest, PortIsTheNumberAtTheStartOfAText)
{
    const std::pair<Text, UINT> cases[] = {
        {_T(""), 0},     {_T("00000"), 0}, {_T("1"), 1},   {_T("65535"), 65535},  {_T("65536"), 0},
        {_T("080"), 80}, {_T("80x1"), 80}, {_T("x80"), 0}, {_T(" 80"), 0},        {_T("4294967297"), 0},
        {_T("/1:"), 0},  {_T("7:"), 7},    {_T("9"), 9},   {Text(38, _T('9')), 0}};
    for (const auto& [text, port] : cases)
    {
        EXPECT_EQ(CPortNumbersDialog::ParsePortText(text.c_str()), port) << Printable(text);
    }
}

TEST(PortNumbersTest, ShowsUpToFourRowsAndGivesFour)
{
    const PortTable six = {{5, -1}, {0, 2}, {7, 1}, {8, 2}, {9, 2}, {10, 2}};
    const auto look = [](const Form& form) {
        EXPECT_EQ(RowsOf(form),
                  (std::vector<Row>{{_T("5"), 0, true}, EmptyRow, {_T("7"), 2, true}, {_T("8"), 3, true}}));
        EXPECT_EQ(form.ItemsOf(Types[3]),
                  (std::vector<Text>{_T("Default"), _T("Mgmt/Control"), _T("Interrupt"), _T("Bulk")}));
    };
    EXPECT_EQ(RunDialog(six, IDCANCEL, look).size(), 6U);
    EXPECT_EQ(RunDialog(six, IDOK, look), (PortTable{{5, -1}, {0, -1}, {7, 1}, {8, 2}}));
    EXPECT_EQ(RunDialog({DefaultPortEntry}, IDOK, [](const Form&) {}),
              (PortTable{{9001, -1}, {0, -1}, {0, -1}, {0, -1}}));
}

TEST(PortNumbersTest, TypeIsEnabledWhileThePortIsUsable)
{
    const PortTable left =
        RunDialog({{80, PacketTypeBulk}, {82, 0}, {83, -1}, {84, 1}}, IDOK, [](const Form& form) {
            // Each key makes another number of the text, which is a usable port or not.
            form.Retype(Edits[0], _T("65535"));
            EXPECT_EQ(RowOf(form, 0), (Row{_T("65535"), 3, true}));
            form.Type(Edits[0], _T("0"));
            EXPECT_EQ(RowOf(form, 0), (Row{_T("655350"), 0, false}));
            form.Type(Edits[0], _T("\b"));
            EXPECT_EQ(RowOf(form, 0), (Row{_T("65535"), 0, true}));
            form.Pick(Types[0], 2);
            form.Retype(Edits[1], {});
            form.Type(Edits[1], _T("x-0"));
            EXPECT_EQ(RowOf(form, 1), (Row{_T("0"), 0, false})) << "the edit takes digits only";
            form.SetText(Edits[2], _T("70x"));
            EXPECT_EQ(RowOf(form, 2), (Row{_T("70x"), 0, true}));
            EXPECT_EQ(RowOf(form, 3), (Row{_T("84"), 2, true})) << "no other row changes";
            form.Retype(Edits[3], _T("70"));
        });
    EXPECT_EQ(left, (PortTable{{65535, 1}, {0, -1}, {70, -1}, {70, 1}}));
}

TEST(PortNumbersTest, StrangeEntriesKeepTheirTypeUntilTheirTextChanges)
{
    EXPECT_EQ(RunDialog({{70000, 2}, {4294967295U, 1}, {65536, 0}}, IDOK,
                        [](const Form& form) {
                            EXPECT_EQ(RowsOf(form), (std::vector<Row>{{_T("70000"), 3, true},
                                                                      {_T("4294967295"), 2, true},
                                                                      {_T("65536"), 1, true},
                                                                      EmptyRow}));
                            form.Type(Edits[2], _T("1"));
                        }),
              (PortTable{{0, 2}, {0, 1}, {0, -1}, {0, -1}}));
    for (const int type : {-3, -2, 3, 0x7FFFFFFF, static_cast<int>(0x80000000)})
    {
        EXPECT_EQ(RunDialog({{80, type}, {81, type}}, IDOK,
                            [](const Form& form) {
                                EXPECT_EQ(RowOf(form, 0), (Row{_T("80"), -1, true})) << "no such item";
                                form.Pick(Types[1], 3);
                            }),
                  (PortTable{{80, -2}, {81, 2}, {0, -1}, {0, -1}}));
    }
}

TEST_F(AdvancedTCPTest, OnlyOkChangesTheRecordAndMarksThePage)
{
    // A size of 0 that is used, and flags that no check box can hold. Only OK stores the shown flags instead.
    StoreTree({{keys::Kauri, Six(1, 0, 0x80000000, 5, 0, 3)}});
    const Editor sheet(tabs::Media);
    sheet.Apply();
    EXPECT_EQ(StoredSix(), Six(1, 0, 0x80000000, 5, 0, 3));
    WithDialog(titles::AdvancedTCP, sheet, IDC_ADVANCED_TCP, [&sheet](const Form& form) {
        const RECT place = PlaceOf(form.Window());
        const RECT owner = PlaceOf(sheet.Window());
        EXPECT_NEAR(place.left + place.right, owner.left + owner.right, 1) << "must be centred";
        EXPECT_EQ(form.TextOf(IDC_TCP_SEND_DELAY), _T("1"));
        EXPECT_EQ(form.CheckOf(IDC_TCP_NODELAY), BST_CHECKED);
        EXPECT_EQ(form.TextOf(IDC_TCP_RCVBUF), _T("-2147483648"));
        ExpectSizes(form, true, true);
        form.Retype(IDC_TCP_SEND_DELAY, _T("5"));
    });
    EXPECT_FALSE(sheet.CanApply()) << "cancelled";
    WithDialog(titles::AdvancedTCP, sheet, IDC_ADVANCED_TCP, [](const Form& form) {
        EXPECT_EQ(form.TextOf(IDC_TCP_SEND_DELAY), _T("1"));
        for (const TCHAR* number : {_T("-1"), _T("4294967296")})
        {
            form.SetText(IDC_TCP_SEND_DELAY, number);
            EXPECT_EQ(CountPrompts([&] { form.Click(IDOK); }), 1);
        }
        form.Retype(IDC_TCP_SEND_DELAY, _T("x-4294967295"));
        form.Retype(IDC_TCP_SNDBUF, _T("2147483647"));
        form.Retype(IDC_TCP_RCVBUF, _T("8192"));
        form.Click(IDC_TCP_USE_DEFAULT_SNDBUF);
        ExpectSizes(form, false, true);
        form.Click(IDC_TCP_USE_DEFAULT_RCVBUF);
        ExpectSizes(form, false, false);
        form.Click(IDC_TCP_USE_DEFAULT_SNDBUF);
        ExpectSizes(form, true, false);
        form.Click(IDOK);
    });
    EXPECT_TRUE(sheet.CanApply());
    WithDialog(titles::AdvancedTCP, sheet, IDC_ADVANCED_TCP, [](const Form& form) {
        EXPECT_EQ(form.TextOf(IDC_TCP_RCVBUF), _T("8192")) << "a size that is not used is kept";
    });
    sheet.Ok();
    EXPECT_EQ(StoredSix(), Six(0xFFFFFFFF, 0x7FFFFFFF, 8192, 1, 0, 1));
}

TEST_F(AdvancedTCPTest, OkWithAnEmptyNumberKeepsTheDialogOpenAndStoresTheControlsBeforeIt)
{
    StoreTree({{keys::Kauri, Six(1, 2, 3, 0, 0, 0)}});
    const Editor sheet(tabs::Media);
    sheet.Apply();
    WithDialog(titles::AdvancedTCP, sheet, IDC_ADVANCED_TCP, [](const Form& form) {
        form.Retype(IDC_TCP_SEND_DELAY, _T("7"));
        form.Retype(IDC_TCP_RCVBUF, _T("9"));
        form.Click(IDC_TCP_NODELAY);
        form.Retype(IDC_TCP_SNDBUF, {});
        EXPECT_EQ(CountPrompts([&] { form.Click(IDC_TCP_USE_DEFAULT_RCVBUF); }), 1);
        ExpectSizes(form, true, true);
        EXPECT_EQ(CountPrompts([&] { form.Click(IDOK); }), 1);
        EXPECT_TRUE(IsWindowVisible(form.Window()));
        EXPECT_EQ(GetFocus(), form.Control(IDC_TCP_SNDBUF));
    });
    EXPECT_FALSE(sheet.CanApply());
    sheet.Ok();
    EXPECT_EQ(StoredSix(), Six(7, 2, 3, 0, 0, 0));
}
