#include "afxdlgs.h"
#include "atlbase.h"

#include <objbase.h>
#include <shobjidl.h>

#include <algorithm>

// Splits "text|pattern|text|pattern||" in place into pairs that point into it.
static std::vector<COMDLG_FILTERSPEC> SplitFilter(TCHAR* filter, int length)
{
    std::vector<COMDLG_FILTERSPEC> pairs;
    TCHAR* const end = filter + length;
    std::replace(filter, end, _T('|'), _T('\0'));
    for (LPCTSTR text = filter; text < end && *text != 0;)
    {
        const LPCTSTR pattern = text + lstrlenW(text) + 1;
        pairs.push_back({text, pattern});
        text = pattern + lstrlenW(pattern) + 1;
    }
    return pairs;
}

static CString PathOf(const CComPtr<IFileOpenDialog>& dialog)
{
    CString path;
    CComPtr<IShellItem> item;
    LPWSTR text = nullptr;
    if (SUCCEEDED(dialog->GetResult(&item.p)) && SUCCEEDED(item->GetDisplayName(SIGDN_FILESYSPATH, &text)))
    {
        path = CString(text);
        CoTaskMemFree(text);
    }
    return path;
}

CFileDialog::CFileDialog(BOOL, LPCTSTR lpszDefExt, LPCTSTR lpszFileName, DWORD dwFlags, LPCTSTR lpszFilter,
                         CWnd* pParentWnd, DWORD, BOOL)
    : m_strDefExt(lpszDefExt),
      m_strFileName(lpszFileName),
      m_dwFlags(dwFlags),
      m_strFilter(lpszFilter),
      m_pParentWnd(pParentWnd)
{
}

INT_PTR CFileDialog::DoModal()
{
    CComPtr<IFileOpenDialog> dialog;
    if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog,
                                reinterpret_cast<void**>(&dialog.p))))
    {
        return IDCANCEL;
    }
    DWORD options = 0;
    dialog->GetOptions(&options);
    // FOS_OVERWRITEPROMPT equals OFN_OVERWRITEPROMPT. The item dialog has no read-only box for
    // OFN_HIDEREADONLY to hide.
    options |= m_dwFlags & OFN_OVERWRITEPROMPT;
    dialog->SetOptions(options | FOS_FORCEFILESYSTEM);
    const int length = m_strFilter.GetLength();
    const std::vector<COMDLG_FILTERSPEC> filter = SplitFilter(m_strFilter.GetBuffer(length), length);
    dialog->SetFileTypes(static_cast<UINT>(filter.size()), filter.data());
    dialog->SetDefaultExtension(m_strDefExt);
    dialog->SetFileName(m_strFileName);
    if (FAILED(dialog->Show(AfxGetSafeOwner(m_pParentWnd))))
    {
        return IDCANCEL;
    }
    m_strPathName = PathOf(dialog);
    return m_strPathName.IsEmpty() ? IDCANCEL : IDOK;
}
