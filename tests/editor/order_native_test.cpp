// Which values the pages of the MAUSB tool's protocol read when they are displayed and write when they are
// applied, in order.
#include "headless.h"
#include "support/tool_page.h"

namespace
{
using Names = std::vector<std::string>;

struct PageValues
{
    LPCTSTR tab;
    Names names;
};

const PageValues Pages[] = {
    {_T("MAUSB Settings"),
     {"MAUSBProtocolVersion", "IsochPayloadAlignment", "RootHubUUID", "RefuseSleepRequests",
      "LinkSleepCapability", "MaxUSBTransferSize", "UseDefaultMaxUSBTransferSize"}},
    {_T("MAUSB Protocol Settings"),
     {"aManagementResponseTime", "aTransferResponseTime", "aDataChannelDelayTCP",
      "aManagementChannelDelayTCP", "aMaxIsochLinkDelayTCP", "aDataChannelDelayUDP",
      "aManagementChannelDelayUDP", "aMaxIsochLinkDelayUDP", "aDataChannelDelaySNAP",
      "aManagementChannelDelaySNAP", "aMaxIsochLinkDelaySNAP", "aBulkTransferRetries",
      "aControlTransferRetries", "aInterruptTransferRetries", "aManagementRetries", "aTransferSetupRetries"}},
    {_T("MAUSB HUT Params"),
     {"aBulkTransferRetriesHUT", "aControlTransferRetriesHUT", "aInterruptTransferRetriesHUT",
      "aManagementRetriesHUT", "aTransferSetupRetriesHUT", "SendsGetPortBWReq"}},
    {_T("MAUSB Media Settings"),
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
      "TCPPortsClient",
      "TCPPortsServer"}}};

// The values of the tool's key that a function was called for, and the tables of ports whose values it was
// called for; one that is read in two steps counts once.
Names Called(const char* function)
{
    const std::u16string key = u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvane\\KauriQB";
    Names names;
    for (const headless::RegistryCall& call : headless::RegistryCalls())
    {
        if (call.function != function || call.key.find(key) != 0)
        {
            continue;
        }
        const std::u16string below = call.key.substr(key.size());
        const std::string name =
            below.empty() ? Printable(call.value) : Printable(below.substr(1, below.find(u'\\', 1) - 1));
        if (names.empty() || names.back() != name)
        {
            names.push_back(name);
        }
    }
    return names;
}

class OrderTest : public ToolPageTest
{
protected:
    void TearDown() override
    {
        headless::RecordRegistryCalls(false);
        ToolPageTest::TearDown();
    }
};
}  // namespace

TEST_F(OrderTest, PagesReadAndWriteTheirValuesInOrder)
{
    for (const PageValues& page : Pages)
    {
        SCOPED_TRACE(Printable(page.tab));
        // With no key there is nothing to ask for values, and with no identifier one is written.
        StoreValue(_T("RootHubUUID"), Binary(std::vector<BYTE>(16, 1)));
        for (const LPCTSTR table : {_T("\\TCPPortsClient\\9001"), _T("\\TCPPortsServer\\9001")})
        {
            Store(Key + table, _T("PacketType"), Dword(0));
        }
        RunEditor(
            [&page](Sheet& sheet)
            {
                headless::RecordRegistryCalls(true);
                ASSERT_TRUE(sheet.Select(page.tab));
                EXPECT_EQ(Called("RegQueryValueExW"), page.names);
                EXPECT_EQ(Called("RegSetValueExW"), Names{});
                headless::RecordRegistryCalls(true);
                sheet.Ok();
                EXPECT_EQ(Called("RegQueryValueExW"), Names{});
                EXPECT_EQ(Called("RegSetValueExW"), page.names);
            });
    }
}
