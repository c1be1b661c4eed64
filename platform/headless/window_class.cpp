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

int WINAPI GetClassNameW(HWND window, LPWSTR className, int size)
{
    const Window* found = Resolve(window);
    if (found == nullptr || size <= 0)
    {
        return 0;
    }
    return static_cast<int>(CopyText(className, static_cast<std::size_t>(size), found->windowClass->name));
}
