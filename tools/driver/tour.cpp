// Goes through the program's pages for ./run. For each picture, prints its place on the screen and its title,
// and waits for a line of input. Then changes a setting, and presses Apply and OK.
#include "driver/editor.h"
#include "resource.h"

#include <fcntl.h>
#include <io.h>
#include <cstdio>

constexpr DWORD PaintMilliseconds = 200;
// The buttons of MAUSB Media Settings that open a dialog.
constexpr int DialogButtons[] = {IDC_ADVANCED_TCP, IDC_TCP_CLIENT_PORTS};

static void TakePicture(HWND window, const Text& title)
{
    // Draws the title bar as active. Without a window manager no window is active.
    SendMessageW(GetAncestor(window, GA_ROOT), WM_NCACTIVATE, TRUE, 0);
    const RECT place = PlaceOf(window);
    Sleep(PaintMilliseconds);
    std::printf("%ldx%ld+%ld+%ld %s\n", place.right - place.left, place.bottom - place.top, place.left,
                place.top, Printable(title).c_str());
    std::fflush(stdout);
    while (std::getchar() != '\n' && !std::feof(stdin))
    {
    }
}

static void ShowDialogs(const EditorProcess& editor, const Sheet& sheet)
{
    for (const int button : DialogButtons)
    {
        sheet.ClickToOpen(button);
        const Form dialog(editor.WaitForWindowBeside(sheet.Window()));
        if (dialog.Window() != nullptr)
        {
            TakePicture(dialog.Window(), dialog.Title());
            dialog.ClickToOpen(IDCANCEL);
            WaitUntil([&dialog] { return !IsWindow(dialog.Window()); });
        }
    }
}

int main()
{
    _setmode(_fileno(stdout), _O_BINARY);
    const EditorProcess editor;
    const Sheet sheet = editor.WaitForSheet();
    if (sheet.Page() == nullptr)
    {
        EndProgram("The sheet did not open.");
    }
    for (int index = 0; index < sheet.PageCount(); ++index)
    {
        if (!sheet.SelectIndex(index))
        {
            EndProgram("Page " + std::to_string(index) + " did not open.");
        }
        // Only the first picture shows the tabs, so that a new page changes no other picture.
        TakePicture(index == 0 ? sheet.Window() : sheet.Page(), Form(sheet.Page()).Title());
        if (Form(sheet.Page()).Title() == L"MAUSB Media Settings")
        {
            ShowDialogs(editor, sheet);
        }
    }
    sheet.SelectIndex(0);
    sheet.Click(IDC_CERTIFICATION_MODE);
    sheet.Apply();
    if (!editor.EndBy(IDOK, sheet))
    {
        EndProgram("The sheet did not close.");
    }
    return 0;
}
