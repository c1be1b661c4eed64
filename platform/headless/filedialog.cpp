// The open-file dialog: a plain dialog with a name, OK and Cancel.
#include "filedialog.h"

#include <optional>

#include "headless.h"

namespace headless
{
namespace
{
constexpr int IdFileName = 0x47C;
constexpr int MaxPath = 1024;

FileDialogRequest lastRequest;
std::optional<std::u16string> nextAnswer;

std::u16string PathOf(IShellItem* item)
{
    LPWSTR text = nullptr;
    std::u16string path;
    if (item != nullptr && SUCCEEDED(item->GetDisplayName(SIGDN_FILESYSPATH, &text)))
    {
        path = text;
        CoTaskMemFree(text);
    }
    return path;
}

class FileOpenDialog final : public Counted<FileOpenDialog, IFileOpenDialog>
{
public:
    FileOpenDialog() { m_request.options = FOS_NOCHANGEDIR | FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override
    {
        return Answer(riid == IID_IUnknown || riid == IID_IModalWindow || riid == IID_IFileDialog ||
                          riid == IID_IFileOpenDialog,
                      object);
    }

    HRESULT STDMETHODCALLTYPE Show(HWND owner) override;

    HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types) override
    {
        for (UINT index = 0; index < count; ++index)
        {
            m_request.filters.emplace_back(types[index].pszName, types[index].pszSpec);
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetFileTypeIndex(UINT index) override
    {
        m_fileType = index;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetFileTypeIndex(UINT* index) override
    {
        *index = m_fileType;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetOptions(FILEOPENDIALOGOPTIONS options) override
    {
        m_request.options = options;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS* options) override
    {
        *options = m_request.options;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetDefaultFolder(IShellItem* folder) override
    {
        return m_request.folder.empty() ? SetFolder(folder) : S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetFolder(IShellItem* folder) override
    {
        m_request.folder = PathOf(folder);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetFileName(LPCWSTR name) override { return Keep(m_request.fileName, name); }
    HRESULT STDMETHODCALLTYPE GetFileName(LPWSTR* name) override
    {
        *name = CopyToTaskMemory(m_request.fileName);
        return *name == nullptr ? E_OUTOFMEMORY : S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetTitle(LPCWSTR title) override { return Keep(m_title, title); }
    HRESULT STDMETHODCALLTYPE SetDefaultExtension(LPCWSTR extension) override
    {
        return Keep(m_request.defaultExtension, extension);
    }
    HRESULT STDMETHODCALLTYPE GetResult(IShellItem** item) override
    {
        *item = m_result.empty() ? nullptr : MakeShellItem(m_result);
        return m_result.empty() ? E_FAIL : S_OK;
    }

    HRESULT STDMETHODCALLTYPE Advise(IFileDialogEvents*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFolder(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCurrentSelection(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetOkButtonLabel(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFileNameLabel(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddPlace(IShellItem*, FDAP) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Close(HRESULT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetClientGuid(REFGUID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ClearClientData() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetFilter(IShellItemFilter*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSelectedItems(IShellItemArray**) override { return E_NOTIMPL; }

private:
    static HRESULT Keep(std::u16string& target, LPCWSTR text)
    {
        target = text == nullptr ? u"" : text;
        return S_OK;
    }

    static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    bool Fill(HWND dialog) const;
    bool TakeName(HWND dialog);

    FileDialogRequest m_request;
    std::u16string m_title = u"Open";
    std::u16string m_result;
    UINT m_fileType = 1;
};

bool MakeControl(HWND dialog, LPCWSTR className, LPCWSTR text, int id, DWORD style, const RECT& units)
{
    RECT place = units;
    MapDialogRect(dialog, &place);
    return CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, place.left,
                           place.top, place.right - place.left, place.bottom - place.top, dialog,
                           reinterpret_cast<HMENU>(static_cast<LONG_PTR>(id)), nullptr, nullptr) != nullptr;
}

bool FileOpenDialog::Fill(HWND dialog) const
{
    SetWindowTextW(dialog, m_title.c_str());
    return MakeControl(dialog, u"EDIT", m_request.fileName.c_str(), IdFileName, WS_BORDER | ES_AUTOHSCROLL,
                       {7, 7, 193, 21}) &&
           MakeControl(dialog, u"BUTTON", u"&Open", IDOK, BS_DEFPUSHBUTTON, {89, 28, 139, 42}) &&
           MakeControl(dialog, u"BUTTON", u"Cancel", IDCANCEL, BS_PUSHBUTTON, {143, 28, 193, 42});
}

// False without a name: the dialog stays.
bool FileOpenDialog::TakeName(HWND dialog)
{
    WCHAR text[MaxPath] = {};
    GetDlgItemTextW(dialog, IdFileName, text, MaxPath);
    std::u16string name = text;
    if (name.empty())
    {
        return false;
    }
    const std::size_t lastPart = name.rfind(u'\\') + 1;
    if (!m_request.defaultExtension.empty() && name.find(u'.', lastPart) == std::u16string::npos)
    {
        name += u'.' + m_request.defaultExtension;
    }
    const bool full = name.starts_with(u"\\\\") || name.find(u':') == 1;
    std::u16string folder = m_request.folder.empty() ? u"C:\\" : m_request.folder;
    if (!folder.ends_with(u'\\'))
    {
        folder += u'\\';
    }
    m_result = full ? name : folder + name;
    return true;
}

INT_PTR CALLBACK FileOpenDialog::DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
    {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        if (!reinterpret_cast<FileOpenDialog*>(lParam)->Fill(dialog))
        {
            EndDialog(dialog, -1);
            return FALSE;
        }
        SetFocus(GetDlgItem(dialog, IdFileName));
        SendDlgItemMessageW(dialog, IdFileName, EM_SETSEL, 0, -1);
        return FALSE;
    }
    if (message != WM_COMMAND)
    {
        return FALSE;
    }
    auto* self = reinterpret_cast<FileOpenDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (LOWORD(wParam) == IDCANCEL || (LOWORD(wParam) == IDOK && self->TakeName(dialog)))
    {
        EndDialog(dialog, LOWORD(wParam));
    }
    return TRUE;
}

HRESULT STDMETHODCALLTYPE FileOpenDialog::Show(HWND owner)
{
    m_request.owner = owner;
    m_result.clear();
    lastRequest = m_request;
    if (nextAnswer)
    {
        m_result = *nextAnswer;
        nextAnswer.reset();
        return m_result.empty() ? HRESULT_FROM_WIN32(ERROR_CANCELLED) : S_OK;
    }
    // Style, extended style, no controls, place and size, and neither menu nor class nor title.
    constexpr DWORD Style = DS_MODALFRAME | DS_CENTER | WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE;
    alignas(DWORD) const WORD source[] = {LOWORD(Style), HIWORD(Style), 0, 0, 0, 0, 0, 200, 49, 0, 0, 0};
    const INT_PTR result = DialogBoxIndirectParamW(nullptr, reinterpret_cast<LPCDLGTEMPLATEW>(source), owner,
                                                   DialogProc, reinterpret_cast<LPARAM>(this));
    switch (result)
    {
    case IDOK:
        return S_OK;
    case IDCANCEL:
        return HRESULT_FROM_WIN32(ERROR_CANCELLED);
    default:
        return E_FAIL;
    }
}
}  // namespace

IFileOpenDialog* MakeFileOpenDialog()
{
    return new FileOpenDialog;
}

const FileDialogRequest& LastFileDialog()
{
    return lastRequest;
}

void AnswerFileDialog(const std::u16string& path)
{
    nextAnswer = path;
}
}  // namespace headless
