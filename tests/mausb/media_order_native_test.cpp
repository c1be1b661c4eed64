// In which order MAUSB Media Settings goes to the registry: tools that watch it see the transport first and
// the ports last.
#include "headless.h"
#include "media_page.h"

namespace
{
// Names of values as they were read or written, and the names of tables' keys as they were opened.
std::vector<Text> Recorded(const char* valueFunction, const char* keyFunction)
{
    std::vector<Text> names;
    for (const headless::RegistryCall& call : headless::RegistryCalls())
    {
        const Text name =
            call.function == keyFunction ? call.key.substr(call.key.rfind(_T('\\')) + 1) : call.value;
        const bool isTable = call.function == keyFunction && name.find(_T("TCPPorts")) == 0;
        const bool isValue = call.function == valueFunction && name != _T("PacketType");
        // A text is asked for its size first.
        if ((isTable || isValue) && (names.empty() || names.back() != name))
        {
            names.push_back(name);
        }
    }
    return names;
}
}  // namespace

using MediaOrderTest = MediaPage;

TEST_F(MediaOrderTest, ReadsAndWritesInTheOrderOfTheStoredTree)
{
    const std::vector<Text> order = {_T("NetworkType"),
                                     _T("NetworkLevelLog"),
                                     _T("MaxBytesToLog"),
                                     _T("DefaultIPAddressTCPClient"),
                                     _T("DefaultIPAddressUDP"),
                                     _T("DefaultPortNumberUDP"),
                                     _T("MACAddr"),
                                     _T("SnapIdOUI"),
                                     _T("SnapIdPID"),
                                     _T("MaxPacketSizeTCP"),
                                     _T("MaxPacketSizeUDP"),
                                     _T("MaxPacketSizeSNAP"),
                                     _T("AdvancedTCP_SocketSendDelay"),
                                     _T("AdvancedTCP_SO_SNDBUF"),
                                     _T("AdvancedTCP_SO_RCVBUF"),
                                     _T("AdvancedTCP_TCP_NODELAY"),
                                     _T("AdvancedTCP_Default_SO_SNDBUF"),
                                     _T("AdvancedTCP_Default_SO_RCVBUF"),
                                     _T("TCPPortsClient"),
                                     _T("TCPPortsServer")};
    Run([](Sheet& sheet) { sheet.Ok(); });
    RunEditor(
        [&order](Sheet& sheet)
        {
            headless::RecordRegistryCalls(true);
            sheet.Select(Tab);
            headless::RecordRegistryCalls(false);
            EXPECT_EQ(Recorded("RegQueryValueExW", "RegOpenKeyExW"), order);
            headless::RecordRegistryCalls(true);
            sheet.Apply();
            headless::RecordRegistryCalls(false);
            // General Settings stands before this page, and is stored with it.
            std::vector<Text> written = Recorded("RegSetValueExW", "RegCreateKeyExW");
            ASSERT_GE(written.size(), order.size());
            written.erase(written.begin(), written.end() - static_cast<std::ptrdiff_t>(order.size()));
            EXPECT_EQ(written, order);
        });
}
