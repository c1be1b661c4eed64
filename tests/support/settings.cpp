#include "support/settings.h"

#include "support/scripts.h"

#include <algorithm>

namespace
{
using enum Setting::Kind;

// The payload alignment that the second radio button stands for; its text is not the stored value.
constexpr DWORD AlignedToDword = 4;

DWORD NumberIn(const StoredValue& value)
{
    DWORD number = 0;
    std::copy_n(value.data.begin(), sizeof(number), reinterpret_cast<BYTE*>(&number));
    return number;
}

Text Digits(LPCTSTR format, DWORD number)
{
    CString text;
    text.Format(format, number);
    return text.GetString();
}

void EndIf(bool fault, const std::string& message)
{
    if (fault)
    {
        EndProgram(message);
    }
}

std::vector<Setting> g_settings = {
#include "settings.inc"
};

// Sets the kind of the control and a value other than the initial one, which differs from control to control.
void Examine(HWND control, Setting* setting)
{
    const LONG button = ButtonTypeOf(control);
    const bool isEdit = IsOf(control, _T("Edit"));
    const bool isText = setting->initial.type == REG_SZ;
    const DWORD number = isText || setting->initial.type == REG_BINARY ? 0 : NumberIn(setting->initial);
    const auto id = static_cast<DWORD>(GetDlgCtrlID(control));
    const HWND next = GetWindow(control, GW_HWNDNEXT);
    setting->id = static_cast<int>(id);
    if (button == BS_AUTORADIOBUTTON)
    {
        setting->secondId = GetDlgCtrlID(next);
        setting->kind = Radio;
        setting->changed = isText ? Sz(Form(next).Title()) : Dword(AlignedToDword);
    }
    else if (isEdit && isText)
    {
        setting->kind = Line;
        setting->changed = Sz(_T("D:\\some where ") + Decimal(id));
    }
    else if (isEdit)
    {
        const Text shown = Form(control).Title();
        setting->kind = shown == Digits(_T("%X"), number) && shown != Decimal(number) ? Hex : Number;
        const bool isSigned =
            setting->kind == Number && (GetWindowLongW(control, GWL_STYLE) & ES_NUMBER) == 0;
        setting->changed = Dword(isSigned ? 0 - id : number + 100 * id);
    }
    else if (button == BS_AUTOCHECKBOX ||
             (button < 0 && Form(GetParent(control)).ItemsOf(setting->id).size() > 1))
    {
        setting->kind = button < 0 ? List : Check;
        setting->changed = Dword(number == 0 ? 1 : number - 1);
    }
}

// Whether a user sets something by the control.
bool IsInput(HWND control)
{
    const LONG button = ButtonTypeOf(control);
    return (GetWindowLongW(control, GWL_STYLE) & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE &&
           !IsOf(control, _T("Static")) &&
           (button < 0 || button == BS_AUTOCHECKBOX || button == BS_AUTORADIOBUTTON);
}

// Before the first test: compares the pages of the reference with those of the sheet, and finds their
// controls. The first difference ends the program.
class FindControls : public testing::Environment
{
    void SetUp() override
    {
        ClearSettings();
        InstallTools(AllTools);
        KeepNames();
        const Editor sheet;
        const std::vector<Text> tabs = sheet.Tabs();
        for (const Text& tab : tabs)
        {
            EndIf(SettingsOf(tab).empty(),
                  "docs/settings.md has no section with a table for the page " + Quoted(tab));
        }
        for (const Text& tab : AllTabs())
        {
            EndIf(!sheet.Select(tab),
                  "the sheet has no page " + Quoted(tab) +
                      ": it needs a template with that title, whose id no other template has, its "
                      "constructor must add its tools, and CQBSettingsApp::RunSheet join it");
            FindOn(sheet, tab);
        }
        EndIf(tabs != AllTabs(),
              "docs/settings.md and CQBSettingsApp::RunSheet have different orders of pages");
    }

    static void FindOn(const Sheet& sheet, const Text& tab)
    {
        std::vector<HWND> inputs = ControlsOf(sheet.Page());
        std::erase_if(inputs, [](HWND control) { return !IsInput(control); });
        for (Setting& setting : g_settings)
        {
            if (setting.tab != tab || setting.control.empty())
            {
                continue;
            }
            const HWND control = FindControl(sheet, setting.control);
            EndIf(control == nullptr,
                  "the page " + Quoted(tab) + " has no control " + Quoted(setting.control) +
                      ", which docs/settings.md has for " + Printable(setting.name) +
                      ": the control needs that text, a label directly before it, or AddName");
            Examine(control, &setting);
            if (setting.kind != Fixed)
            {
                const Text shown = setting.ShownOn(sheet);
                const Text wanted = setting.TextFor(setting.initial);
                EndIf(shown != wanted, "docs/settings.md has the default " + Quoted(wanted) + " for " +
                                           Printable(setting.name) + ", but the page " + Quoted(tab) +
                                           " shows " + Quoted(shown) +
                                           ": the initial value of its member differs, or "
                                           "DoDataExchange or UpdateControlStates leaves it out");
            }
            std::erase_if(inputs, [&setting](HWND input) {
                return GetDlgCtrlID(input) == setting.id || GetDlgCtrlID(input) == setting.secondId;
            });
        }
        if (!inputs.empty())
        {
            EndProgram("docs/settings.md has no row for a control of the page " + Quoted(tab) + ": " +
                       Quoted(NameOf(inputs[0])));
        }
    }

    // The cell is "Box: name", or the name alone. For radio buttons it has both names, and the first one
    // counts.
    static HWND FindControl(const Sheet& sheet, const Text& cell)
    {
        for (const HWND control : ControlsOf(sheet.Page()))
        {
            const Text box = BoxOf(control);
            const Text place = (box.empty() ? box : box + _T(": ")) + NameOf(control);
            if (!IsOf(control, _T("Static")) &&
                (cell == place ||
                 (ButtonTypeOf(control) == BS_AUTORADIOBUTTON && cell.find(place + _T(", ")) == 0)))
            {
                return control;
            }
        }
        return nullptr;
    }

    static std::string Quoted(const Text& text) { return '"' + Printable(text) + '"'; }
};

[[maybe_unused]] const testing::Environment* const g_findControls =
    testing::AddGlobalTestEnvironment(new FindControls);

}  // namespace

bool Setting::IsLiveFor(const Tools& installed) const
{
    return tools.empty() ||
           std::find_first_of(tools.begin(), tools.end(), installed.begin(), installed.end()) != tools.end();
}

Text Setting::TextFor(const StoredValue& value) const
{
    return kind == Radio          ? Decimal(value == initial ? BST_CHECKED : BST_UNCHECKED)
           : value.type == REG_SZ ? reinterpret_cast<LPCTSTR>(value.data.data())
                                  : Digits(kind == Hex ? _T("%X") : _T("%d"), NumberIn(value));
}

Text Setting::ShownOn(const Form& page) const
{
    return kind == List                     ? Decimal(page.SelectionOf(id))
           : kind == Check || kind == Radio ? Decimal(page.CheckOf(id))
                                            : page.TextOf(id);
}

void Setting::ExpectShown(const Form& page, const StoredValue& value) const
{
    if (kind != Fixed)
    {
        EXPECT_EQ(ShownOn(page), TextFor(value))
            << Printable(name) << " is not shown as stored or entered: see LoadSettings and DoDataExchange";
    }
    for (const int button : kind == Radio ? std::vector{id, secondId} : std::vector<int>())
    {
        // On Windows an unchecked button checks itself when it gets the focus by Tab.
        const bool isTabStop = (GetWindowLongW(page.Control(button), GWL_STYLE) & WS_TABSTOP) != 0;
        EXPECT_EQ(isTabStop, page.CheckOf(button) == BST_CHECKED) << button;
        EXPECT_EQ(isTabStop, (value == initial) == (button == id)) << button;
    }
}

void Setting::Enter(const Form& page, const StoredValue& value) const
{
    const Text text = kind != Fixed ? TextFor(value) : Text();
    if (kind == Radio)
    {
        page.Click(value == initial ? id : secondId);
    }
    else if (kind == List)
    {
        page.Pick(id, static_cast<int>(NumberIn(value)));
    }
    else if (kind == Check && Decimal(page.CheckOf(id)) != text)
    {
        page.Click(id);
    }
    else if (kind != Fixed && kind != Check && !page.IsEnabled(id))
    {
        page.SetText(id, text);  // a disabled edit takes no keys
    }
    else if (kind != Fixed && kind != Check)
    {
        // A minus sign alone is no number and would prompt, so it is typed last.
        const size_t digits = text.find(_T('-')) == 0 ? 1 : 0;
        page.Retype(id, text.substr(digits));
        page.TypeInFront(id, text.substr(0, digits));
    }
}

const std::vector<Setting>& AllSettings()
{
    return g_settings;
}

std::vector<Setting> SettingsOf(const Text& tab)
{
    std::vector<Setting> settings = AllSettings();
    std::erase_if(settings, [&tab](const Setting& setting) { return setting.tab != tab; });
    return settings;
}

Tree TreeOf(const std::vector<Setting>& settings, ValueOfSetting value)
{
    Tree tree;
    for (const Setting& setting : settings)
    {
        tree[setting.key][setting.name] = setting.*value;
    }
    return tree;
}

std::vector<Text> AllTabs()
{
    std::vector<Text> tabs;
    for (const Setting& setting : AllSettings())
    {
        tabs.push_back(setting.tab);
    }
    tabs.erase(std::unique(tabs.begin(), tabs.end()), tabs.end());
    return tabs;
}
