// The shell's items and its open-file dialog.
#pragma once

#include "objbase.h"

struct IBindCtx;
struct IFileDialogEvents;
struct IShellItemArray;
struct IShellItemFilter;

typedef ULONG SFGAOF;
typedef DWORD SICHINTF;
typedef DWORD FILEOPENDIALOGOPTIONS;

typedef enum SIGDN
{
    SIGDN_NORMALDISPLAY = 0,
    SIGDN_PARENTRELATIVEPARSING = static_cast<int>(0x80018001),
    SIGDN_DESKTOPABSOLUTEPARSING = static_cast<int>(0x80028000),
    SIGDN_FILESYSPATH = static_cast<int>(0x80058000)
} SIGDN;

typedef enum FDAP
{
    FDAP_BOTTOM = 0,
    FDAP_TOP = 1
} FDAP;

enum _FILEOPENDIALOGOPTIONS : DWORD
{
    FOS_OVERWRITEPROMPT = 0x00000002,
    FOS_STRICTFILETYPES = 0x00000004,
    FOS_NOCHANGEDIR = 0x00000008,
    FOS_PICKFOLDERS = 0x00000020,
    FOS_FORCEFILESYSTEM = 0x00000040,
    FOS_ALLNONSTORAGEITEMS = 0x00000080,
    FOS_NOVALIDATE = 0x00000100,
    FOS_ALLOWMULTISELECT = 0x00000200,
    FOS_PATHMUSTEXIST = 0x00000800,
    FOS_FILEMUSTEXIST = 0x00001000,
    FOS_CREATEPROMPT = 0x00002000,
    FOS_DONTADDTORECENT = 0x02000000,
    FOS_FORCESHOWHIDDEN = 0x10000000
};

typedef struct _COMDLG_FILTERSPEC
{
    LPCWSTR pszName;
    LPCWSTR pszSpec;
} COMDLG_FILTERSPEC;

struct IShellItem : public IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx* context, REFGUID handler, REFIID riid,
                                                    void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetParent(IShellItem** parent) = 0;
    // The text is freed with CoTaskMemFree.
    virtual HRESULT STDMETHODCALLTYPE GetDisplayName(SIGDN form, LPWSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAttributes(SFGAOF mask, SFGAOF* attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE Compare(IShellItem* other, SICHINTF hint, int* order) = 0;

protected:
    ~IShellItem() = default;
};

struct IModalWindow : public IUnknown
{
    // HRESULT_FROM_WIN32(ERROR_CANCELLED) if the user gave the dialog up.
    virtual HRESULT STDMETHODCALLTYPE Show(HWND owner) = 0;

protected:
    ~IModalWindow() = default;
};

struct IFileDialog : public IModalWindow
{
    virtual HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC* types) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFileTypeIndex(UINT index) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFileTypeIndex(UINT* index) = 0;
    virtual HRESULT STDMETHODCALLTYPE Advise(IFileDialogEvents* events, DWORD* cookie) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetOptions(FILEOPENDIALOGOPTIONS options) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS* options) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetDefaultFolder(IShellItem* folder) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFolder(IShellItem* folder) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFolder(IShellItem** folder) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCurrentSelection(IShellItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFileName(LPCWSTR name) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFileName(LPWSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetTitle(LPCWSTR title) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetOkButtonLabel(LPCWSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFileNameLabel(LPCWSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetResult(IShellItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddPlace(IShellItem* folder, FDAP place) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetDefaultExtension(LPCWSTR extension) = 0;
    virtual HRESULT STDMETHODCALLTYPE Close(HRESULT result) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetClientGuid(REFGUID guid) = 0;
    virtual HRESULT STDMETHODCALLTYPE ClearClientData() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFilter(IShellItemFilter* filter) = 0;

protected:
    ~IFileDialog() = default;
};

struct IFileOpenDialog : public IFileDialog
{
    virtual HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSelectedItems(IShellItemArray** items) = 0;

protected:
    ~IFileOpenDialog() = default;
};

extern "C" const IID IID_IShellItem;
extern "C" const IID IID_IModalWindow;
extern "C" const IID IID_IFileDialog;
extern "C" const IID IID_IFileOpenDialog;
extern "C" const CLSID CLSID_FileOpenDialog;

// Fails for a path that does not exist, with *object null. Which paths exist is for tests to say
// (headless.h).
HRESULT WINAPI SHCreateItemFromParsingName(LPCWSTR path, IBindCtx* context, REFIID riid, void** object);
