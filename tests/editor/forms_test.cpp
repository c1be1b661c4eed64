// What pages and dialogs say to a screen reader and in tooltips, and the order of their controls for the Tab
// key and for the exchange.
#include "framework/ControlNames.h"
#include "support/scripts.h"

#include <afxwin.h>
#include <commctrl.h>


namespace
{
std::map<HWND, Text> givenNames;

HRESULT STDMETHODCALLTYPE KeepName(IAccPropServices*, HWND window, DWORD, DWORD, MSAAPROPID, LPCWSTR name)
{
    givenNames[window] = name;
    return S_OK;
}

// A given name, its own text, or the label directly before it.
Text NameSaid(HWND window)
{
    if (givenNames.count(window) != 0)
    {
        return givenNames[window];
    }
    const HWND label = IsOf(window, _T("Button")) ? window : GetWindow(window, GW_HWNDPREV);
    EXPECT_TRUE(label == window || IsOf(label, _T("Static")));
    return Form(label).Title();
}

// Of the controls that can take the focus, in their order, which is the order of reading.
std::string NamesSaid(HWND dialog)
{
    std::string names;
    std::vector<RECT> passed;
    for (const HWND window : ControlsOf(dialog))
    {
        const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
        const bool isGroup = IsOf(window, _T("Button")) && (style & BS_TYPEMASK) == BS_GROUPBOX;
        const int id = GetDlgCtrlID(window);
        // The Container ID is shown by an edit that is never enabled.
        if ((style & WS_VISIBLE) == 0 || isGroup || IsOf(window, _T("Static")) || id == 1130)
        {
            continue;
        }
        names += " | " + Printable(NameSaid(window));
        // What comes before it lies above or to the left; but the buttons of the two port tables come last.
        RECT place = {};
        GetWindowRect(window, &place);
        for (const RECT& earlier : passed)
        {
            EXPECT_TRUE(earlier.bottom <= place.top || earlier.right <= place.left ||
                        NameSaid(window).find(_T("Port Numbers")) != Text::npos)
                << names;
        }
        passed.push_back(place);
    }
    return names;
}

std::string asked;

LRESULT CALLBACK NoteQuestions(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR)
{
    if (message == WM_GETTEXT || message == BM_GETCHECK || message == LB_GETCURSEL || message == CB_GETCURSEL)
    {
        asked += ' ' + std::to_string(GetDlgCtrlID(control));
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

// The controls that an exchange asks for what they hold.
std::string AskedInExchange(const Form& form)
{
    asked.clear();
    const std::vector<HWND> controls = ControlsOf(form.Page());
    for (const HWND control : controls)
    {
        SetWindowSubclass(control, NoteQuestions, 0, 0);
    }
    CWnd::FromHandlePermanent(form.Page())->UpdateData(TRUE);
    for (const HWND control : controls)
    {
        RemoveWindowSubclass(control, NoteQuestions, 0);
    }
    return asked;
}

int helpCommands;

LRESULT CALLBACK CountHelp(int code, WPARAM wParam, LPARAM lParam)
{
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    helpCommands += message->message == WM_COMMAND && message->wParam == ID_HELP ? 1 : 0;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

using FormsTest = SettingsTest;
}  // namespace

TEST_F(FormsTest, FormsSayWhatTheyAreToSay)
{
    CoInitialize(nullptr);
    IAccPropServices* service = nullptr;
    CoCreateInstance(AccPropServicesClass, nullptr, CLSCTX_INPROC_SERVER, AccPropServicesInterface,
                     reinterpret_cast<void**>(&service));
    // Wine 8 has the service, but it takes no names; ours keeps them.
    void** setHwndPropStr = *reinterpret_cast<void***>(service) + 7;
    DWORD protection = 0;
    VirtualProtect(setHwndPropStr, sizeof(void*), PAGE_READWRITE, &protection);
    void* before = std::exchange(*setHwndPropStr, reinterpret_cast<void*>(KeepName));
    std::string said;
    ForEachForm([&said](const Form& form, const Text& name) {
        said +=
            Printable(name) + "\n  says" + NamesSaid(form.Page()) + "\n  asks" + AskedInExchange(form) + '\n';
        for (const int id : TipsOf(form.Page()))
        {
            const Text tip = TipText(form.Page(), id);
            said += "  tips " + std::to_string(id) + ' ' + std::string(tip.begin(), tip.end()) + '\n';
        }
    });
    *setHwndPropStr = before;
    service->Release();
    CoUninitialize();
    givenNames.clear();
    EXPECT_EQ(said, FileBeside(_T("forms.txt")));
}

// F1 as the system tells of it: taken by the application, which has no help, and by nobody in a message box.
TEST_F(FormsTest, HelpKeyIsTheApplicationsCommandAndDoesNoHarm)
{
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, CountHelp, nullptr, GetCurrentThreadId());
    const auto press = [](HWND window) {
        helpCommands = 0;
        HELPINFO info = {sizeof(info), HELPINFO_WINDOW, 0, window, 0, {}};
        SendMessageW(window, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
        EXPECT_GE(helpCommands, 1);
    };
    ForEachForm([&press](const Form& form, const Text& name) {
        press(GetWindow(form.Page(), GW_CHILD));
        press(form.Window());
        if (name == tabs::General)
        {
            WithDialog(
                _T("Box"), [&form] { MessageBoxW(form.Window(), _T("text"), _T("Box"), MB_OKCANCEL); },
                [&press](const Form& box) { press(box.Control(IDOK)); });
        }
    });
    UnhookWindowsHookEx(hook);
}

TEST_F(FormsTest, DialogsComeUpOverTheirOwnerWithTheFocusOnTheirFirstControl)
{
    ForEachForm([](const Form& form, const Text& name) {
        if (form.Window() == form.Page())
        {
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), name == titles::AdvancedTCP ? 1061 : 1188);
            const HWND owner = GetWindow(form.Window(), GW_OWNER);
            EXPECT_FALSE(IsWindowEnabled(owner));
            RECT inner = {};
            RECT outer = {};
            GetWindowRect(form.Window(), &inner);
            GetWindowRect(owner, &outer);
            EXPECT_NEAR(inner.left + inner.right, outer.left + outer.right, 2);
            EXPECT_NEAR(inner.top + inner.bottom, outer.top + outer.bottom, 2);
            EXPECT_EQ(LOWORD(SendMessageW(form.Window(), DM_GETDEFID, 0, 0)), IDOK);
        }
    });
}
