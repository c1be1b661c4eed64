#include "framework/SettingsPage.h"

#include "framework/ToolTips.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CSettingsPage, CPropertyPage)

BEGIN_MESSAGE_MAP(CSettingsPage, CPropertyPage)
END_MESSAGE_MAP()

CSettingsPage::CSettingsPage(UINT nIDTemplate) : CPropertyPage(nIDTemplate) {}

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
    ReadRegistryBytes(key, name, size, buffer);
}

void CSettingsPage::WriteBinaryValue(const WideString& key, const WideString& name, DWORD size,
                                     const void* buffer)
{
    WriteRegistryBytes(key, name, size, buffer);
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, int& member)
{
    member = static_cast<int>(ReadRegistryNumber(key, name, static_cast<DWORD>(member)));
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const int& member)
{
    WriteRegistryDword(key, name, static_cast<DWORD>(member));
}

void CSettingsPage::ReadValue(const WideString& key, const WideString& name, UINT& member)
{
    member = ReadRegistryNumber(key, name, member);
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
    member = ReadRegistryNumber(key, name, 0) != 0;
}

void CSettingsPage::WriteValue(const WideString& key, const WideString& name, const bool& member)
{
    WriteRegistryDword(key, name, member ? 1 : 0);
}
