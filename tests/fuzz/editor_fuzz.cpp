// Any registry under the editor: values of any types and lengths at the places that one page reads; then that
// page is opened, applied twice and closed. Now and then any list of installed tools instead.
#include "shell/QBSettingsApp.h"
#include "support/calls.h"
#include "support/scripts.h"

#include <prsht.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>

namespace
{
void Check(bool holds, const char* what)
{
    if (!holds)
    {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

LONG WINAPI OnException(EXCEPTION_POINTERS* exception)
{
    Check(exception->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION, "no address is wrong");
    return EXCEPTION_CONTINUE_SEARCH;
}

Text g_tab;  // the one to open; the last that there is if empty

struct Place
{
    Text key;  // stands for its subkeys if it ends in a backslash
    Text name;
    bool isText;
};
using Places = std::vector<Place>;

// Cuts the fuzzer's bytes into values to store; takes zeros when they have run out.
class Input
{
public:
    Input(const uint8_t* data, size_t size) : m_bytes(data, data + size) {}

    BYTE Byte() { return m_at < m_bytes.size() ? m_bytes[m_at++] : BYTE{0}; }
    void StoreAll(const Places& places)
    {
        while (m_at < m_bytes.size())
        {
            const size_t choice = Byte() % (places.size() + 1);
            const auto& [key, name, isText] = places[choice % places.size()];
            const Text subkey = key.back() == _T('\\') ? Name() : Text();
            const Text any = choice < places.size() ? name : Name();
            Store(key + subkey, any, Value(isText));
        }
    }

private:
    // A few bytes, or up to 255, or many of one kind. Wine's layout of texts reads wild addresses for some
    // characters beyond Latin-1, so a text has none of those.
    StoredValue Value(bool isText)
    {
        const BYTE form = Byte();
        const size_t count = form % 8 < 6 ? form % 8 : Byte();
        StoredValue value = {form / 8U % 12, {}};
        if (form % 8 == 6)
        {
            value.data.assign(count * 64, Byte() | 0x40);
        }
        else
        {
            for (size_t index = 0; index < count; ++index)
            {
                value.data.push_back(Byte());
            }
        }
        for (size_t index = 1; isText && index < value.data.size(); index += 2)
        {
            value.data[index] = 0;
        }
        return value;
    }
    // Digits often, for the ports' subkeys.
    Text Name()
    {
        Text name(Byte() % 16, _T('0'));
        for (TCHAR& character : name)
        {
            const BYTE byte = Byte();
            character = static_cast<TCHAR>(byte < 128 ? _T('0') + byte % 10 : byte);
        }
        return name;
    }

    const std::vector<BYTE> m_bytes;
    size_t m_at = 0;
};

// Of each tab; the last are for any list of tools: which pages there are shows then.
std::vector<Places> g_places;

bool g_closed;  // whether a window came and was closed again
Tree g_first;   // what the first Apply has left

LRESULT CALLBACK UseEditor(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_APP)
    {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (AfxGetMainWnd() == nullptr)
    {
        Check(g_tab.empty(), "the list of all tools is read");
        SendMessageW(FindWindowW(nullptr, titles::Error.c_str()), WM_COMMAND, IDOK, 0);
        g_closed = true;
        return 0;
    }
    const Sheet sheet(AfxGetMainWnd()->m_hWnd);
    Check(sheet.Select(g_tab.empty() ? sheet.Tabs().back() : g_tab), "every page opens");
    SendMessageW(sheet.Window(), PSM_APPLY, 0, 0);
    g_first = StoredSettings();
    SendMessageW(sheet.Window(), PSM_APPLY, 0, 0);
    sheet.Cancel();
    g_closed = true;
    return 0;
}

void RunEditor()
{
    static const HWND user =
        CreateWindowExW(0, _T("Static"), nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(user, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(UseEditor));
    // Reached by the first modal loop, whose ever it is.
    PostMessageW(user, WM_APP, 0, 0);
    g_dwInstanceMutexError = ERROR_SUCCESS;
    g_closed = false;
    g_first.clear();
    AfxGetApp()->InitInstance();
    Check(g_closed, "the editor shows itself and closes");
    Check(g_first.empty() || g_first == StoredSettings(), "a second Apply, and Cancel, change nothing");
    Check(calls::OpenKeys() == 0, "no key stays open");
}

// Where a page looks for settings. Ports are keys of any names below their table's.
Places PlacesOf(const Text& tab)
{
    Places places;
    for (const Setting& setting : SettingsOf(tab))
    {
        const Text table = setting.key.substr(0, setting.key.rfind(_T('\\')) + 1);
        const bool isPort = setting.name == _T("PacketType");
        places.push_back({isPort ? table : setting.key, setting.name, setting.initial.type == REG_SZ});
    }
    return places;
}
}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // Wine would end the program before the fuzzer has kept the input.
    std::signal(SIGABRT, SIG_DFL);
    AddVectoredExceptionHandler(1, OnException);
    std::transform(AllTabs.begin(), AllTabs.end(), std::back_inserter(g_places), PlacesOf);
    g_places.emplace_back();
    for (const ProductId& tool : AllTools)
    {
        g_places.back().push_back({keys::Installed, tool, false});
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Input input(data, size);
    const size_t choice = input.Byte() % g_places.size();
    g_tab = choice < AllTabs.size() ? AllTabs[choice] : Text();
    ClearSettings();
    if (!g_tab.empty())
    {
        InstallTools(AllTools);
    }
    input.StoreAll(g_places[choice]);
    RunEditor();
    return 0;
}
