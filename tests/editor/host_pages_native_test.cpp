// The road of the host and device tools' pages to the registry, call by call: in which order values are read
// and written, and what one refused call costs.
#include "headless.h"
#include "support/host_settings.h"

#include <algorithm>

namespace
{
using Names = std::vector<Text>;

// The values that calls of a function named, as "key\name" with the last part of the key's path; a value that
// is asked for twice, for its size and its data, counts once.
Names ValuesOf(const std::string& function)
{
    Names names;
    for (const headless::RegistryCall& call : headless::RegistryCalls())
    {
        const Text name = call.key.substr(call.key.rfind(u'\\') + 1) + u'\\' + call.value;
        if (call.function == function && (names.empty() || names.back() != name))
        {
            names.push_back(name);
        }
    }
    return names;
}

Names In(const Text& key, const Names& values)
{
    Names names;
    std::transform(values.begin(), values.end(), std::back_inserter(names),
                   [&key](const Text& value) { return key + u'\\' + value; });
    return names;
}

Names Joined(const std::vector<Names>& lists)
{
    Names all;
    for (const Names& list : lists)
    {
        all.insert(all.end(), list.begin(), list.end());
    }
    return all;
}

// Shows the page and saves it, calling in between.
void SavePage(LPCTSTR tab, const std::function<void()>& afterLoad)
{
    RunEditor(
        [&](const Sheet& sheet)
        {
            headless::RecordRegistryCalls(true);
            ASSERT_TRUE(sheet.Select(tab));
            afterLoad();
            sheet.Ok();
            headless::RecordRegistryCalls(false);
        });
}

class HostPagesCallsTest : public HostPagesTest
{
protected:
    void SetUp() override
    {
        HostPagesTest::SetUp();
        InstallAllTools();
    }
    void TearDown() override
    {
        headless::ClearFaults();
        ClearSettings();
    }
};
}  // namespace

TEST_F(HostPagesCallsTest, ValuesAreReadAndWrittenInTheirOrder)
{
    struct Case
    {
        LPCTSTR tab;
        Names read;
        Names written;
    };
    const Text services = u"TestServices";
    const Names stacks = {
        u"TestServices\\EnableEhciStackSwitcher",   u"ehci_driver\\Path",
        u"TestServices\\EnableXhciStackSwitcher",   u"xhci_driver\\Path",
        u"TestServices\\EnableUsb4HiStackSwitcher", u"usb4hi\\Path",
        u"TestServices\\EnableRvskStackSwitcher",   u"rvsk\\Path",
    };
    const Names chapter9 = {u"AlderQB\\SkipBOSDescriptorLegacyDevicesAlderQB",
                            u"BirchQB\\SkipBOSDescriptorLegacyDevicesBirchQB"};
    const Names waivers = In(services, {u"WaiverPortNum", u"BT_RemoteWake_Waiver"});
    const Names imod = {u"Parameters\\IMODInterval"};
    const Names starts = In(services, {u"IntMaxPacketStart", u"IntMaxBurstStart", u"IsochMaxBurstStart",
                                       u"IsochSkipRead", u"IsochSkipWrite", u"PromptDuringConnect"});
    const Names delay = In(services, {u"IsochDelayBeforeHSRead", u"StopOnError"});
    const Names skips = In(services, {u"InterruptSkipIOC", u"InterruptSkipEventData", u"InterruptSkipSG",
                                      u"InterruptSkipContiguousBuffer"});
    const Names device = In(services, {u"FsLsComplianceDeviceFirmware", u"HSComplianceDeviceDriverPath"});
    const Names deviceWithCopy =
        In(services, {u"FsLsComplianceDeviceFirmware", u"fw", u"HSComplianceDeviceDriverPath"});
    // The page that came up first is saved first.
    const Names general =
        In(u"QuorvexBench", {u"CertificationMode", u"QBLogVerbosity", u"QBMinimumDisplayUpdateTime"});

    for (const Case& c :
         {Case{DriversTab, Joined({stacks, device}), Joined({stacks, deviceWithCopy})},
          Case{Chapter9Tab, chapter9, chapter9}, Case{WaiversTab, waivers, waivers},
          Case{XhciTab, Joined({imod, starts, delay, skips}), Joined({imod, starts, skips, delay})}})
    {
        SCOPED_TRACE(Printable(c.tab));
        // Of a value that is not there nothing but its absence is asked.
        for (const HostSetting& setting : HostSettingsOf(c.tab))
        {
            StoreHostSetting(setting, setting.Changed());
        }
        SavePage(c.tab, [] {});
        EXPECT_EQ(ValuesOf("RegQueryValueExW"), c.read);
        EXPECT_EQ(ValuesOf("RegSetValueExW"), Joined({general, c.written}));
    }
}

TEST_F(HostPagesCallsTest, RefusedWriteCostsOneValueAndNoMore)
{
    for (const LPCTSTR tab : HostTabs())
    {
        SCOPED_TRACE(Printable(tab));
        ClearSettings();
        InstallAllTools();
        SavePage(tab, [] {});
        const Tree whole = StoredByHostPages();
        std::vector<headless::RegistryCall> writes = headless::RegistryCalls();
        std::erase_if(writes,
                      [](const headless::RegistryCall& call) { return call.function != "RegSetValueExW"; });
        ASSERT_GE(writes.size(), 5U);
        for (unsigned nth = 1; nth <= writes.size(); ++nth)
        {
            SCOPED_TRACE(testing::Message() << "write " << nth);
            ClearSettings();
            InstallAllTools();
            SavePage(tab, [nth] { headless::FailCall("RegSetValueExW", nth, ERROR_ACCESS_DENIED); });
            headless::ClearFaults();
            // The key is there even if it was made for the refused value alone.
            Tree lacking = whole;
            for (auto& [key, values] : lacking)
            {
                if (writes[nth - 1].key.ends_with(u'\\' + key))
                {
                    values.erase(writes[nth - 1].value);
                }
            }
            ASSERT_EQ(StoredByHostPages(), lacking);
        }
    }
}
