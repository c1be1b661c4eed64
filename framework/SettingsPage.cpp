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
    if (CreateToolTips(*this, m_pToolTip))
    {
        InitToolTips();
        ActivateToolTips(*m_pToolTip);
    }
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

void CSettingsPage::AddToolTip(int id, LPCTSTR text)
{
    m_pToolTip->AddTool(GetDlgItem(id), text, nullptr, 0);
}

template <class Member>
void CSettingsPage::MarkIfChanged(Member& member)
{
    // Through the exchange the member changes, which is reached by another road.
    const Member before = member;  // NOLINT(performance-unnecessary-copy-initialization)
    UpdateData(TRUE);
    SetModified(!(before == member));
}

void CSettingsPage::CheckModified(int& member)
{
    MarkIfChanged(member);
}

void CSettingsPage::CheckModified(CString& member)
{
    MarkIfChanged(member);
}

void CSettingsPage::CheckModified(UINT& member)
{
    MarkIfChanged(member);
}

void CSettingsPage::CheckModified(WideString& member)
{
    MarkIfChanged(member);
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

void CSettingsPage::AddName(int id, LPCTSTR name)
{
    m_names.emplace_back(id, name);
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
    return m_bAlwaysShown || std::any_of(m_products.begin(), m_products.end(), IsProductInstalled);
}
