// MAUSB Protocol Settings: its three buttons.
#include "support/scripts.h"

namespace
{
struct Button
{
    int id;
    size_t first;  // of the page's settings, those that it puts back
    size_t end;
};
constexpr Button Buttons[] = {{1177, 0, 2}, {1178, 2, 11}, {1179, 11, 16}};

class ProtocolTest : public SettingsTest
{
protected:
    const std::vector<Setting> settings = SettingsOf(tabs::Protocol);

    // Each field that is set finds its member as it is already, and takes the mark away.
    Events ClickEvents(const Button& button, bool changed) const
    {
        Events events = {std::to_string(button.id) + " clicked"};
        for (size_t field = button.first; field < button.end; ++field)
        {
            events.push_back(std::to_string(settings[field].control) + " changed");
            events.emplace_back("unmarked");
        }
        if (changed)
        {
            events.emplace_back("marked");
        }
        return events;
    }
};
}  // namespace

TEST_F(ProtocolTest, ButtonPutsItsGroupBackAndNoOther)
{
    for (const Button& button : Buttons)
    {
        SCOPED_TRACE(button.id);
        StoreTree(TreeOf(settings, &Setting::changed));
        RunOnTab(tabs::Protocol, [&](const Sheet& sheet) {
            for (const bool changes : {true, false})
            {
                EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(button.id); }), ClickEvents(button, changes));
                EXPECT_EQ(sheet.CanApply(), changes);
                for (size_t field = 0; field < settings.size(); ++field)
                {
                    const bool isSet = field >= button.first && field < button.end;
                    settings[field].ExpectShown(sheet,
                                                isSet ? settings[field].initial : settings[field].changed);
                }
            }
            EXPECT_EQ(StoredTree(keys::Kauri), TreeOf(settings, &Setting::changed));
        });
    }
}

TEST_F(ProtocolTest, ButtonMarksForAnyOneFieldOfItsGroup)
{
    RunOnTab(tabs::Protocol, [this](const Sheet& sheet) {
        for (const Button& button : Buttons)
        {
            for (size_t field = 0; field < settings.size(); ++field)
            {
                settings[field].Enter(sheet, settings[field].changed);
                sheet.Click(button.id);
                EXPECT_EQ(sheet.CanApply(), field >= button.first && field < button.end)
                    << button.id << ' ' << settings[field].control;
                settings[field].Enter(sheet, settings[field].initial);
            }
        }
    });
}

TEST_F(ProtocolTest, ButtonFillsAnEmptiedField)
{
    RunOnTab(tabs::Protocol, [](const Sheet& sheet) {
        // The member has kept its number, which is the one that the button puts there. But the field
        // that is filled before it reads all fields, and stumbles over the empty one.
        EXPECT_EQ(CountPrompts([&sheet] { sheet.Retype(1088, {}); }), 1);
        EXPECT_EQ(CountPrompts([&sheet] { sheet.Click(1178); }), 1);
        EXPECT_EQ(sheet.TextOf(1088), _T("100"));
        EXPECT_FALSE(sheet.CanApply());
        EXPECT_TRUE(sheet.Select(tabs::General));
    });
}
