// The Advanced TCP Settings dialog, from its page to the registry.
#include "resource.h"
#include "support/media_values.h"
#include "support/tips.h"
#include "support/tool_page.h"

namespace
{
class AdvancedTCPTest : public ToolPageTest
{
protected:
    // Opens the dialog from its button, and cancels it if the script leaves it open.
    static void Open(const Sheet& sheet, const std::function<void(Form&)>& script)
    {
        WhenOpened(titles::AdvancedTCP, script);
        sheet.Click(IDC_ADVANCED_TCP);
        EndWaits();
    }

    static void ExpectSizes(const Form& form, bool send, bool receive)
    {
        EXPECT_EQ(form.IsEnabled(IDC_TCP_SNDBUF), send);
        EXPECT_EQ(form.IsEnabled(IDC_TCP_SNDBUF_LABEL), send);
        EXPECT_EQ(form.IsEnabled(IDC_TCP_RCVBUF), receive);
        EXPECT_EQ(form.IsEnabled(IDC_TCP_RCVBUF_LABEL), receive);
    }

    static Values StoredSix()
    {
        Values six = StoredValues(keys::Kauri);
        std::erase_if(six, [](const auto& value) { return value.first.find(_T("AdvancedTCP_")) != 0; });
        return six;
    }
};
}  // namespace

TEST_F(AdvancedTCPTest, ShowsDefaultsAndMarksByOkAlone)
{
    RunOnTab(
        tabs::Media,
        [](Sheet& sheet)
        {
            sheet.Apply();
            Open(
                sheet,
                [](Form& form)
                {
                    EXPECT_EQ(form.TextOf(IDC_TCP_SEND_DELAY), _T("0"));
                    EXPECT_EQ(form.TextOf(IDC_TCP_SNDBUF), _T("0"));
                    EXPECT_EQ(form.TextOf(IDC_TCP_RCVBUF), _T("0"));
                    EXPECT_EQ(form.CheckOf(IDC_TCP_USE_DEFAULT_SNDBUF), BST_CHECKED);
                    EXPECT_EQ(form.CheckOf(IDC_TCP_USE_DEFAULT_RCVBUF), BST_CHECKED);
                    EXPECT_EQ(form.CheckOf(IDC_TCP_NODELAY), BST_UNCHECKED);
                    EXPECT_EQ(LOWORD(SendMessageW(form.Window(), DM_GETDEFID, 0, 0)), IDOK);
                    ExpectSizes(form, false, false);
                    const Text sizeTip =
                        _T(" buffer. If this is an invalid value, then the Dock will use ")
                        _T("the default value.");
                    EXPECT_EQ(
                        TipsOf(form.Window()),
                        (std::map<int, Text>{
                            {IDC_TCP_SEND_DELAY,
                             _T("The amount of time the Dock will wait before sending an MAUSB packet.")},
                            {IDC_TCP_USE_DEFAULT_SNDBUF,
                             _T("If checked, the Dock will ignore the value in the SO_SNDBUF field and use ")
                             _T("the default value.")},
                            {IDC_TCP_SNDBUF, _T("The size of the Socket send") + sizeTip},
                            {IDC_TCP_USE_DEFAULT_RCVBUF,
                             _T("If checked, the Dock will ignore the value in the SO_RCVBUF field and use ")
                             _T("the default value.")},
                            {IDC_TCP_RCVBUF, _T("The size of the Socket receive") + sizeTip},
                            {IDC_TCP_NODELAY,
                             _T("If checked, the Dock disables the Nagle Algorithm for send coalescing.")}}));
                    form.Retype(IDC_TCP_SEND_DELAY, _T("5"));
                    form.Click(IDCANCEL);
                });
            EXPECT_FALSE(sheet.CanApply());
            Open(sheet,
                 [](Form& form)
                 {
                     EXPECT_EQ(form.TextOf(IDC_TCP_SEND_DELAY), _T("0"));
                     form.Click(IDOK);
                 });
            EXPECT_TRUE(sheet.CanApply());
            sheet.Ok();
        });
    EXPECT_EQ(StoredSix(), AdvancedTCPValues(0, 0, 0, 0, 1, 1));
}

TEST_F(AdvancedTCPTest, EditsAreStoredByThePage)
{
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 Open(sheet,
                      [](Form& form)
                      {
                          form.Click(IDC_TCP_USE_DEFAULT_SNDBUF);
                          ExpectSizes(form, true, false);
                          form.Click(IDC_TCP_USE_DEFAULT_RCVBUF);
                          ExpectSizes(form, true, true);
                          ExpectTabOrder(form, {IDC_TCP_SEND_DELAY, IDC_TCP_USE_DEFAULT_SNDBUF,
                                                IDC_TCP_SNDBUF, IDC_TCP_USE_DEFAULT_RCVBUF, IDC_TCP_RCVBUF,
                                                IDC_TCP_NODELAY, IDOK, IDCANCEL, IDC_TCP_SEND_DELAY});
                          form.Retype(IDC_TCP_SEND_DELAY, _T("x-4294967295"));
                          form.Retype(IDC_TCP_SNDBUF, _T("2147483647"));
                          form.Retype(IDC_TCP_RCVBUF, _T("8192"));
                          form.Click(IDC_TCP_NODELAY);
                          // Out of use, a size keeps its number.
                          form.Click(IDC_TCP_USE_DEFAULT_RCVBUF);
                          ExpectSizes(form, true, false);
                          EXPECT_EQ(form.TextOf(IDC_TCP_RCVBUF), _T("8192"));
                          form.Click(IDOK);
                      });
                 EXPECT_FALSE(KeyExists(keys::Kauri));
                 Open(sheet,
                      [](Form& form) { EXPECT_EQ(form.TextOf(IDC_TCP_SEND_DELAY), _T("4294967295")); });
                 sheet.Apply();
                 EXPECT_EQ(StoredSix(), AdvancedTCPValues(0xFFFFFFFF, 0x7FFFFFFF, 8192, 1, 0, 1));
                 Open(sheet,
                      [](Form& form)
                      {
                          form.Click(IDC_TCP_NODELAY);
                          form.Click(IDOK);
                      });
                 sheet.Cancel();
             });
    EXPECT_EQ(StoredSix(), AdvancedTCPValues(0xFFFFFFFF, 0x7FFFFFFF, 8192, 1, 0, 1)) << "lost with the sheet";
}

TEST_F(AdvancedTCPTest, OddFlagsAreStoredAsShownOnlyOnceConfirmed)
{
    const Values odd = AdvancedTCPValues(1, 0, 0x80000000, 5, 0, 3);
    Store(keys::Kauri, odd);
    const auto look = [](Form& form)
    {
        EXPECT_EQ(form.CheckOf(IDC_TCP_NODELAY), BST_CHECKED);
        EXPECT_EQ(form.TextOf(IDC_TCP_RCVBUF), _T("-2147483648"));
        // A size of 0 in use, and a flag that is none of a check box.
        ExpectSizes(form, true, true);
    };
    RunOnTab(tabs::Media,
             [&look](Sheet& sheet)
             {
                 Open(sheet, look);
                 sheet.Ok();
             });
    EXPECT_EQ(StoredSix(), odd);
    RunOnTab(tabs::Media,
             [&look](Sheet& sheet)
             {
                 Open(sheet,
                      [&look](Form& form)
                      {
                          look(form);
                          form.Click(IDOK);
                      });
                 sheet.Ok();
             });
    EXPECT_EQ(StoredSix(), AdvancedTCPValues(1, 0, 0x80000000, 1, 0, 0));
}

TEST_F(AdvancedTCPTest, NumberThatIsNoneKeepsTheDialogOpenAndTheRecordTakesWhatCameBefore)
{
    Store(keys::Kauri, AdvancedTCPValues(1, 2, 3, 0, 0, 0));
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 sheet.Apply();
                 Open(sheet,
                      [](Form& form)
                      {
                          form.Retype(IDC_TCP_SEND_DELAY, _T("7"));
                          form.Retype(IDC_TCP_RCVBUF, _T("9"));
                          form.Click(IDC_TCP_NODELAY);
                          // Emptied, an edit says nothing before something asks for the numbers.
                          form.Empty(IDC_TCP_SNDBUF);
                          int prompts = 0;
                          ExpectPrompt(&prompts);
                          form.Click(IDC_TCP_USE_DEFAULT_RCVBUF);
                          EXPECT_EQ(prompts, 1);
                          ExpectSizes(form, true, true);
                          ExpectPrompt(&prompts);
                          form.Click(IDOK);
                          EXPECT_EQ(prompts, 2);
                          EXPECT_TRUE(IsWindowVisible(form.Window()));
                          EXPECT_EQ(GetFocus(), form.Control(IDC_TCP_SNDBUF));
                          form.Click(IDCANCEL);
                      });
                 EXPECT_FALSE(sheet.CanApply());
                 sheet.Ok();
             });
    EXPECT_EQ(StoredSix(), AdvancedTCPValues(7, 2, 3, 0, 0, 0));
}

TEST_F(AdvancedTCPTest, SizesAndTheDelayHaveDifferentBounds)
{
    const struct
    {
        int id;
        LPCTSTR most;
        LPCTSTR tooMuch;
    } edits[] = {{IDC_TCP_SEND_DELAY, _T("4294967295"), _T("4294967296")},
                 {IDC_TCP_SNDBUF, _T("2147483647"), _T("2147483648")},
                 {IDC_TCP_RCVBUF, _T("2147483647"), _T("2147483648")}};
    Store(keys::Kauri, AdvancedTCPValues(0, 0, 0, 0, 0, 0));
    for (const auto& edit : edits)
    {
        SCOPED_TRACE(edit.id);
        RunOnTab(tabs::Media,
                 [&edit](Sheet& sheet)
                 {
                     Open(sheet,
                          [&edit](Form& form)
                          {
                              form.Retype(edit.id, edit.tooMuch);
                              int prompts = 0;
                              ExpectPrompt(&prompts);
                              form.Click(IDOK);
                              EXPECT_EQ(prompts, 1);
                              form.Retype(edit.id, edit.most);
                              form.Click(IDOK);
                          });
                     sheet.Ok();
                 });
    }
    EXPECT_EQ(StoredSix(), AdvancedTCPValues(0xFFFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0, 0, 0));
}

TEST_F(AdvancedTCPTest, UnderUDPTheDialogIsOutOfReachAndItsValuesStay)
{
    Store(keys::Kauri, AdvancedTCPValues(1, 2, 3, 4, 5, 6));
    StoreValue(_T("NetworkType"), Sz(_T("UDP/IP")));
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 EXPECT_FALSE(sheet.IsEnabled(IDC_ADVANCED_TCP));
                 sheet.Ok();
             });
    EXPECT_EQ(StoredSix(), AdvancedTCPValues(1, 2, 3, 4, 5, 6));
}
