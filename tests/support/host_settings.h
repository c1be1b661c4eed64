// The settings of the host and device tools' pages, as users and tools see them.
#pragma once

#include "support/form.h"
#include "support/settings_test.h"

#include <vector>

inline constexpr LPCTSTR FirmwareName = _T("FsLsComplianceDeviceFirmware");
inline constexpr LPCTSTR FirmwareCopy = _T("fw");

struct HostSetting
{
    enum class Kind
    {
        Switch,
        Number,
        Path
    };

    Text tab;
    int control;
    Kind kind;
    Text key;
    Text name;
    DWORD initial;  // nothing for a path
    Tools tools;    // any of them brings the setting to life

    StoredValue Initial() const;
    // What differs from that, and from every other setting's of its kind where there is the choice.
    StoredValue Changed() const;
    bool IsLiveFor(const Tools& installed) const;
    // Checks that the page in front shows a value.
    void ExpectShown(const Sheet& sheet, const StoredValue& value) const;
    // As a user does it: a click, or typing over what is there. The setting must be at its initial value.
    void Change(const Sheet& sheet) const;
};

// In the tabs' order.
const std::vector<Text>& HostTabs();
// A path stands before its switch, which starts on.
const std::vector<HostSetting>& HostSettings();
std::vector<HostSetting> HostSettingsOf(const Text& tab);

// Stores a setting's value, and the copy that goes with the firmware's folder.
void StoreHostSetting(const HostSetting& setting, const StoredValue& value);
// All that is stored but for General Settings, whose page comes up first and so is always saved.
Tree StoredByHostPages();
