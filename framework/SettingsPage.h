// The base of all pages: when settings are read, shown, marked as changed and written.
#pragma once

#include "framework/ControlNames.h"
#include "framework/ProductId.h"

#include <afxcmn.h>
#include <afxdlgs.h>

#include <memory>
#include <vector>

class CSettingsPage : public CPropertyPage
{
    DECLARE_DYNAMIC(CSettingsPage)

public:
    explicit CSettingsPage(UINT nIDTemplate);
    // The tips go before all else.
    ~CSettingsPage() override { m_pToolTip.reset(); }

    // Whether some tool on this machine needs the page. True for a page that names no tool.
    bool ConcernsInstalledTool() const;

    BOOL OnInitDialog() override;
    BOOL OnApply() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    // Registers the tips of the page's controls, by AddToolTip.
    virtual void InitToolTips() = 0;
    // Writes the members as they stand, changed or not.
    virtual void SaveSettings() = 0;
    // Reads the values into the members, once, before any control holds one.
    virtual void LoadSettings() = 0;
    // Enables and disables controls by what the members say. Runs once the controls hold the members' values.
    virtual void UpdateControlStates() {}

    // Moves the controls into the members and marks the page by whether that changed this one. So the mark is
    // that of the latest change, whatever came before it.
    virtual void CheckModified(int& member);
    virtual void CheckModified(CString& member);
    virtual void CheckModified(UINT& member);
    virtual void CheckModified(WideString& member);

    virtual void ReadBinaryValue(const WideString& key, const WideString& name, DWORD size, void* buffer);
    virtual void WriteBinaryValue(const WideString& key, const WideString& name, DWORD size,
                                  const void* buffer);
    // A REG_DWORD: a number, a check box's flag or a list's index. What is not there leaves the member alone.
    virtual void ReadValue(const WideString& key, const WideString& name, int& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const int& member);
    virtual void ReadValue(const WideString& key, const WideString& name, UINT& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const UINT& member);
    // A REG_SZ. What is not there leaves the member empty.
    virtual void ReadValue(const WideString& key, const WideString& name, CString& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const CString& member);
    // A REG_DWORD, 1 or 0. What is not there gives false.
    virtual void ReadValue(const WideString& key, const WideString& name, bool& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const bool& member);

    // For constructors: the page is shown only if one of the tools so added is installed.
    void AddProduct(const ProductId& product);
    void AddXhciProducts();
    // For constructors: what screen readers are to say for a control, once the page is shown.
    void AddName(int id, LPCTSTR name) { m_names.emplace_back(id, name); }
    static bool IsAnyXhciToolInstalled();
    static bool IsAnyEhciToolInstalled();

    void AddToolTip(int id, LPCTSTR text) { m_pToolTip->AddTool(GetDlgItem(id), text); }

    DECLARE_MESSAGE_MAP()

private:
    template <class Member>
    void MarkIfChanged(Member& member);

    std::unique_ptr<CToolTipCtrl> m_pToolTip;  // made at first display
    std::vector<ProductId> m_products;
    bool m_bAlwaysShown = true;
    ControlNames m_names;
};
