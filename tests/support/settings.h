// Every value that the editor stores, as docs/settings.md has it: the tests read the reference that users
// read.
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
        Fixed   // nothing on the page itself changes it
    };

    // From the reference. The control is empty if the value has none on the page itself.
    Text tab;
    Text key;
    Text name;
    StoredValue initial;
    Text control;
    Tools tools;  // the setting is live if one of them is installed, or if there are none here
    // From the page, once a test program has started its first test.
    Kind kind = Kind::Fixed;
    int id = 0;  // of the control; of the first radio button
    int secondId = 0;
    StoredValue changed;  // another value; the initial one if the setting is fixed

    bool IsLiveFor(const Tools& installed) const;
    // The value "fw" is a copy for old tools.
    bool IsRead() const { return name != _T("fw"); }
    // The text that shows a value, of a button the BST_ value in decimal.
    Text TextFor(const StoredValue& value) const;
    // Fails the test if the page does not show the value, which must be a Dword or an Sz.
    void ExpectShown(const Form& page, const StoredValue& value) const;
    // Acts as a user does.
    void Enter(const Form& page, const StoredValue& value) const;
};

// In the order of the tabs, and for each page in the order in which it writes.
const std::vector<Setting>& AllSettings();
std::vector<Setting> SettingsOf(const Text& tab);
// What is in the registry when these settings are at a value each.
using ValueOfSetting = StoredValue Setting::*;
Tree TreeOf(const std::vector<Setting>& settings, ValueOfSetting value);

// The titles of all pages, in the order of the tabs.
const std::vector<Text>& AllTabs();
