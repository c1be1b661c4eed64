// Which values each page reads when it is first displayed and writes when it is applied, in order.
#include "headless.h"
#include "support/host_settings.h"

namespace
{
using Names = std::vector<std::string>;

struct PageValues
{
    Text tab;
    Names read;
    Names written;
};

Names In(const std::string& key, Names names)
{
    for (std::string& name : names)
    {
        name.insert(0, key + '\\');
    }
    return names;
}

Names Joined(Names names, const std::vector<Names>& others)
{
    for (const Names& other : others)
    {
        names.insert(names.end(), other.begin(), other.end());
    }
    return names;
}

// The page that came up with the sheet is saved first.
const Names General =
    In("QuorvexBench", {"CertificationMode", "QBLogVerbosity", "QBMinimumDisplayUpdateTime"});

std::vector<PageValues> PagesOfHostTools()
{
    const Names stacks = {
        "TestServices\\EnableEhciStackSwitcher",   "ehci_driver\\Path",
        "TestServices\\EnableXhciStackSwitcher",   "xhci_driver\\Path",
        "TestServices\\EnableUsb4HiStackSwitcher", "Drivers\\usb4hi\\Path",
        "TestServices\\EnableRvskStackSwitcher",   "Drivers\\rvsk\\Path",
    };
    const Names firmware = {"TestServices\\FsLsComplianceDeviceFirmware"};
    const Names firmwareCopy = {"TestServices\\fw"};
    const Names driver = {"TestServices\\HSComplianceDeviceDriverPath"};
    const Names chapter9 = {"AlderQB\\SkipBOSDescriptorLegacyDevicesAlderQB",
                            "BirchQB\\SkipBOSDescriptorLegacyDevicesBirchQB"};
    const Names waivers = In("TestServices", {"WaiverPortNum", "BT_RemoteWake_Waiver"});
    const Names interval = {"SERVICES\\xHCIPort\\Parameters\\IMODInterval"};
    const Names starts = In("TestServices", {"IntMaxPacketStart", "IntMaxBurstStart", "IsochMaxBurstStart",
                                             "IsochSkipRead", "IsochSkipWrite", "PromptDuringConnect"});
    const Names delay = In("TestServices", {"IsochDelayBeforeHSRead", "StopOnError"});
    const Names skips = In("TestServices", {"InterruptSkipIOC", "InterruptSkipEventData", "InterruptSkipSG",
                                            "InterruptSkipContiguousBuffer"});
    return {
        {tabs::Drivers, Joined(stacks, {firmware, driver}), Joined(stacks, {firmware, firmwareCopy, driver})},
        {tabs::Chapter9, chapter9, chapter9},
        {tabs::Waivers, waivers, waivers},
        {tabs::Xhci, Joined(interval, {starts, delay, skips}), Joined(interval, {starts, skips, delay})}};
}

std::vector<PageValues> PagesOfTheMAUSBTool()
{
    const std::pair<Text, Names> pages[] = {
        {tabs::Identity,
         {"MAUSBProtocolVersion", "IsochPayloadAlignment", "RootHubUUID", "RefuseSleepRequests",
          "LinkSleepCapability", "MaxUSBTransferSize", "UseDefaultMaxUSBTransferSize"}},
        {tabs::Protocol,
         {"aManagementResponseTime", "aTransferResponseTime", "aDataChannelDelayTCP",
          "aManagementChannelDelayTCP", "aMaxIsochLinkDelayTCP", "aDataChannelDelayUDP",
          "aManagementChannelDelayUDP", "aMaxIsochLinkDelayUDP", "aDataChannelDelaySNAP",
          "aManagementChannelDelaySNAP", "aMaxIsochLinkDelaySNAP", "aBulkTransferRetries",
          "aControlTransferRetries", "aInterruptTransferRetries", "aManagementRetries",
          "aTransferSetupRetries"}},
        {tabs::HostUnderTest,
         {"aBulkTransferRetriesHUT", "aControlTransferRetriesHUT", "aInterruptTransferRetriesHUT",
          "aManagementRetriesHUT", "aTransferSetupRetriesHUT", "SendsGetPortBWReq"}},
        {tabs::Media,
         {"NetworkType",
          "NetworkLevelLog",
          "MaxBytesToLog",
          "DefaultIPAddressTCPClient",
          "DefaultIPAddressUDP",
          "DefaultPortNumberUDP",
          "MACAddr",
          "SnapIdOUI",
          "SnapIdPID",
          "MaxPacketSizeTCP",
          "MaxPacketSizeUDP",
          "MaxPacketSizeSNAP",
          "AdvancedTCP_SocketSendDelay",
          "AdvancedTCP_SO_SNDBUF",
          "AdvancedTCP_SO_RCVBUF",
          "AdvancedTCP_TCP_NODELAY",
          "AdvancedTCP_Default_SO_SNDBUF",
          "AdvancedTCP_Default_SO_RCVBUF",
          "TCPPortsClient\\9001\\PacketType",
          "TCPPortsServer\\9002\\PacketType"}}};
    std::vector<PageValues> values;
    for (const auto& [tab, names] : pages)
    {
        values.push_back({tab, In("KauriQB", names), In("KauriQB", names)});
    }
    return values;
}

// The values that calls of a function named, with their keys' paths behind the first three parts
// (HKEY_LOCAL_MACHINE\SOFTWARE\Halvane, say). A value that is asked for its size and its data counts once.
Names Called(const char* function)
{
    Names names;
    for (const headless::RegistryCall& call : headless::RegistryCalls())
    {
        if (call.function != function)
        {
            continue;
        }
        size_t start = 0;
        for (int part = 0; part < 3; ++part)
        {
            start = call.key.find(u'\\', start) + 1;
        }
        const std::string name = Printable(call.key.substr(start) + u'\\' + call.value);
        if (names.empty() || names.back() != name)
        {
            names.push_back(name);
        }
    }
    return names;
}

class OrderTest : public SettingsTest
{
protected:
    // Every key exists, as there is nothing to ask for values otherwise; and an identifier, as one is written
    // at display otherwise.
    void SetUp() override
    {
        SettingsTest::SetUp();
        InstallTools(AllTools);
        for (const HostSetting& setting : HostSettings())
        {
            StoreHostSetting(setting, setting.Initial());
        }
        Store(keys::Kauri, _T("RootHubUUID"), Binary(std::vector<BYTE>(16, 1)));
        Store(keys::ClientPorts + _T("\\9001"), _T("PacketType"), Dword(0));
        Store(keys::ServerPorts + _T("\\9002"), _T("PacketType"), Dword(0));
    }

    void TearDown() override
    {
        headless::RecordRegistryCalls(false);
        SettingsTest::TearDown();
    }

    static void ExpectOrder(const std::vector<PageValues>& pages)
    {
        for (const PageValues& page : pages)
        {
            SCOPED_TRACE(Printable(page.tab));
            RunEditor(
                [&page](Sheet& sheet)
                {
                    headless::RecordRegistryCalls(true);
                    ASSERT_TRUE(sheet.Select(page.tab));
                    EXPECT_EQ(Called("RegQueryValueExW"), page.read);
                    EXPECT_EQ(Called("RegSetValueExW"), Names{});
                    headless::RecordRegistryCalls(true);
                    sheet.Ok();
                    EXPECT_EQ(Called("RegQueryValueExW"), Names{});
                    EXPECT_EQ(Called("RegSetValueExW"), Joined(General, {page.written}));
                });
        }
    }
};
}  // namespace

TEST_F(OrderTest, PagesOfTheHostAndDeviceTools)
{
    ExpectOrder(PagesOfHostTools());
}

TEST_F(OrderTest, PagesOfTheMAUSBTool)
{
    ExpectOrder(PagesOfTheMAUSBTool());
}
