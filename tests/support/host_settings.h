// The settings of the host and device tools' pages, as users and tools see them.
#pragma once

#include "support/form.h"

#include <gtest/gtest.h>

#include <vector>

using Tools = std::vector<ProductId>;

inline constexpr LPCTSTR DriversTab = _T("Drivers && Firmware");
inline constexpr LPCTSTR Chapter9Tab = _T("Chapter 9");
inline constexpr LPCTSTR WaiversTab = _T("Waivers");
inline constexpr LPCTSTR XhciTab = _T("xHCI Settings");

inline const Text TestServices = _T("SOFTWARE\\Ostrel\\TestServices");
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

    LPCTSTR tab;
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
const std::vector<LPCTSTR>& HostTabs();
// A path stands before its switch, which starts on.
const std::vector<HostSetting>& HostSettings();
std::vector<HostSetting> HostSettingsOf(LPCTSTR tab);

// Stores a setting's value, and the copy that goes with the firmware's folder.
void StoreHostSetting(const HostSetting& setting, const StoredValue& value);
// All that is stored but for General Settings, whose page comes up first and so is always saved.
Tree StoredByHostPages();

// Starts and ends with nothing stored.
class HostPagesTest : public testing::Test
{
protected:
    void SetUp() override { ClearSettings(); }
    void TearDown() override { ClearSettings(); }
};
