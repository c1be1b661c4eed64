// The base of all pages: when settings are read, shown, marked as changed and written.
#pragma once

#include "framework/ControlNames.h"
#include "framework/ProductId.h"
#include "framework/SettingTable.h"

#include <afxcmn.h>
#include <afxdlgs.h>

#include <memory>
#include <vector>

class CSettingsPage : public CPropertyPage
{
    DECLARE_DYNAMIC(CSettingsPage)

public:
    explicit CSettingsPage(UINT nIDTemplate);
    // Destroys the tooltip control before the page's window and the other members of this class. The members
    // of the derived class are gone by then.
    ~CSettingsPage() override { m_pToolTip.reset(); }

    // Whether an installed tool needs the page. True for a page that names no tool.
    bool ConcernsInstalledTool() const;

    BOOL OnInitDialog() override;
    BOOL OnApply() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    // Adds the tips of the page's controls, by AddToolTip.
    virtual void InitToolTips() = 0;
    // Writes the members as they stand, changed or not.
    virtual void SaveSettings() = 0;
    // Reads the values into the members, once, before any control holds one.
    virtual void LoadSettings() = 0;
    // Enables and disables controls by the members. Runs once, when the controls hold the members' values.
    virtual void UpdateControlStates() {}

    // Moves the controls into the members, and marks the page if that changed this member; if not, it takes
    // the mark away. So the mark tells of the latest event only. If an edit holds no number the exchange
    // stops there, and the members behind it keep their values.
    virtual void CheckModified(int& member);
    virtual void CheckModified(CString& member);
    virtual void CheckModified(UINT& member);
    virtual void CheckModified(WideString& member);

    // All of these open `key` under HKEY_LOCAL_MACHINE for one value. A read takes the bytes of any registry
    // type and creates nothing; a write creates the key and the value. No failure is reported: a value that
    // cannot be written is lost.
    //
    // Reads at most `size` bytes; the bytes of the buffer behind a shorter value stay as they were, and all
    // do if there is no value. The write stores a REG_BINARY, and nothing if there are no bytes.
    virtual void ReadBinaryValue(const WideString& key, const WideString& name, DWORD size, void* buffer);
    virtual void WriteBinaryValue(const WideString& key, const WideString& name, DWORD size,
                                  const void* buffer);
    // A REG_DWORD: a number, a check box's flag or a list's index. A value of fewer than four bytes replaces
    // the low bytes of the member. A missing value, or one of more than four bytes, leaves the member alone.
    virtual void ReadValue(const WideString& key, const WideString& name, int& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const int& member);
    virtual void ReadValue(const WideString& key, const WideString& name, UINT& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const UINT& member);
    // A REG_SZ, up to its first NUL. A missing value makes the member empty.
    virtual void ReadValue(const WideString& key, const WideString& name, CString& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const CString& member);
    // A REG_DWORD, 1 or 0; any other number is read as true. A missing or too long value gives false.
    virtual void ReadValue(const WideString& key, const WideString& name, bool& member);
    virtual void WriteValue(const WideString& key, const WideString& name, const bool& member);

    // The same operations for all rows of a table, in its order.
    template <class Row, size_t Count>
    void ExchangeAll(CDataExchange* pDX, const Row (&table)[Count])
    {
        for (const Row& row : table)
        {
            row.exchange(pDX, row.control, MemberOf(row));
        }
    }
    template <class Row, size_t Count>
    void ReadAll(const WideString& key, const Row (&table)[Count])
    {
        for (const Row& row : table)
        {
            ReadValue(key, row.name, MemberOf(row));
        }
    }
    template <class Row, size_t Count>
    void WriteAll(const WideString& key, const Row (&table)[Count])
    {
        for (const Row& row : table)
        {
            WriteValue(key, row.name, MemberOf(row));
        }
    }
    // CheckModified on the member of that control.
    template <class Row, size_t Count>
    void CheckModifiedIn(const Row (&table)[Count], UINT control)
    {
        for (const Row& row : table)
        {
            if (row.control == static_cast<int>(control))
            {
                CheckModified(MemberOf(row));
            }
        }
    }

    // For constructors: the page is shown only if one of the tools added so is installed.
    void AddProduct(const ProductId& product);
    void AddXhciProducts();
    // For constructors: the name that a screen reader says for a control once the page is shown. The page
    // keeps the pointer.
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
    void MarkIfChanged(Member& member);

    std::unique_ptr<CToolTipCtrl> m_pToolTip;  // made at first display
    std::vector<ProductId> m_products;
    bool m_bAlwaysShown = true;
    ControlNames m_names;
};
