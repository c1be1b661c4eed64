// What a screen reader says for each control that can take the focus, in the order of the controls.
#include "framework/ControlNames.h"
#include "support/scripts.h"

namespace {
// Each behind a bar.
const std::map<Text, std::string> Names = {
    {tabs::General, "|Certification Mode|Log Output Level|Minimum Display Update Time"},
    {tabs::Drivers,
     "|Enable StackSwitcher|Driver|Browse...|Enable StackSwitcher|Driver|Browse...|Enable "
     "StackSwitcher|Driver|Browse..."
     "|Enable StackSwitcher|Driver|Browse...|Location|Browse...|Driver|Browse..."},
    {tabs::Chapter9, "|Skip BOS Descriptor Test On Legacy Devices|Skip BOS Descriptor Test On Legacy Devices"},
    {tabs::Waivers, "|Port Number Waiver|BT Remote Wake Waiver"},
    {tabs::Xhci,
     "|IMOD Interval|Prompt During Device Connect|xHCI Interrupt Loopback Starting MaxPacketSize"
     "|xHCI Interrupt Loopback Starting Burst Size|xHCI Isoch Loopback Starting Burst Size"
     "|Interrupt Loopback Skip Scatter-Gather|Interrupt Loopback Skip Contiguous Buffer|Interrupt LB Skip IOC"
     "|Interrupt LB Skip Event Data|xHCI Isoch Loopback Skip Read Loop|xHCI Isoch Loopback Skip Write Loopback"
     "|xHCI Isoch Delay HS Read|Stop Test On Error"},
    {tabs::Identity, "|MAUSB Protocol Version|BYTE|DWORD|New ID|Refuse Sleep Requests|Link Sleep Capability"},
    {tabs::Media,
     "|TCP/IP|UDP/IP|Network Level Logging|Max bytes to log|Max MAUSB Packet Size|Advanced TCP Settings"
     "|Default Host IP Address|Default Host IP Address|Default Port Number|Max MAUSB Packet Size|Default MAC Address"
     "|OUI|PID|Max MAUSB Packet Size|Client Port Numbers|Server Port Numbers"},
    {tabs::Protocol,
     "|aManagementResponseTime|aTransferResponseTime|aDataChannelDelay, TCP/IP|aManagementChannelDelay, TCP/IP"
     "|aMaxIsochLinkDelay, TCP/IP|aDataChannelDelay, UDP/IP|aManagementChannelDelay, UDP/IP|aMaxIsochLinkDelay, UDP/IP"
     "|aDataChannelDelay, SNAP|aManagementChannelDelay, SNAP|aMaxIsochLinkDelay, SNAP|aBulkTransferRetries"
     "|aControlTransferRetries|aInterruptTransferRetries|aManagementRetries|aTransferSetupRetries|Set to Default"
     "|Set to Suggested|Set to Minimum"},
    {tabs::HostUnderTest,
     "|aBulkTransferRetries|aControlTransferRetries|aInterruptTransferRetries|aManagementRetries|aTransferSetupRetries"
     "|Sends GetPortBWReq Packets"},
    {titles::ClientPorts,
     "|Port Number|Packet Type|Port Number|Packet Type|Port Number|Packet Type|Port Number|Packet Type|OK|Cancel"},
    {titles::AdvancedTCP,
     "|Send Delay (in ms)|Use Default SO_SNDBUF|SO_SNDBUF|Use Default SO_RCVBUF|SO_RCVBUF|TCP_NODELAY|OK|Cancel"}};

std::map<HWND, Text> givenNames;

HRESULT STDMETHODCALLTYPE KeepName(IAccPropServices*, HWND window, DWORD, DWORD, MSAAPROPID, LPCWSTR name) {
    givenNames[window] = name;
    return S_OK;
}

// A given name, its own text, or the label directly before it.
Text NameSaid(HWND window) {
    if (givenNames.count(window) != 0) { return givenNames[window]; }
    const HWND label = IsOf(window, _T("Button")) ? window : GetWindow(window, GW_HWNDPREV);
    EXPECT_TRUE(label == window || IsOf(label, _T("Static")));
    return Form(label).Title();
}

using AccessTest = SettingsTest;
}  // namespace

TEST_F(AccessTest, EveryControlHasItsNameAndStandsInReadingOrder) {
    CoInitialize(nullptr);
    IAccPropServices* service = nullptr;
    CoCreateInstance(AccPropServicesClass, nullptr, CLSCTX_INPROC_SERVER, AccPropServicesInterface,
                     reinterpret_cast<void**>(&service));
    // Wine 8 has the service, but it takes no names; ours keeps them.
    void** setHwndPropStr = *reinterpret_cast<void***>(service) + 7;
    DWORD protection = 0;
    VirtualProtect(setHwndPropStr, sizeof(void*), PAGE_READWRITE, &protection);
    void* before = std::exchange(*setHwndPropStr, reinterpret_cast<void*>(KeepName));
    ForEachForm([](const Form& form, const Text& name) {
        std::string names;
        std::vector<RECT> passed;
        for (const HWND window : ControlsOf(form.Page())) {
            const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
            const bool isGroup = IsOf(window, _T("Button")) && (style & BS_TYPEMASK) == BS_GROUPBOX;
            const int id = GetDlgCtrlID(window);
            // The Container ID is shown by an edit that is never enabled.
            if ((style & WS_VISIBLE) == 0 || isGroup || IsOf(window, _T("Static")) || id == 1130) { continue; }
            names += '|' + Printable(NameSaid(window));
            // What comes before it lies above or to the left; but the buttons of the two port tables come last.
            RECT place = {};
            GetWindowRect(window, &place);
            for (const RECT& earlier : passed) {
                EXPECT_TRUE(earlier.bottom <= place.top || earlier.right <= place.left ||
                            (name == tabs::Media && id >= 1190))
                    << names;
            }
            passed.push_back(place);
        }
        EXPECT_EQ(names, Names.at(name));
    });
    *setHwndPropStr = before;
    service->Release();
    CoUninitialize();
    givenNames.clear();
}
