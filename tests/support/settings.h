// Every value that the editor stores, as users and tools see it: one table for all tests.
#pragma once

#include "support/registry.h"

struct Setting
{
    enum class Kind
    {
        Number,  // an edit with a decimal number
        Hex,     // an edit with a hexadecimal number
        Path,    // an edit with a text that does not mark its page
        Line,    // an edit with a text
        Check,   // a check box
        List,    // a list box whose selection is the number
        Radio,   // the first of two radio buttons, for the initial value; the next id is for the other
        Copy,    // written with the path of the same control, and never read
        Passed   // shown by no control of the page, or not to be changed there
    };

    Text tab;
    Kind kind;
    int control;
    Text key;
    Text name;
    StoredValue initial;
    StoredValue changed;  // equal to the initial one where it is only passed through
    Tools tools;          // any of them brings it to life; empty: it always is alive

    bool IsLiveFor(const Tools& installed) const;
    bool IsChangeable() const { return kind != Kind::Copy && kind != Kind::Passed; }
    // Fails the test if the page does not show the value, which must be a Dword or an Sz.
    void ExpectShown(const Form& page, const StoredValue& value) const;
    // As a user does it.
    void Enter(const Form& page, const StoredValue& value) const;
};

// In the order of the tabs, and in a page in the order in which it writes.
const std::vector<Setting>& AllSettings();
std::vector<Setting> SettingsOf(const Text& tab);
// What stands in the registry when these settings are at a value each.
using ValueOfSetting = StoredValue Setting::*;
Tree TreeOf(const std::vector<Setting>& settings, ValueOfSetting value);

extern const std::vector<Text> AllTabs;
