#include "mausb/MAUSBSettingsDlg.h"

#include "mausb/ToolKey.h"
#include "resource.h"

#include <cstring>

IMPLEMENT_DYNAMIC(CMAUSBSettingsDlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CMAUSBSettingsDlg, CSettingsPage)
    ON_CBN_SELCHANGE(IDC_PROTOCOL_VERSION, &CMAUSBSettingsDlg::OnProtocolVersion)
    ON_EN_CHANGE(IDC_MAX_TRANSFER_SIZE, &CMAUSBSettingsDlg::OnMaxUSBTransferSize)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_ALIGNMENT_BYTE, IDC_ALIGNMENT_DWORD, &CMAUSBSettingsDlg::OnAlignment)
    ON_BN_CLICKED(IDC_NEW_ID, &CMAUSBSettingsDlg::OnNewId)
    ON_BN_CLICKED(IDC_REFUSE_SLEEP, &CMAUSBSettingsDlg::OnRefuseSleepRequests)
    ON_BN_CLICKED(IDC_LINK_SLEEP, &CMAUSBSettingsDlg::OnLinkSleepCapability)
    ON_BN_CLICKED(IDC_USE_DEFAULT_MAX_TRANSFER_SIZE, &CMAUSBSettingsDlg::OnUseDefaultMaxUSBTransferSize)
END_MESSAGE_MAP()

const WideString NameProtocolVersion = _T("MAUSBProtocolVersion");
const WideString NameIsochPayloadAlignment = _T("IsochPayloadAlignment");
const WideString NameRootHubUUID = _T("RootHubUUID");
const WideString NameRefuseSleepRequests = _T("RefuseSleepRequests");
const WideString NameLinkSleepCapability = _T("LinkSleepCapability");
const WideString NameMaxUSBTransferSize = _T("MaxUSBTransferSize");
const WideString NameUseDefaultMaxUSBTransferSize = _T("UseDefaultMaxUSBTransferSize");

static bool IsNil(UUID& id)
{
    RPC_STATUS status = RPC_S_OK;
    return UuidIsNil(&id, &status) != 0;
}

CMAUSBSettingsDlg::CMAUSBSettingsDlg() : CSettingsPage(IDD_MAUSB_SETTINGS)
{
    UuidCreateNil(&m_RootHubUUID);
    AddProduct(KauriQB);
}

void CMAUSBSettingsDlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_PROTOCOL_VERSION, m_cbProtocolVersion);
    DDX_CBIndex(pDX, IDC_PROTOCOL_VERSION, m_nProtocolVersionIndex);
    DDX_Control(pDX, IDC_CONTAINER_ID, m_edContainerId);
    DDX_Control(pDX, IDC_REFUSE_SLEEP, m_btnRefuseSleepRequests);
    DDX_Check(pDX, IDC_REFUSE_SLEEP, m_nRefuseSleepRequests);
    DDX_Control(pDX, IDC_LINK_SLEEP, m_btnLinkSleepCapability);
    DDX_Check(pDX, IDC_LINK_SLEEP, m_nLinkSleepCapability);
    DDX_Control(pDX, IDC_MAX_TRANSFER_SIZE, m_edMaxUSBTransferSize);
    DDX_Text(pDX, IDC_MAX_TRANSFER_SIZE, m_nMaxUSBTransferSize);
    DDX_Control(pDX, IDC_USE_DEFAULT_MAX_TRANSFER_SIZE, m_btnUseDefaultMaxUSBTransferSize);
    DDX_Check(pDX, IDC_USE_DEFAULT_MAX_TRANSFER_SIZE, m_nUseDefaultMaxUSBTransferSize);
}

void CMAUSBSettingsDlg::LoadSettings()
{
    ReadValue(ToolKey(), NameProtocolVersion, m_strProtocolVersion);
    LoadIsochPayloadAlignment();
    ReadBinaryValue(ToolKey(), NameRootHubUUID, sizeof(m_RootHubUUID), &m_RootHubUUID);
    if (IsNil(m_RootHubUUID))
    {
        GenerateContainerId();
        WriteBinaryValue(ToolKey(), NameRootHubUUID, sizeof(m_RootHubUUID), &m_RootHubUUID);
    }
    ReadValue(ToolKey(), NameRefuseSleepRequests, m_nRefuseSleepRequests);
    ReadValue(ToolKey(), NameLinkSleepCapability, m_nLinkSleepCapability);
    ReadValue(ToolKey(), NameMaxUSBTransferSize, m_nMaxUSBTransferSize);
    ReadValue(ToolKey(), NameUseDefaultMaxUSBTransferSize, m_nUseDefaultMaxUSBTransferSize);
}

// The radio buttons stand for the numbers 1 and 4, which DDX_Radio cannot exchange.
void CMAUSBSettingsDlg::LoadIsochPayloadAlignment()
{
    int alignment = AlignedToByte;
    ReadValue(ToolKey(), NameIsochPayloadAlignment, alignment);
    m_nIsochPayloadAlignment = alignment == AlignedToDword ? AlignedToDword : AlignedToByte;
    GetDlgItem(m_nIsochPayloadAlignment == AlignedToDword ? IDC_ALIGNMENT_DWORD : IDC_ALIGNMENT_BYTE)
        ->SendMessage(BM_SETCHECK, BST_CHECKED);
    MoveAlignmentTabStop();
}

void CMAUSBSettingsDlg::SaveSettings()
{
    CString protocolVersion;
    m_cbProtocolVersion.GetLBText(m_cbProtocolVersion.GetCurSel(), protocolVersion);
    WriteValue(ToolKey(), NameProtocolVersion, protocolVersion);
    WriteValue(ToolKey(), NameIsochPayloadAlignment, m_nIsochPayloadAlignment);
    if (!IsNil(m_RootHubUUID))
    {
        WriteBinaryValue(ToolKey(), NameRootHubUUID, sizeof(m_RootHubUUID), &m_RootHubUUID);
    }
    WriteValue(ToolKey(), NameRefuseSleepRequests, m_nRefuseSleepRequests);
    WriteValue(ToolKey(), NameLinkSleepCapability, m_nLinkSleepCapability);
    WriteValue(ToolKey(), NameMaxUSBTransferSize, m_nMaxUSBTransferSize);
    WriteValue(ToolKey(), NameUseDefaultMaxUSBTransferSize, m_nUseDefaultMaxUSBTransferSize);
}

void CMAUSBSettingsDlg::UpdateControlStates()
{
    m_cbProtocolVersion.AddString(_T("MAUSB 1.0a"));
    const int found = m_strProtocolVersion.IsEmpty()
                          ? CB_ERR
                          : m_cbProtocolVersion.FindStringExact(0, m_strProtocolVersion);
    if (found != CB_ERR)
    {
        m_nProtocolVersionIndex = found;
    }
    // The list was still empty during the exchange in OnInitDialog.
    m_cbProtocolVersion.SetCurSel(m_nProtocolVersionIndex);
    OnUseDefaultMaxUSBTransferSize();
    ShowContainerId();
}

void CMAUSBSettingsDlg::InitToolTips()
{
    AddToolTip(IDC_PROTOCOL_VERSION,
               _T("Select the MAUSB Protocol for the MA USB device. Currently, only MAUSB ")
               _T("Version 1.0a is supported."));
    AddToolTip(IDC_USE_DEFAULT_MAX_TRANSFER_SIZE,
               _T("If checked, then use the default value for Max USB Transfer Size. The Max USB Transfer ")
               _T("Size field below is ignored."));
    AddToolTip(IDC_MAX_TRANSFER_SIZE, _T("The size of the largest USB transfer that the Dock can handle."));
    AddToolTip(IDC_ALIGNMENT_DWORD,
               _T("If checked, then MA USB device transmits and expects to receive DWORD-aligned ")
               _T("isochronous payload."));
    AddToolTip(IDC_ALIGNMENT_BYTE,
               _T("If checked, then MA USB device transmits and expects to receive byte-aligned ")
               _T("isochronous payload."));
    AddToolTip(IDC_NEW_ID, _T("Generate a new Container ID for the Dock, and for all integrated devices."));
    AddToolTip(IDC_REFUSE_SLEEP, _T("If checked, then respond to every SleepReq with REQUEST_DENIED."));
    AddToolTip(IDC_LINK_SLEEP, _T("If checked, then MA USB device has Link Sleep capability."));
}

bool CMAUSBSettingsDlg::GenerateContainerId()
{
    UUID id;
    UuidCreateNil(&id);
    if (UuidCreate(&id) == RPC_S_UUID_NO_ADDRESS)
    {
        return false;
    }
    m_RootHubUUID = id;
    return true;
}

void CMAUSBSettingsDlg::ShowContainerId()
{
    const UUID& id = m_RootHubUUID;
    TCHAR text[50] = {};
    _sntprintf(text, 50, _T("{%08lX-%04hX-%04hX-%02hhX%02hhX-%02hhX%02hhX%02hhX%02hhX%02hhX%02hhX}"),
               id.Data1, id.Data2, id.Data3, id.Data4[0], id.Data4[1], id.Data4[2], id.Data4[3], id.Data4[4],
               id.Data4[5], id.Data4[6], id.Data4[7]);
    m_edContainerId.SetWindowText(text);
}

void CMAUSBSettingsDlg::OnAlignment(UINT id)
{
    const int before = m_nIsochPayloadAlignment;
    m_nIsochPayloadAlignment = id == IDC_ALIGNMENT_DWORD ? AlignedToDword : AlignedToByte;
    MoveAlignmentTabStop();
    UpdateData(TRUE);
    SetModified(m_nIsochPayloadAlignment != before);
}

// An unchecked radio button checks itself when Tab moves the focus to it, so only the checked one may be a
// tab stop.
void CMAUSBSettingsDlg::MoveAlignmentTabStop()
{
    const DWORD byteStop = m_nIsochPayloadAlignment == AlignedToByte ? WS_TABSTOP : 0;
    GetDlgItem(IDC_ALIGNMENT_BYTE)->ModifyStyle(WS_TABSTOP, byteStop);
    GetDlgItem(IDC_ALIGNMENT_DWORD)->ModifyStyle(WS_TABSTOP, WS_TABSTOP & ~byteStop);
}

void CMAUSBSettingsDlg::OnNewId()
{
    const UUID before = m_RootHubUUID;
    if (GenerateContainerId())
    {
        ShowContainerId();
    }
    if (std::memcmp(&m_RootHubUUID, &before, sizeof(before)) != 0)
    {
        UpdateData(TRUE);
        SetModified(TRUE);
    }
}

void CMAUSBSettingsDlg::OnUseDefaultMaxUSBTransferSize()
{
    CheckModified(m_nUseDefaultMaxUSBTransferSize);
    const BOOL enabled = m_nUseDefaultMaxUSBTransferSize == 0;
    m_edMaxUSBTransferSize.EnableWindow(enabled);
    GetDlgItem(IDC_MAX_TRANSFER_SIZE_LABEL)->EnableWindow(enabled);
}
