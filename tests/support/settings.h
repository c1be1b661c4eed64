// Every value that the editor stores. They come from docs/settings.md, the reference for users: the build
// makes settings.inc from it.
#pragma once

#include "support/registry.h"

struct Setting
{
    enum class Kind
    {
        Number,  // an edit with a decimal number
        Hex,     // an edit with a hexadecimal number
        Line,    // an edit with a text
        Check,
        List,   // a list box or combo box, whose selection is the number
        Radio,  // two radio buttons, the first for the initial value
        Fixed   // no control of the page changes it
    };

    // From the reference. `control` is empty if no control of the page itself has the value.
    Text tab;
    Text key;
    Text name;
    StoredValue initial;
    Text control;
    Tools tools;  // the setting is used if one of them is installed, or if this is empty
    // From the page; set before the first test.
    Kind kind = Kind::Fixed;
    int id = 0;  // of the control, or of the first radio button
    int secondId = 0;
    StoredValue changed = initial;  // a value other than the initial one, unless the setting is fixed

    bool IsLiveFor(const Tools& installed) const;
    // The value "fw" is a copy for old tools, which the editor only writes.
    bool IsRead() const { return name != _T("fw"); }
    // The text by which the control shows a value; for a button its BST_ value in decimal.
    Text TextFor(const StoredValue& value) const;
    // The text by which the page shows the setting, which must not be fixed.
    Text ShownOn(const Form& page) const;
    // Fails the test if the page does not show the value, which must be a Dword or an Sz.
    void ExpectShown(const Form& page, const StoredValue& value) const;
    // Enters a value as a user does.
    void Enter(const Form& page, const StoredValue& value) const;
};

// In the order of the tabs, and for each page in the order in which it stores them.
const std::vector<Setting>& AllSettings();
std::vector<Setting> SettingsOf(const Text& tab);
// The registry's content when each of these settings has that value.
using ValueOfSetting = StoredValue Setting::*;
Tree TreeOf(const std::vector<Setting>& settings, ValueOfSetting value);

// The titles of all pages, in the order of the tabs.
std::vector<Text> AllTabs();
