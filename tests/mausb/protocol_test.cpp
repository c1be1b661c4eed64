// The three buttons of MAUSB Protocol Settings.
#include "resource.h"
#include "support/scripts.h"

namespace
{
// The buttons, and the boxes that they reset.
const std::pair<int, Text> Buttons[] = {{IDC_SET_TO_DEFAULT, _T("Response Times")},
                                        {IDC_SET_TO_SUGGESTED, _T("Media Specific")},
                                        {IDC_SET_TO_MINIMUM, _T("Retries")}};

class ProtocolTest : public SettingsTest
{
protected:
    const std::vector<Setting> settings = SettingsOf(tabs::Protocol);

    static bool IsIn(const Setting& setting, const Text& box) { return setting.control.find(box) == 0; }
};
}  // namespace

TEST_F(ProtocolTest, ButtonResetsItsBoxAndNoOther)
{
    for (const auto& [button, box] : Buttons)
    {
        SCOPED_TRACE(button);
        StoreTree(TreeOf(settings, &Setting::changed));
        const Editor sheet(tabs::Protocol);
        for (const bool changes : {true, false})
        {
            // The member is set before its edit, so the edit's EN_CHANGE finds no change and removes the
            // mark.
            Events expected = {std::to_string(button) + " clicked"};
            const Events events = EventsOf(sheet, [&, id = button] { sheet.Click(id); });
            for (const Setting& setting : settings)
            {
                const bool isReset = IsIn(setting, box);
                setting.ExpectShown(sheet, isReset ? setting.initial : setting.changed);
                if (isReset)
                {
                    expected.push_back(std::to_string(setting.id) + " changed");
                    expected.emplace_back("unmarked");
                }
            }
            if (changes)
            {
                expected.emplace_back("marked");
            }
            EXPECT_EQ(events, expected);
            EXPECT_EQ(sheet.CanApply(), changes);
        }
        EXPECT_EQ(StoredTree(keys::Kauri), TreeOf(settings, &Setting::changed));
    }
}

TEST_F(ProtocolTest, ButtonMarksForAnyOneFieldOfItsBox)
{
    const Editor sheet(tabs::Protocol);
    for (const auto& [button, box] : Buttons)
    {
        for (const Setting& setting : settings)
        {
            setting.Enter(sheet, setting.changed);
            sheet.Click(button);
            EXPECT_EQ(sheet.CanApply(), IsIn(setting, box)) << button << ' ' << setting.id;
            setting.Enter(sheet, setting.initial);
        }
    }
}

TEST_F(ProtocolTest, ButtonFillsAnEmptiedField)
{
    const Editor sheet(tabs::Protocol);
    // The member keeps its number, which is the one that the button sets. The EN_CHANGE of the field before
    // it exchanges all fields, and prompts for the empty one.
    EXPECT_EQ(CountPrompts([&] { sheet.Retype(IDC_MANAGEMENT_DELAY_TCP, {}); }), 1);
    EXPECT_EQ(CountPrompts([&] { sheet.Click(IDC_SET_TO_SUGGESTED); }), 1);
    EXPECT_EQ(sheet.TextOf(IDC_MANAGEMENT_DELAY_TCP), _T("100"));
    EXPECT_FALSE(sheet.CanApply());
    EXPECT_TRUE(sheet.Select(tabs::General));
}
