// COM and the shell's items, as far as the file dialog goes.
#include <cstdlib>
#include <cstring>
#include <set>

#include "fault.h"
#include "filedialog.h"
#include "headless.h"

const IID IID_IUnknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IShellItem = {0x43826D1E, 0xE718, 0x42EE, {0xBC, 0x55, 0xA1, 0xE2, 0x61, 0xC3, 0x7B, 0xFE}};
const IID IID_IModalWindow = {0xB4DB1657, 0x70D7, 0x485E, {0x8E, 0x3E, 0x6F, 0xCB, 0x5A, 0x5C, 0x18, 0x02}};
const IID IID_IFileDialog = {0x42F85136, 0xDB7E, 0x439C, {0x85, 0xF1, 0xE4, 0x07, 0x5D, 0x13, 0x5F, 0xC8}};
const IID IID_IFileOpenDialog = {
    0xD57C7288, 0xD4AD, 0x4768, {0xBE, 0x02, 0x9D, 0x96, 0x95, 0x32, 0xD9, 0x60}};
const CLSID CLSID_FileOpenDialog = {
    0xDC1C5A9C, 0xE88A, 0x4DDE, {0xA5, 0xA1, 0x60, 0xF8, 0x2A, 0x20, 0xAE, 0xF7}};

namespace headless
{
namespace
{
unsigned initialised = 0;

// As paths are compared: in small letters and without a backslash at the end.
std::u16string Fold(std::u16string path)
{
    CharLowerW(path.data());
    while (!path.empty() && path.back() == u'\\')
    {
        path.pop_back();
    }
    return path;
}

std::set<std::u16string>& Folders()
{
    static std::set<std::u16string> folders;
    return folders;
}

class ShellItem final : public Counted<ShellItem, IShellItem>
{
public:
    explicit ShellItem(std::u16string path) : m_path(std::move(path)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override
    {
        return Answer(riid == IID_IUnknown || riid == IID_IShellItem, object);
    }
    HRESULT STDMETHODCALLTYPE BindToHandler(IBindCtx*, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetParent(IShellItem**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDisplayName(SIGDN form, LPWSTR* name) override
    {
        const bool whole = form == SIGDN_FILESYSPATH || form == SIGDN_DESKTOPABSOLUTEPARSING;
        // With no backslash the whole path is its last part.
        *name = CopyToTaskMemory(whole ? m_path : m_path.substr(m_path.rfind(u'\\') + 1));
        return *name == nullptr ? E_OUTOFMEMORY : S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetAttributes(SFGAOF, SFGAOF*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Compare(IShellItem*, SICHINTF, int*) override { return E_NOTIMPL; }

private:
    std::u16string m_path;
};

template <class Object>
HRESULT HandOver(Object* made, REFIID riid, void** object)
{
    const HRESULT result = made->QueryInterface(riid, object);
    made->Release();
    return result;
}
}  // namespace

IShellItem* MakeShellItem(const std::u16string& path)
{
    return new ShellItem(path);
}

LPWSTR CopyToTaskMemory(const std::u16string& text)
{
    const std::size_t size = (text.size() + 1) * sizeof(WCHAR);
    auto* copy = static_cast<LPWSTR>(CoTaskMemAlloc(size));
    if (copy != nullptr)
    {
        std::memcpy(copy, text.c_str(), size);
    }
    return copy;
}

void DeclareFolder(const std::u16string& path)
{
    Folders().insert(Fold(path));
}
}  // namespace headless

using namespace headless;

HRESULT WINAPI CoInitializeEx(LPVOID, DWORD)
{
    DWORD error = 0;
    if (TakeFault("CoInitializeEx", &error))
    {
        return static_cast<HRESULT>(error);
    }
    return initialised++ == 0 ? S_OK : S_FALSE;
}

void WINAPI CoUninitialize()
{
    initialised -= initialised > 0 ? 1 : 0;
}

HRESULT WINAPI CoCreateInstance(REFCLSID clsid, LPUNKNOWN outer, DWORD, REFIID riid, LPVOID* object)
{
    if (object == nullptr)
    {
        return E_POINTER;
    }
    *object = nullptr;
    DWORD error = 0;
    if (TakeFault("CoCreateInstance", &error))
    {
        return static_cast<HRESULT>(error);
    }
    if (initialised == 0)
    {
        return CO_E_NOTINITIALIZED;
    }
    if (clsid != CLSID_FileOpenDialog)
    {
        return REGDB_E_CLASSNOTREG;
    }
    return outer != nullptr ? CLASS_E_NOAGGREGATION : HandOver(MakeFileOpenDialog(), riid, object);
}

LPVOID WINAPI CoTaskMemAlloc(SIZE_T size)
{
    return std::malloc(size);
}

void WINAPI CoTaskMemFree(LPVOID memory)
{
    std::free(memory);
}

HRESULT WINAPI SHCreateItemFromParsingName(LPCWSTR path, IBindCtx*, REFIID riid, void** object)
{
    *object = nullptr;
    if (path == nullptr || *path == 0)
    {
        return E_INVALIDARG;
    }
    return Folders().contains(Fold(path)) ? HandOver(MakeShellItem(path), riid, object)
                                          : HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
}
