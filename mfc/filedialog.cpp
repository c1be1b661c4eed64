#include "afxdlgs.h"

#include <objbase.h>
#include <shobjidl.h>

#include <algorithm>

namespace
{
// Owns a reference to a COM object and releases it in the destructor.
template <class Interface>
class ComPointer
{
public:
    ComPointer() = default;
    ~ComPointer()
    {
        if (m_pointer != nullptr)
        {
            m_pointer->Release();
        }
    }
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;

    Interface* operator->() const { return m_pointer; }
    Interface** Receive() { return &m_pointer; }
    void** ReceiveVoid() { return reinterpret_cast<void**>(&m_pointer); }

private:
    Interface* m_pointer = nullptr;
};

// Splits "text|pattern|text|pattern||" in place into pairs that point into it.
std::vector<COMDLG_FILTERSPEC> SplitFilter(TCHAR* filter, int length)
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

CString PathOf(const ComPointer<IFileOpenDialog>& dialog)
{
    CString path;
    ComPointer<IShellItem> item;
    LPWSTR text = nullptr;
    if (SUCCEEDED(dialog->GetResult(item.Receive())) &&
        SUCCEEDED(item->GetDisplayName(SIGDN_FILESYSPATH, &text)))
    {
        path = CString(text);
        CoTaskMemFree(text);
    }
    return path;
}
}  // namespace

CFileDialog::CFileDialog(BOOL, LPCTSTR lpszDefExt, LPCTSTR lpszFileName, DWORD dwFlags, LPCTSTR lpszFilter,
                         CWnd* pParentWnd, DWORD, BOOL)
    : m_strFilter(lpszFilter), m_pParentWnd(pParentWnd)
{
    m_ofn.Flags = dwFlags;
    m_ofn.lpstrDefExt = lpszDefExt;
    m_ofn.lpstrFile = m_szFileName;
    m_ofn.nMaxFile = MAX_PATH;
    if (lpszFileName != nullptr)
    {
        lstrcpynW(m_szFileName, lpszFileName, MAX_PATH);
    }
}

INT_PTR CFileDialog::DoModal()
{
    ComPointer<IFileOpenDialog> dialog;
    if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog,
                                dialog.ReceiveVoid())))
    {
        return IDCANCEL;
    }
    DWORD options = 0;
    dialog->GetOptions(&options);
    // FOS_OVERWRITEPROMPT equals OFN_OVERWRITEPROMPT. The item dialog has no read-only box for
    // OFN_HIDEREADONLY to hide.
    options |= m_ofn.Flags & OFN_OVERWRITEPROMPT;
    dialog->SetOptions(options | FOS_FORCEFILESYSTEM);
    const int length = m_strFilter.GetLength();
    const std::vector<COMDLG_FILTERSPEC> filter = SplitFilter(m_strFilter.GetBuffer(length), length);
    if (!filter.empty())
    {
        dialog->SetFileTypes(static_cast<UINT>(filter.size()), filter.data());
    }
    if (m_ofn.lpstrDefExt != nullptr)
    {
        dialog->SetDefaultExtension(m_ofn.lpstrDefExt);
    }
    if (*m_ofn.lpstrFile != 0)
    {
        dialog->SetFileName(m_ofn.lpstrFile);
    }
    if (FAILED(dialog->Show(AfxGetSafeOwner(m_pParentWnd))))
    {
        return IDCANCEL;
    }
    m_strPathName = PathOf(dialog);
    return m_strPathName.IsEmpty() ? IDCANCEL : IDOK;
}
