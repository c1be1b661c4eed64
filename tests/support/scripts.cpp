#include "support/scripts.h"

#include "framework/ControlNames.h"
#include "resource.h"

#include <commctrl.h>
#include <prsht.h>

static LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                             DWORD_PTR list)
{
    Events& events = *reinterpret_cast<Events*>(list);
    if (message == PSM_CHANGED || message == PSM_UNCHANGED)
    {
        events.emplace_back(message == PSM_CHANGED ? "marked" : "unmarked");
    }
    else if (message == WM_COMMAND && lParam != 0 &&
             (HIWORD(wParam) == EN_CHANGE || HIWORD(wParam) == BN_CLICKED))
    {
        events.push_back(std::to_string(LOWORD(wParam)) +
                         (HIWORD(wParam) == EN_CHANGE ? " changed" : " clicked"));
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

// Gets a tool by its index. Its `hwnd` is the dialog that the tooltip control serves.
static bool GetTool(HWND control, size_t index, TTTOOLINFOW* tool)
{
    *tool = {};
    tool->cbSize = sizeof(*tool);
    return SendMessageW(control, TTM_ENUMTOOLSW, index, reinterpret_cast<LPARAM>(tool)) != 0;
}

// The names that the program gives, by control.
static std::map<HWND, Text> givenNames;

static HRESULT STDMETHODCALLTYPE KeepName(IAccPropServices*, HWND window, DWORD, DWORD, MSAAPROPID,
                                          LPCWSTR name)
{
    givenNames[window] = name;
    return S_OK;
}

static HRESULT STDMETHODCALLTYPE ForgetName(IAccPropServices*, HWND window, DWORD, DWORD, const MSAAPROPID*,
                                            int)
{
    givenNames.erase(window);
    return S_OK;
}

void KeepNames()
{
    LoadLibraryW(_T("oleacc.dll"));
    CoInitialize(nullptr);
    IAccPropServices* service = nullptr;
    CoCreateInstance(AccPropServicesClass, nullptr, CLSCTX_INPROC_SERVER, AccPropServicesInterface,
                     reinterpret_cast<void**>(&service));
    void** table = *reinterpret_cast<void***>(service);
    DWORD protection = 0;
    VirtualProtect(table, 10 * sizeof(void*), PAGE_READWRITE, &protection);
    table[7] = reinterpret_cast<void*>(KeepName);    // SetHwndPropStr
    table[9] = reinterpret_cast<void*>(ForgetName);  // ClearHwndProps
    service->Release();
    CoUninitialize();
}

void WithDialog(const Text& title, const std::function<void()>& open,
                const std::function<void(const Form&)>& script)
{
    const auto act = [&script](const Form& form) {
        script(form);
        // If the script has closed the dialog, this has no effect.
        PostMessageW(form.Window(), WM_COMMAND, IDCANCEL, 0);
    };
    EXPECT_EQ(ActDuring(open, {title}, act), 1) << Printable(title);
}

void WithDialog(const Text& title, const Form& opener, int button,
                const std::function<void(const Form&)>& script)
{
    const auto open = [&] { opener.Click(button); };
    WithDialog(title, open, script);
}

void ExpectEnabled(const Form& form, const std::vector<int>& ids, bool enabled)
{
    for (const int id : ids)
    {
        EXPECT_EQ(form.IsEnabled(id), enabled) << id;
    }
}

int CountPrompts(const std::function<void()>& steps)
{
    const auto confirm = [](const Form& box) {
        for (const HWND window : WindowsOf(GetCurrentThreadId()))
        {
            EXPECT_EQ(IsWindowEnabled(window) != 0, window == box.Window()) << "a prompt disables all others";
        }
        SendMessageW(box.Window(), WM_COMMAND, IDOK, 0);
    };
    return ActDuring(steps, {AfxGetApp()->m_strAppName.GetString()}, confirm, -1);
}

Events EventsOf(const Sheet& sheet, const std::function<void()>& steps)
{
    Events events;
    const HWND windows[] = {sheet.Page(), sheet.Window()};
    for (const HWND window : windows)
    {
        SetWindowSubclass(window, Note, 1, reinterpret_cast<DWORD_PTR>(&events));
    }
    steps();
    for (const HWND window : windows)
    {
        RemoveWindowSubclass(window, Note, 1);
    }
    return events;
}

void ForEachForm(const std::function<void(const Form&, const Text& title)>& check)
{
    {
        const Editor sheet;
        for (const Text& tab : sheet.Tabs())
        {
            SCOPED_TRACE(Printable(tab));
            ASSERT_TRUE(sheet.Select(tab));
            check(sheet, tab);
        }
        sheet.Select(tabs::Media);
        for (const auto& [button, title] :
             {std::pair{IDC_ADVANCED_TCP, titles::AdvancedTCP}, {IDC_TCP_CLIENT_PORTS, titles::ClientPorts}})
        {
            WithDialog(title, sheet, button,
                       [&check, &name = title](const Form& dialog) { check(dialog, name); });
        }
    }
    EXPECT_TRUE(givenNames.empty()) << "a name must be removed before its window is destroyed";
}

Text BoxOf(HWND control)
{
    Text title;
    const RECT inner = PlaceOf(control);
    RECT least = {};
    for (const HWND box : ControlsOf(GetParent(control)))
    {
        const RECT place = PlaceOf(box);
        if (ButtonTypeOf(box) == BS_GROUPBOX && box != control && Contains(place, inner) &&
            (title.empty() || place.right - place.left < least.right - least.left))
        {
            title = Form(box).Title();
            least = place;
        }
    }
    return title;
}

Text NameOf(HWND control)
{
    if (givenNames.count(control) != 0)
    {
        return givenNames[control];
    }
    const HWND label = GetWindow(control, GW_HWNDPREV);
    return ButtonTypeOf(control) >= 0  ? Form(control).Title()
           : IsOf(label, _T("Static")) ? Form(label).Title()
                                       : Text();
}

HWND TipControlOf(HWND dialog)
{
    TTTOOLINFOW tool;
    HWND control = nullptr;
    do
    {
        control = FindWindowExW(nullptr, control, TOOLTIPS_CLASSW, nullptr);
    } while (control != nullptr && (GetWindowThreadProcessId(control, nullptr) != GetCurrentThreadId() ||
                                    !GetTool(control, 0, &tool) || tool.hwnd != dialog));
    return control;
}

std::vector<std::pair<int, Text>> TipsOf(HWND dialog)
{
    std::vector<std::pair<int, Text>> tips;
    const HWND control = TipControlOf(dialog);
    TTTOOLINFOW tool;
    for (size_t index = 0; GetTool(control, index, &tool); ++index)
    {
        TCHAR text[1024] = {};
        tool.lpszText = text;
        SendMessageW(control, TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
        // A tool that is not identified by its window would need a rectangle, and no tool here has one.
        const bool isWindow = (tool.uFlags & TTF_IDISHWND) != 0;
        tips.emplace_back(isWindow ? GetDlgCtrlID(reinterpret_cast<HWND>(tool.uId)) : 0, text);
    }
    return tips;
}
