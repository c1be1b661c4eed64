#include "pages/Chapter9Dlg.h"

#include "resource.h"

IMPLEMENT_DYNAMIC(CChapter9Dlg, CSettingsPage)

BEGIN_MESSAGE_MAP(CChapter9Dlg, CSettingsPage)
    ON_BN_CLICKED(IDC_ALDER_SKIP_BOS, &CChapter9Dlg::OnAlderSkipBos)
    ON_BN_CLICKED(IDC_BIRCH_SKIP_BOS, &CChapter9Dlg::OnBirchSkipBos)
END_MESSAGE_MAP()

const WideString AlderKey = _T("SOFTWARE\\Halvane\\AlderQB");
const WideString BirchKey = _T("SOFTWARE\\Halvane\\BirchQB");

const WideString NameAlderSkipBos = _T("SkipBOSDescriptorLegacyDevicesAlderQB");
const WideString NameBirchSkipBos = _T("SkipBOSDescriptorLegacyDevicesBirchQB");

CChapter9Dlg::CChapter9Dlg() : CSettingsPage(IDD_CHAPTER9)
{
    AddProduct(BirchQB);
    AddProduct(AlderQB);
}

void CChapter9Dlg::DoDataExchange(CDataExchange* pDX)
{
    CSettingsPage::DoDataExchange(pDX);
    DDX_Check(pDX, IDC_ALDER_SKIP_BOS, SkipBOSDescriptorLegacyDevicesAlderQB);
    DDX_Check(pDX, IDC_BIRCH_SKIP_BOS, SkipBOSDescriptorLegacyDevicesBirchQB);
}

void CChapter9Dlg::LoadSettings()
{
    if (IsProductInstalled(AlderQB))
    {
        ReadValue(AlderKey, NameAlderSkipBos, SkipBOSDescriptorLegacyDevicesAlderQB);
    }
    if (IsProductInstalled(BirchQB))
    {
        ReadValue(BirchKey, NameBirchSkipBos, SkipBOSDescriptorLegacyDevicesBirchQB);
    }
}

void CChapter9Dlg::SaveSettings()
{
    if (IsProductInstalled(AlderQB))
    {
        WriteValue(AlderKey, NameAlderSkipBos, SkipBOSDescriptorLegacyDevicesAlderQB);
    }
    if (IsProductInstalled(BirchQB))
    {
        WriteValue(BirchKey, NameBirchSkipBos, SkipBOSDescriptorLegacyDevicesBirchQB);
    }
}

void CChapter9Dlg::UpdateControlStates()
{
    if (!IsProductInstalled(AlderQB))
    {
        GetDlgItem(IDC_ALDER_SKIP_BOS)->EnableWindow(FALSE);
    }
    if (!IsProductInstalled(BirchQB))
    {
        GetDlgItem(IDC_BIRCH_SKIP_BOS)->EnableWindow(FALSE);
    }
}

void CChapter9Dlg::InitToolTips()
{
    for (const int box : {IDC_ALDER_SKIP_BOS, IDC_BIRCH_SKIP_BOS})
    {
        AddToolTip(
            box,
            _T("If checked then do not run the BOS Descriptor test when the DUT reports USB Version less ")
            _T("than or equal to 2.00.  The test will exit with a warning."));
    }
}
