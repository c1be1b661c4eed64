// Window classes.
#include <algorithm>

#include "control.h"
#include "tchar.h"
#include "unicode.h"
#include "window.h"

namespace headless
{
namespace
{
using Classes = std::vector<std::shared_ptr<const WindowClass>>;

constexpr ATOM FirstAtom = 0xC000;
constexpr ATOM DialogAtom = 0x8002;

Classes& AllClasses()
{
    static auto& classes = *new Classes;
    return classes;
}

Classes::iterator Search(LPCWSTR nameOrAtom)
{
    Classes& classes = AllClasses();
    return std::find_if(classes.begin(), classes.end(),
                        [&](const auto& candidate)
                        {
                            return IS_INTRESOURCE(nameOrAtom)
                                       ? candidate->atom == reinterpret_cast<ULONG_PTR>(nameOrAtom)
                                       : _tcsicmp(candidate->name.c_str(), nameOrAtom) == 0;
                        });
}

bool registeringSystemClasses = false;

ATOM AddClass(const WNDCLASSEXW& info, LPCWSTR name, ATOM atom)
{
    static ATOM nextAtom = FirstAtom;
    auto added = std::make_shared<WindowClass>();
    added->name = name;
    added->atom = atom != 0 ? atom : nextAtom++;
    added->info = info;
    added->info.lpszClassName = nullptr;
    added->system = registeringSystemClasses;
    AllClasses().push_back(added);
    return added->atom;
}

void EnsureSystemClasses()
{
    static bool done = false;
    if (done)
    {
        return;
    }
    done = true;
    registeringSystemClasses = true;
    WNDCLASSEXW info = {};
    info.cbSize = sizeof(info);
    info.style = CS_DBLCLKS | CS_SAVEBITS;
    info.lpfnWndProc = DefDlgProcW;
    info.cbWndExtra = DLGWINDOWEXTRA;
    AddClass(info, u"#32770", DialogAtom);
    RegisterControls();
    registeringSystemClasses = false;
}
}  // namespace

std::shared_ptr<const WindowClass> FindClass(LPCWSTR nameOrAtom)
{
    EnsureSystemClasses();
    auto found = nameOrAtom == nullptr ? AllClasses().end() : Search(nameOrAtom);
    if (found == AllClasses().end())
    {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    return *found;
}
}  // namespace headless

using namespace headless;

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* windowClass)
{
    EnsureSystemClasses();
    if (windowClass->cbSize != sizeof(WNDCLASSEXW) || windowClass->lpfnWndProc == nullptr ||
        IS_INTRESOURCE(windowClass->lpszClassName) || windowClass->cbWndExtra < 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (Search(windowClass->lpszClassName) != AllClasses().end())
    {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    return AddClass(*windowClass, windowClass->lpszClassName, 0);
}

ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass)
{
    const WNDCLASSEXW info = {
        sizeof(WNDCLASSEXW),       windowClass->style,         windowClass->lpfnWndProc,
        windowClass->cbClsExtra,   windowClass->cbWndExtra,    windowClass->hInstance,
        windowClass->hIcon,        windowClass->hCursor,       windowClass->hbrBackground,
        windowClass->lpszMenuName, windowClass->lpszClassName, nullptr};
    return RegisterClassExW(&info);
}

BOOL WINAPI UnregisterClassW(LPCWSTR className, HINSTANCE)
{
    const auto found = FindClass(className);
    if (found == nullptr)
    {
        SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
        return FALSE;
    }
    if (found.use_count() > 2)
    {
        SetLastError(ERROR_CLASS_HAS_WINDOWS);
        return FALSE;
    }
    AllClasses().erase(Search(className));
    return TRUE;
}

BOOL WINAPI GetClassInfoExW(HINSTANCE, LPCWSTR className, LPWNDCLASSEXW windowClass)
{
    const auto found = FindClass(className);
    if (found == nullptr)
    {
        SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
        return FALSE;
    }
    *windowClass = found->info;
    windowClass->lpszClassName = className;
    return found->atom;
}

BOOL WINAPI GetClassInfoW(HINSTANCE instance, LPCWSTR className, LPWNDCLASSW windowClass)
{
    WNDCLASSEXW info = {};
    const BOOL found = GetClassInfoExW(instance, className, &info);
    if (found)
    {
        *windowClass = {info.style,        info.lpfnWndProc,  info.cbClsExtra, info.cbWndExtra,
                        info.hInstance,    info.hIcon,        info.hCursor,    info.hbrBackground,
                        info.lpszMenuName, info.lpszClassName};
    }
    return found;
}

int WINAPI GetClassNameW(HWND window, LPWSTR className, int size)
{
    const Window* found = Resolve(window);
    if (found == nullptr || size <= 0)
    {
        return 0;
    }
    return static_cast<int>(CopyText(className, static_cast<std::size_t>(size), found->windowClass->name));
}

UINT WINAPI RealGetWindowClassW(HWND window, LPWSTR className, UINT size)
{
    return static_cast<UINT>(GetClassNameW(window, className, static_cast<int>(size)));
}

ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int index)
{
    const Window* found = Resolve(window);
    if (found == nullptr)
    {
        return 0;
    }
    const WNDCLASSEXW& info = found->windowClass->info;
    switch (index)
    {
    case GCLP_HBRBACKGROUND:
        return reinterpret_cast<ULONG_PTR>(info.hbrBackground);
    case GCLP_HCURSOR:
        return reinterpret_cast<ULONG_PTR>(info.hCursor);
    case GCLP_HICON:
        return reinterpret_cast<ULONG_PTR>(info.hIcon);
    case GCL_CBWNDEXTRA:
        return static_cast<ULONG_PTR>(info.cbWndExtra);
    case GCL_CBCLSEXTRA:
        return static_cast<ULONG_PTR>(info.cbClsExtra);
    case GCLP_WNDPROC:
        return reinterpret_cast<ULONG_PTR>(info.lpfnWndProc);
    case GCL_STYLE:
        return info.style;
    case GCW_ATOM:
        return found->windowClass->atom;
    default:
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
}

DWORD WINAPI GetClassLongW(HWND window, int index)
{
    return static_cast<DWORD>(GetClassLongPtrW(window, index));
}
