// The class library's file dialog over the item dialog: what it asks for and what it makes of the answer.
#include "afxdlgs.h"
#include "afxshellmanager.h"
#include "headless.h"

#include <shobjidl.h>

#include <gtest/gtest.h>

#include <functional>

namespace
{
constexpr int IdFileName = 0x47C;

std::function<void(HWND)> step;

void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD)
{
    const HWND dialog = FindWindowW(_T("#32770"), _T("Open"));
    if (dialog != nullptr)
    {
        KillTimer(nullptr, timer);
        step(dialog);
    }
}

class FileDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        owner = CreateWindowExW(0, _T("STATIC"), _T("Owner"), WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                200, nullptr, nullptr, nullptr, nullptr);
        parent.SubclassWindow(owner);
        headless::DeclareFolder(u"C:\\Firmware\\");
    }
    void TearDown() override
    {
        headless::ClearFaults();
        parent.DestroyWindow();
    }

    INT_PTR Run(LPCTSTR folder = _T("C:\\Firmware"))
    {
        CFileDialog dialog(TRUE, _T("hex"), _T("old.hex"), OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                           _T("Hex files (*.hex)|*.hex|All files (*.*)|*.*||"), &parent);
        dialog.m_ofn.lpstrInitialDir = folder;
        const INT_PTR result = dialog.DoModal();
        path = dialog.GetPathName();
        return result;
    }

    // Runs the dialog with a name typed and a button pressed by its command.
    INT_PTR RunTyping(LPCTSTR name, int button)
    {
        step = [=](HWND dialog)
        {
            SetDlgItemTextW(dialog, IdFileName, name);
            SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
        };
        SetTimer(nullptr, 0, 5, Look);
        return Run();
    }

    CShellManager shell;
    HWND owner = nullptr;
    CWnd parent;
    CString path;
};
}  // namespace

TEST_F(FileDialogTest, AsksForWhatItWasGiven)
{
    headless::AnswerFileDialog(u"D:\\other\\new.hex");
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(path, CString(_T("D:\\other\\new.hex")));

    const headless::FileDialogRequest& request = headless::LastFileDialog();
    using Filters = std::vector<std::pair<std::u16string, std::u16string>>;
    EXPECT_EQ(request.filters, (Filters{{u"Hex files (*.hex)", u"*.hex"}, {u"All files (*.*)", u"*.*"}}));
    EXPECT_EQ(request.defaultExtension, u"hex");
    EXPECT_EQ(request.fileName, u"old.hex");
    EXPECT_EQ(request.folder, u"C:\\Firmware");
    EXPECT_EQ(request.owner, owner);
    const DWORD wanted = FOS_FORCEFILESYSTEM | FOS_OVERWRITEPROMPT | FOS_FILEMUSTEXIST;
    EXPECT_EQ(request.options & wanted, wanted);
}

TEST_F(FileDialogTest, StartsInItsFolderOnlyWhereThatExists)
{
    headless::AnswerFileDialog(u"D:\\x.hex");
    Run(_T("c:\\FIRMWARE"));
    EXPECT_EQ(headless::LastFileDialog().folder, u"c:\\FIRMWARE");
    headless::AnswerFileDialog(u"D:\\x.hex");
    EXPECT_EQ(Run(_T("C:\\Gone")), IDOK);
    EXPECT_EQ(headless::LastFileDialog().folder, u"");
}

TEST_F(FileDialogTest, GivesNoPathWhenCancelledOrRefused)
{
    headless::AnswerFileDialog(u"");
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_TRUE(path.IsEmpty());
    headless::FailCall("CoCreateInstance", 1, static_cast<DWORD>(E_OUTOFMEMORY));
    EXPECT_EQ(Run(), IDCANCEL);
    headless::FailWindowClass(_T("EDIT"), 1, ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(FileDialogTest, TakesTheNameFromItsWindow)
{
    EXPECT_EQ(RunTyping(_T("E:\\a b\\full.bin"), IDOK), IDOK);
    EXPECT_EQ(path, CString(_T("E:\\a b\\full.bin")));
    EXPECT_EQ(RunTyping(_T("bare.bin"), IDOK), IDOK);
    EXPECT_EQ(path, CString(_T("C:\\Firmware\\bare.bin")));
    EXPECT_EQ(RunTyping(_T("E:\\v1.2\\plain"), IDOK), IDOK);
    EXPECT_EQ(path, CString(_T("E:\\v1.2\\plain.hex")));
    EXPECT_EQ(RunTyping(_T("E:\\unused.bin"), IDCANCEL), IDCANCEL);
    EXPECT_TRUE(path.IsEmpty());
}

TEST_F(FileDialogTest, KeepsItsOwnerWaitingUntilItIsAnswered)
{
    step = [this](HWND dialog)
    {
        EXPECT_FALSE(IsWindowEnabled(owner));
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
        TCHAR text[32] = {};
        GetDlgItemTextW(dialog, IdFileName, text, 32);
        EXPECT_EQ(CString(text), CString(_T("old.hex")));
        // Without a name there is nothing to open.
        SetDlgItemTextW(dialog, IdFileName, _T(""));
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_TRUE(IsWindowVisible(dialog));
        SendMessageW(dialog, WM_CLOSE, 0, 0);
    };
    SetTimer(nullptr, 0, 5, Look);
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetActiveWindow(), owner);
}

TEST_F(FileDialogTest, NeedsComToBeInitialised)
{
    void* dialog = &shell;
    CoUninitialize();
    EXPECT_EQ(
        CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog, &dialog),
        CO_E_NOTINITIALIZED);
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
}
