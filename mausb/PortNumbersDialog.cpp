#include "mausb/PortNumbersDialog.h"

#include "framework/ControlNames.h"
#include "framework/ToolTips.h"
#include "resource.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CPortNumbersDialog, CDialogEx)

// The range includes the labels and combo boxes between the edits, which send no EN_CHANGE.
BEGIN_MESSAGE_MAP(CPortNumbersDialog, CDialogEx)
    ON_CONTROL_RANGE(EN_CHANGE, IDC_PORT_EDIT_0, IDC_PORT_EDIT_3, &CPortNumbersDialog::OnPortText)
END_MESSAGE_MAP()

constexpr UINT MaxPort = 65535;

// By row.
constexpr int Edits[] = {IDC_PORT_EDIT_0, IDC_PORT_EDIT_1, IDC_PORT_EDIT_2, IDC_PORT_EDIT_3};
constexpr int ComboBoxes[] = {IDC_PORT_TYPE_0, IDC_PORT_TYPE_1, IDC_PORT_TYPE_2, IDC_PORT_TYPE_3};

// In the order of the packet types, starting with PacketTypeDefault (-1).
constexpr LPCTSTR PacketTypeTexts[] = {_T("Default"), _T("Mgmt/Control"), _T("Interrupt"), _T("Bulk")};

// The combo box item of a packet type. A stored type outside the list has no item: CB_ERR selects none.
static int ItemOf(int packetType)
{
    return packetType >= PacketTypeDefault && packetType <= PacketTypeBulk ? packetType + 1 : CB_ERR;
}

CPortNumbersDialog::CPortNumbersDialog(LPCTSTR title, PortTable& table, CWnd* parent)
    : CDialogEx(IDD_PORT_NUMBERS, parent), m_pszTitle(title), m_pPortTable(&table)
{
}

UINT CPortNumbersDialog::ParsePortText(const CString& text)
{
    if (text.FindOneOf(_T("123456789")) < 0)
    {
        return 0;
    }
    UINT port = 0;
    for (LPCTSTR digit = text; *digit >= _T('0') && *digit <= _T('9'); ++digit)
    {
        port = port * 10 + static_cast<UINT>(*digit - _T('0'));
        if (port > MaxPort)
        {
            return 0;
        }
    }
    return port;
}

BOOL CPortNumbersDialog::OnInitDialog()
{
    CDialogEx::OnInitDialog();
    SetWindowText(m_pszTitle);
    for (const int comboBox : ComboBoxes)
    {
        for (const LPCTSTR text : PacketTypeTexts)
        {
            GetDlgItem(comboBox)->SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
        }
    }
    for (int row = 0; row < RowCount; ++row)
    {
        SelectItem(ComboBoxes[row], ItemOf(PacketTypeDefault));
        GetDlgItem(ComboBoxes[row])->EnableWindow(FALSE);
        m_nRowPacketType[row] = PacketTypeDefault;
    }
    const int filled = static_cast<int>(std::min<size_t>(m_pPortTable->size(), RowCount));
    for (int row = 0; row < filled; ++row)
    {
        ShowPortRow(Edits[row], ComboBoxes[row], m_nRowPort[row], m_nRowPacketType[row], row);
    }
    NameControls(*this, {{IDC_PORT_TYPE_0, _T("Packet Type")},
                         {IDC_PORT_TYPE_1, _T("Packet Type")},
                         {IDC_PORT_TYPE_2, _T("Packet Type")},
                         {IDC_PORT_TYPE_3, _T("Packet Type")}});
    SetUpToolTips(*this, m_pToolTip, [this] { InitToolTips(); });
    return TRUE;
}

void CPortNumbersDialog::InitToolTips()
{
    for (const int edit : Edits)
    {
        m_pToolTip->AddTool(GetDlgItem(edit), _T("Enter a TCP port number."));
    }
    for (const int comboBox : ComboBoxes)
    {
        m_pToolTip->AddTool(
            GetDlgItem(comboBox),
            _T("Enter the types of packets you will send on this port.\n")
            _T("If you set it to Default, then all packets that aren't set by other ports will be ")
            _T("set on this port."));
    }
}

void CPortNumbersDialog::ShowPortRow(int editId, int comboId, UINT& rowPort, int& rowPacketType, int row)
{
    const PortEntry& entry = (*m_pPortTable)[static_cast<size_t>(row)];
    rowPort = entry.PortNumber;
    if (rowPort != 0)
    {
        CString text;
        text.Format(_T("%u"), rowPort);
        // This sends EN_CHANGE. The handler resets the row if the port is above 65535, and the lines below
        // restore it.
        GetDlgItem(editId)->SetWindowText(text);
    }
    rowPacketType = rowPort != 0 ? entry.PacketType : PacketTypeDefault;
    SelectItem(comboId, ItemOf(rowPacketType));
    GetDlgItem(comboId)->EnableWindow(rowPort != 0);
}

void CPortNumbersDialog::OnPortText(UINT id)
{
    for (int row = 0; row < RowCount; ++row)
    {
        if (Edits[row] == static_cast<int>(id))
        {
            OnPortTextChanged(Edits[row], ComboBoxes[row], m_nRowPacketType[row]);
        }
    }
}

void CPortNumbersDialog::OnPortTextChanged(int editId, int comboId, int& rowPacketType)
{
    const UINT port = PortInEdit(editId);
    if (port == 0)
    {
        rowPacketType = PacketTypeDefault;
        SelectItem(comboId, ItemOf(PacketTypeDefault));
    }
    GetDlgItem(comboId)->EnableWindow(port != 0);
}

void CPortNumbersDialog::OnOK()
{
    m_pPortTable->clear();
    for (int row = 0; row < RowCount; ++row)
    {
        CollectPortRow(Edits[row], ComboBoxes[row]);
    }
    CDialogEx::OnOK();
}

void CPortNumbersDialog::CollectPortRow(int editId, int comboId)
{
    const UINT port = PortInEdit(editId);
    m_pPortTable->push_back({port, static_cast<int>(GetDlgItem(comboId)->SendMessage(CB_GETCURSEL)) - 1});
}

UINT CPortNumbersDialog::PortInEdit(int editId) const
{
    CString text;
    GetDlgItem(editId)->GetWindowText(text);
    return ParsePortText(text);
}

void CPortNumbersDialog::SelectItem(int comboId, int item)
{
    GetDlgItem(comboId)->SendMessage(CB_SETCURSEL, static_cast<WPARAM>(item));
}

BOOL CPortNumbersDialog::PreTranslateMessage(MSG* pMsg)
{
    RelayToToolTips(m_pToolTip.get(), pMsg);
    return CDialogEx::PreTranslateMessage(pMsg);
}
