#pragma once

#include "framework/ControlNames.h"
#include "framework/ProductId.h"

#include <afxcmn.h>
#include <afxdlgs.h>

#include <memory>
#include <vector>

// One number or flag of a page. A page can exchange, read and write a table of these as a whole, in the order
// of the rows.
template <class PageType>
struct NumberSetting
{
    using Page = PageType;
    using Member = int Page::*;

    Member member;
    WideString name;  // of the REG_DWORD
    int control;
    void (*exchange)(CDataExchange*, int, int&) = DDX_Text;  // DDX_Check for a flag
};

// The base class of all pages. It defines when settings are loaded, shown, marked as modified and stored.
class CSettingsPage : public CPropertyPage
{
    DECLARE_DYNAMIC(CSettingsPage)

public:
    explicit CSettingsPage(UINT nIDTemplate) : CPropertyPage(nIDTemplate) {}
    // Destroys the tooltip control before the page's window and before the other members of this class.
    ~CSettingsPage() override { m_pToolTip.reset(); }

    // Whether the page belongs in the sheet: true if it names no tool, or if one of its tools is installed.
    bool ConcernsInstalledTool() const;

    BOOL OnInitDialog() override;
    BOOL OnApply() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    // Adds the tooltips of the page's controls with AddToolTip.
    virtual void InitToolTips() = 0;
    // Stores all members, changed or not. It does not update them from the controls.
    virtual void SaveSettings() = 0;
    // Loads the stored values into the members. Runs once, before the controls are filled.
    virtual void LoadSettings() = 0;
    // Enables and disables controls according to the members. Runs once, after the controls are filled.
    virtual void UpdateControlStates() {}

    // Updates all members from the controls. If this changes `member`, the page is marked as modified;
    // otherwise its mark is cleared. The mark therefore reflects only the latest event. If an edit does not
    // hold a number, the exchange stops there and the remaining members keep their values.
    virtual void CheckModified(int& member) { MarkIfChanged(member); }
    virtual void CheckModified(CString& member) { MarkIfChanged(member); }
    virtual void CheckModified(UINT& member) { MarkIfChanged(member); }
    virtual void CheckModified(WideString& member) { MarkIfChanged(member); }

    // Each of these opens `key` under HKEY_LOCAL_MACHINE for one value. A read accepts any registry type and
    // creates nothing; a write creates the key and the value if they do not exist. No failure is reported: a
    // value that cannot be written is lost.
    //
    // The read copies at most `size` bytes. The rest of the buffer does not change, nor does any of it if the
    // value is missing. The write stores a REG_BINARY, or nothing if `size` is 0.
    virtual void ReadBinaryValue(const WideString& key, const WideString& name, DWORD size, void* buffer);
    virtual void WriteBinaryValue(const WideString& key, const WideString& name, DWORD size,
                                  const void* buffer);
    // A REG_DWORD: a number, a check box's flag or a list's index. A value shorter than four bytes replaces
    // the low bytes of the member. If the value is missing or longer than four bytes, the member does not
    // change.
    virtual void ReadValue(const WideString& key, const WideString& name, int& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const int& member);
    virtual void ReadValue(const WideString& key, const WideString& name, UINT& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const UINT& member);
    // A REG_SZ, read up to its first NUL. If the value is missing, the member becomes empty.
    virtual void ReadValue(const WideString& key, const WideString& name, CString& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const CString& member);
    // A REG_DWORD, stored as 1 or 0. Any other number is read as true; a missing or longer value is read as
    // false.
    virtual void ReadValue(const WideString& key, const WideString& name, bool& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const bool& member);

    // These process all rows of a table in order.
    void ExchangeAll(CDataExchange* pDX, const auto& table)
    {
        for (const auto& row : table)
        {
            row.exchange(pDX, row.control, MemberOf(row));
        }
    }
    void ReadAll(const WideString& key, const auto& table)
    {
        for (const auto& row : table)
        {
            ReadValue(key, row.name, MemberOf(row));
        }
    }
    void WriteAll(const WideString& key, const auto& table)
    {
        for (const auto& row : table)
        {
            WriteValue(key, row.name, MemberOf(row));
        }
    }
    // Calls CheckModified for the member that belongs to the control.
    void CheckModifiedIn(const auto& table, UINT control)
    {
        for (const auto& row : table)
        {
            if (row.control == static_cast<int>(control))
            {
                CheckModified(MemberOf(row));
            }
        }
    }

    // For constructors. A page that names tools is shown only if one of them is installed.
    void AddProduct(const ProductId& product);
    void AddXhciProducts();
    // For constructors. Gives a control an accessible name, which screen readers announce. The page keeps the
    // pointer, so the text must outlive the page.
    void AddName(int id, LPCTSTR name) { m_names.emplace_back(id, name); }
    static bool IsAnyXhciToolInstalled();
    static bool IsAnyEhciToolInstalled();

    // For InitToolTips. The text is copied.
    void AddToolTip(int id, LPCTSTR text) { m_pToolTip->AddTool(GetDlgItem(id), text); }

    DECLARE_MESSAGE_MAP()

private:
    template <class Row>
    int& MemberOf(const Row& row)
    {
        return static_cast<typename Row::Page*>(this)->*row.member;
    }
    template <class Member>
    void MarkIfChanged(Member& member)
    {
        // UpdateData changes `member` through `this`, so a copy is needed.
        const Member before = member;  // NOLINT(performance-unnecessary-copy-initialization)
        UpdateData(TRUE);
        SetModified(!(before == member));
    }

    std::unique_ptr<CToolTipCtrl> m_pToolTip;  // created in OnInitDialog
    std::vector<ProductId> m_products;
    bool m_bAlwaysShown = true;
    ControlNames m_names;
};
