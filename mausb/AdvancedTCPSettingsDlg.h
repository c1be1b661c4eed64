// The Advanced TCP Settings dialog: edits the six socket options of the MAUSB tool in memory.
#pragma once

#include <afxcmn.h>
#include <afxdialogex.h>

#include <memory>

struct AdvancedTCPSettings
{
    UINT m_nSocketSendDelay = 0;  // milliseconds
    int m_nSndBuf = 0;            // bytes
    int m_nUseDefaultSndBuf = 1;
    int m_nRcvBuf = 0;  // bytes
    int m_nUseDefaultRcvBuf = 1;
    int m_nTcpNoDelay = 0;
};

class CAdvancedTCPSettingsDlg : public CDialogEx
{
    DECLARE_DYNAMIC(CAdvancedTCPSettingsDlg)

public:
    // Keeps a pointer to the record, which must outlive the dialog. OnOK changes the record.
    explicit CAdvancedTCPSettingsDlg(AdvancedTCPSettings& settings);

    DECLARE_MESSAGE_MAP()

protected:
    void DoDataExchange(CDataExchange* pDX) override;

public:
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnInitDialog() override;

protected:
    void OnOK() override;

    afx_msg void OnUseDefaultSndBuf();
    afx_msg void OnUseDefaultRcvBuf();

private:
    void InitToolTips();

    UINT m_nSocketSendDelay;
    AdvancedTCPSettings* m_pSettings;
    int m_nSndBuf;
    int m_nRcvBuf;
    int m_nTcpNoDelay;
    int m_nUseDefaultSndBuf;
    int m_nUseDefaultRcvBuf;
    std::unique_ptr<CToolTipCtrl> m_pToolTip;
};
