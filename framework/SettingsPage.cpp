#include "framework/SettingsPage.h"

#include "framework/ToolTips.h"

#include <algorithm>
#include <cstring>

IMPLEMENT_DYNAMIC(CSettingsPage, CPropertyPage)

BEGIN_MESSAGE_MAP(CSettingsPage, CPropertyPage)
END_MESSAGE_MAP()

BOOL CSettingsPage::OnInitDialog()
{
    LoadSettings();
    CPropertyPage::OnInitDialog();
    UpdateControlStates();
    NameControls(*this, m_names);
    SetUpToolTips(*this, m_pToolTip, [this] { InitToolTips(); });
    return TRUE;
}

BOOL CSettingsPage::OnApply()
{
    SaveSettings();
    return CPropertyPage::OnApply();
}

BOOL CSettingsPage::PreTranslateMessage(MSG* pMsg)
{
    RelayToToolTips(m_pToolTip.get(), pMsg);
    return CPropertyPage::PreTranslateMessage(pMsg);
}

void CSettingsPage::AddProduct(const ProductId& product)
{
    m_bAlwaysShown = false;
    m_products.push_back(product);
}

void CSettingsPage::AddXhciProducts()
{
    AddProduct(BirchQB);
    AddProduct(FirQB);
    AddProduct(GinkgoQB);
}

bool CSettingsPage::IsAnyXhciToolInstalled()
{
    return IsProductInstalled(BirchQB) || IsProductInstalled(FirQB) || IsProductInstalled(GinkgoQB);
}

bool CSettingsPage::IsAnyEhciToolInstalled()
{
    return IsProductInstalled(AlderQB) || IsProductInstalled(ElmQB) || IsProductInstalled(HazelQB);
}

bool CSettingsPage::ConcernsInstalledTool() const
{
    return m_bAlwaysShown || std::ranges::any_of(m_products, IsProductInstalled);
}

// The registry operations report no failure, because no page handles one.

void CSettingsPage::ReadBinaryValue(const WideString& key, const WideString& name, DWORD size, void* buffer)
{
    DWORD stored = 0;
    const auto value = buffer != nullptr ? ReadRegistryValue(key, name, &stored) : nullptr;
    if (value != nullptr)
    {
        std::memcpy(buffer, value.get(), std::min(stored, size));
    }
}

void CSettingsPage::WriteBinaryValue(const WideString& key, const WideString& name, DWORD size,
                                     const void* buffer)
{
    if (buffer != nullptr && size != 0)
    {
        WriteRegistryValue(key, name, REG_BINARY, buffer, size);
    }
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, int& member)
{
    auto number = static_cast<UINT>(member);
    ReadValue(key, name, number);
    member = static_cast<int>(number);
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const int& member)
{
    WriteRegistryDword(key, name, static_cast<DWORD>(member));
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, UINT& member)
{
    DWORD number = member;
    RegistryKey(key, KeyRead).ReadNumber(name, &number);
    member = number;
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const UINT& member)
{
    WriteRegistryDword(key, name, member);
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, CString& member)
{
    WideString text;
    ReadRegistryString(key, name, text);
    member = text.c_str();
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const CString& member)
{
    WriteRegistryString(key, name, member);
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, bool& member)
{
    UINT number = 0;
    ReadValue(key, name, number);
    member = number != 0;
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const bool& member)
{
    WriteRegistryDword(key, name, member ? 1 : 0);
}
