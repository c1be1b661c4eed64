// The Port Numbers dialog: edits up to four rows of a port table in memory.
#pragma once

#include "mausb/PortTable.h"

#include <afxcmn.h>
#include <afxdialogex.h>

#include <memory>

class CPortNumbersDialog : public CDialogEx
{
    DECLARE_DYNAMIC(CPortNumbersDialog)

public:
    // Keeps pointers to the title and the table, which must outlive the dialog. OnOK replaces the table's
    // contents with four entries in row order, including empty rows.
    CPortNumbersDialog(LPCTSTR title, PortTable& table, CWnd* parent);

    // The port number from 1 to 65535 at the start of the text, or 0 if there is none.
    static UINT ParsePortText(const CString& text);

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange*) override {}

public:
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnInitDialog() override;

protected:
    void OnOK() override;

    afx_msg void OnPortText(UINT id);

private:
    static constexpr int RowCount = 4;

    void ShowPortRow(int editId, int comboId, UINT& rowPort, int& rowPacketType, int row);
    void OnPortTextChanged(int editId, int comboId, int& rowPacketType);
    void CollectPortRow(int editId, int comboId);
    UINT PortInEdit(int editId) const;
    void SelectItem(int comboId, int item);
    void InitToolTips();

    LPCTSTR m_pszTitle;
    PortTable* m_pPortTable;
    UINT m_nRowPort[RowCount] = {};
    int m_nRowPacketType[RowCount] = {};
    std::unique_ptr<CToolTipCtrl> m_pToolTip;
};
