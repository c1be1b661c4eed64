// The Port Numbers dialog on a table of its own.
#include "mausb/PortNumbersDialog.h"

#include "resource.h"
#include "support/form.h"
#include "support/media_values.h"
#include "support/tips.h"

#include <gtest/gtest.h>

namespace
{
constexpr int Edits[] = {IDC_PORT_EDIT_0, IDC_PORT_EDIT_1, IDC_PORT_EDIT_2, IDC_PORT_EDIT_3};
constexpr int Types[] = {IDC_PORT_TYPE_0, IDC_PORT_TYPE_1, IDC_PORT_TYPE_2, IDC_PORT_TYPE_3};
constexpr int Edit = IDC_PORT_EDIT_0;
constexpr int Type = IDC_PORT_TYPE_0;

// What a row shows: its text, its selected item, and whether that can be changed.
struct Row
{
    Text port;
    LRESULT item;
    bool enabled;

    bool operator==(const Row& other) const
    {
        return port == other.port && item == other.item && enabled == other.enabled;
    }
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << Printable(row.port) << ", item " << row.item << (row.enabled ? "" : ", disabled");
}

const Row EmptyRow = {_T(""), 0, false};

Row RowOf(const Form& form, int row)
{
    return {form.TextOf(Edits[row]), form.SelectionOf(Types[row]), form.IsEnabled(Types[row])};
}

std::vector<Row> RowsOf(const Form& form)
{
    return {RowOf(form, 0), RowOf(form, 1), RowOf(form, 2), RowOf(form, 3)};
}

// Runs the dialog on a table; gives the table that it leaves.
Ports RunDialog(const PortTable& table, INT_PTR result, const std::function<void(Form&)>& script)
{
    PortTable edited = table;
    CPortNumbersDialog dialog(_T("Some Ports"), edited, nullptr);
    WhenOpened(_T("Some Ports"),
               [&](Form& form)
               {
                   script(form);
                   form.Click(static_cast<int>(result));
               });
    EXPECT_EQ(dialog.DoModal(), result);
    EndWaits();
    return PortsOf(edited);
}

const Ports FourEmptyRows(4, {0, PacketTypeDefault});
}  // namespace

TEST(PortNumbersTest, TextsAndThePortsTheyGive)
{
    const std::pair<LPCTSTR, UINT> cases[] = {{_T(""), 0},
                                              {_T("0"), 0},
                                              {_T("00000"), 0},
                                              {_T("1"), 1},
                                              {_T("080"), 80},
                                              {_T("80x1"), 80},
                                              {_T("x80"), 0},
                                              {_T(" 80"), 0},
                                              {_T("-80"), 0},
                                              {_T("0x80"), 0},
                                              {_T("65535"), 65535},
                                              {_T("65536"), 0},
                                              {_T("00000000000065535"), 65535},
                                              {_T("4294967297"), 0},
                                              {_T("99999999999999999999999999999999999999"), 0},
                                              {_T("/1:"), 0},
                                              {_T("7:"), 7},
                                              {_T("\x0661"), 0}};
    for (const auto& [text, port] : cases)
    {
        EXPECT_EQ(CPortNumbersDialog::ParsePortText(CString(text)), port) << Printable(text);
    }
}

TEST(PortNumbersTest, ShowsAShortTableAndFillsItUp)
{
    const auto look = [](Form& form)
    {
        EXPECT_EQ(form.Title(), _T("Some Ports"));
        EXPECT_EQ(RowsOf(form), (std::vector<Row>{{_T("9001"), 0, true}, EmptyRow, EmptyRow, EmptyRow}));
        std::map<int, Text> tips;
        for (int row = 0; row < 4; ++row)
        {
            EXPECT_EQ(form.ItemsOf(Types[row]),
                      (std::vector<Text>{_T("Default"), _T("Mgmt/Control"), _T("Interrupt"), _T("Bulk")}));
            tips[Edits[row]] = _T("Enter a TCP port number.");
            tips[Types[row]] =
                _T("Enter the types of packets you will send on this port.\nIf you set it to Default, then ")
                _T("all packets that aren't set by other ports will be set on this port.");
        }
        EXPECT_EQ(TipsOf(form.Window()), tips);
        EXPECT_TRUE(form.IsEnabled(IDOK));
        EXPECT_EQ(LOWORD(SendMessageW(form.Window(), DM_GETDEFID, 0, 0)), IDOK);
    };
    EXPECT_EQ(RunDialog({DefaultPortEntry}, IDCANCEL, look), (Ports{{9001, -1}}));
    EXPECT_EQ(RunDialog({DefaultPortEntry}, IDOK, look), (Ports{{9001, -1}, {0, -1}, {0, -1}, {0, -1}}));
    EXPECT_EQ(RunDialog({}, IDOK, [](Form& form) { EXPECT_EQ(RowsOf(form), std::vector<Row>(4, EmptyRow)); }),
              FourEmptyRows);
}

TEST(PortNumbersTest, TabKeyPassesTheTypesThatAreNotLive)
{
    RunDialog({{80, PacketTypeBulk}}, IDCANCEL,
              [](Form& form) {
                  ExpectTabOrder(
                      form, {Edits[0], Types[0], Edits[1], Edits[2], Edits[3], IDOK, IDCANCEL, Edits[0]});
              });
}

TEST(PortNumbersTest, CutsALongTableOnlyByOk)
{
    const PortTable table = {{5, -1}, {0, 2}, {7, 1}, {8, 2}, {9, 2}, {10, 2}};
    const auto look = [](Form& form)
    {
        EXPECT_EQ(RowsOf(form),
                  (std::vector<Row>{{_T("5"), 0, true}, EmptyRow, {_T("7"), 2, true}, {_T("8"), 3, true}}));
    };
    EXPECT_EQ(RunDialog(table, IDCANCEL, look), (Ports{{5, -1}, {0, 2}, {7, 1}, {8, 2}, {9, 2}, {10, 2}}));
    EXPECT_EQ(RunDialog(table, IDOK, look), (Ports{{5, -1}, {0, -1}, {7, 1}, {8, 2}}));
}

TEST(PortNumbersTest, TypeIsLiveWhileThePortIsUsable)
{
    RunDialog({{80, PacketTypeBulk}}, IDCANCEL,
              [](Form& form)
              {
                  const auto row = [&form] { return RowOf(form, 0); };
                  // At each key one usable port follows another.
                  form.Retype(Edit, _T("6553"));
                  EXPECT_EQ(row(), (Row{_T("6553"), 3, true}));
                  form.Type(Edit, _T("5"));
                  EXPECT_EQ(row(), (Row{_T("65535"), 3, true}));
                  form.Type(Edit, _T("0"));
                  EXPECT_EQ(row(), (Row{_T("655350"), 0, false}));
                  form.Type(Edit, _T("\b"));
                  EXPECT_EQ(row(), (Row{_T("65535"), 0, true}));
                  form.Pick(Type, 2);
                  form.Empty(Edit);
                  EXPECT_EQ(row(), EmptyRow);
                  form.Type(Edit, _T("x-0"));
                  EXPECT_EQ(row(), (Row{_T("0"), 0, false})) << "digits only";
                  form.Type(Edit, _T("0007"));
                  EXPECT_EQ(row(), (Row{_T("00007"), 0, true}));
                  form.Paste(Edit, _T("70x"));
                  EXPECT_EQ(row(), (Row{_T("70x"), 0, true}));
                  EXPECT_EQ(RowOf(form, 1), EmptyRow) << "each row by itself";
              });
}

TEST(PortNumbersTest, OkTakesTheRowsAsTheyStand)
{
    EXPECT_EQ(RunDialog({{80, 2}, {81, 1}, {82, 0}, {83, -1}}, IDOK,
                        [](Form& form)
                        {
                            form.Retype(Edits[0], _T("65536"));
                            form.Pick(Types[1], 1);
                            form.Retype(Edits[2], _T("81"));
                            form.Pick(Types[3], 3);
                        }),
              (Ports{{0, -1}, {81, 0}, {81, 0}, {83, 2}}));
    EXPECT_EQ(RunDialog({{80, 2}, {81, 1}, {82, 0}, {83, -1}}, IDOK,
                        [](Form& form)
                        {
                            for (const int edit : Edits)
                            {
                                form.Empty(edit);
                            }
                        }),
              FourEmptyRows);
}

TEST(PortNumbersTest, StoredPortsThatAreTooHighKeepTheirTypeUntilTyped)
{
    const PortTable table = {{70000, 2}, {4294967295U, 1}, {65536, 0}};
    EXPECT_EQ(RunDialog(table, IDOK,
                        [](Form& form)
                        {
                            EXPECT_EQ(RowsOf(form), (std::vector<Row>{{_T("70000"), 3, true},
                                                                      {_T("4294967295"), 2, true},
                                                                      {_T("65536"), 1, true},
                                                                      EmptyRow}));
                            form.Type(Edits[2], _T("1"));
                            EXPECT_EQ(RowOf(form, 2), (Row{_T("165536"), 0, false}));
                        }),
              (Ports{{0, 2}, {0, 1}, {0, -1}, {0, -1}}));
}

TEST(PortNumbersTest, TypesWithoutAnItemShowNone)
{
    for (const int type : {-3, -2, 3, 4, 0x7FFFFFFF, static_cast<int>(0x80000000)})
    {
        SCOPED_TRACE(type);
        EXPECT_EQ(RunDialog({{80, type}, {81, type}}, IDOK,
                            [](Form& form)
                            {
                                EXPECT_EQ(RowOf(form, 0), (Row{_T("80"), -1, true}));
                                form.Pick(Types[1], 3);
                            }),
                  (Ports{{80, -2}, {81, 2}, {0, -1}, {0, -1}}));
    }
}
