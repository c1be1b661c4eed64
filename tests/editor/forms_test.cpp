// The names and tips of controls, their order, the exchange of each page, and where dialogs open.
#include "resource.h"
#include "support/scripts.h"

#include <afxwin.h>
#include <commctrl.h>

// Checksums of TextOf: any change of a name, a tip or the exchange changes them.
const std::map<Text, uint32_t> Checksums = {
    {tabs::General, 0x8DFDCB4D},       {tabs::Drivers, 0xD20DDB08},       {tabs::Chapter9, 0x5DC83323},
    {tabs::Waivers, 0x3C770B81},       {tabs::Xhci, 0x54C660AB},          {tabs::Identity, 0xF68BE003},
    {tabs::Media, 0xB9F46518},         {tabs::Protocol, 0xC77C7203},      {tabs::HostUnderTest, 0xEA3B0498},
    {titles::AdvancedTCP, 0x67B6330E}, {titles::ClientPorts, 0x074C6B09},
};

// The names of the controls that can have the focus, in their order, which must follow their places.
static std::string NamesOf(const Form& form)
{
    std::string names;
    std::vector<RECT> passed;
    for (const HWND control : ControlsOf(form.Page()))
    {
        const int id = GetDlgCtrlID(control);
        // The edit of the Container ID is always disabled.
        if (!form.IsShown(id) || ButtonTypeOf(control) == BS_GROUPBOX || IsOf(control, _T("Static")) ||
            id == IDC_CONTAINER_ID)
        {
            continue;
        }
        EXPECT_NE(NameOf(control), Text()) << id << " needs a text, a label directly before it, or AddName";
        names += " | " + Printable(NameOf(control));
        // Earlier controls are above it or to its left. The buttons of the port tables are the exception:
        // they come last.
        const RECT place = PlaceOf(control);
        for (const RECT& earlier : passed)
        {
            EXPECT_TRUE(earlier.bottom <= place.top || earlier.right <= place.left ||
                        NameOf(control).find(_T("Port Numbers")) != Text::npos)
                << names;
        }
        passed.push_back(place);
    }
    return names;
}

static std::string asked;

static LRESULT CALLBACK NoteQuestions(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR)
{
    if (message == WM_GETTEXT || message == BM_GETCHECK || message == LB_GETCURSEL || message == CB_GETCURSEL)
    {
        asked += ' ' + std::to_string(GetDlgCtrlID(control));
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

// The ids of the controls that an exchange reads.
static std::string ReadInExchange(const Form& form)
{
    asked.clear();
    for (const HWND control : ControlsOf(form.Page()))
    {
        SetWindowSubclass(control, NoteQuestions, 0, 0);
    }
    CWnd::FromHandlePermanent(form.Page())->UpdateData(TRUE);
    return asked;
}

static std::string TextOf(const Form& form)
{
    std::string text = "names" + NamesOf(form) + "\nexchange" + ReadInExchange(form) + '\n';
    for (const auto& [id, tip] : TipsOf(form.Page()))
    {
        text += "tip " + std::to_string(id) + ' ' + Printable(tip) + '\n';
    }
    return text;
}

static uint32_t ChecksumOf(const std::string& text)
{
    uint32_t sum = 0;
    for (const char character : text)
    {
        sum = sum * 31 + static_cast<unsigned char>(character);
    }
    return sum;
}

using FormsTest = SettingsTest;

TEST_F(FormsTest, NamesTipsAndTheExchangeMatchTheirChecksums)
{
    ForEachForm([](const Form& form, const Text& title) {
        const std::string text = TextOf(form);
        const auto checksum = Checksums.find(title);
        if (checksum == Checksums.end() || checksum->second != ChecksumOf(text))
        {
            ADD_FAILURE() << "names, tips and exchange do not match Checksums in forms_test.cpp; if the text "
                          << "below is right, its entry is {_T(\"" << Printable(title) << "\"), 0x"
                          << std::hex << std::uppercase << ChecksumOf(text) << "}:\n"
                          << text;
        }
    });
}

TEST_F(FormsTest, DialogsOpenOverTheirOwnerWithTheFocusOnTheirFirstControl)
{
    ForEachForm([](const Form& form, const Text& title) {
        if (form.Window() == form.Page())
        {
            EXPECT_EQ(GetDlgCtrlID(GetFocus()),
                      title == titles::AdvancedTCP ? IDC_TCP_SEND_DELAY : IDC_PORT_EDIT_0);
            const HWND owner = GetWindow(form.Window(), GW_OWNER);
            EXPECT_FALSE(IsWindowEnabled(owner));
            EXPECT_TRUE(Contains(PlaceOf(owner), PlaceOf(form.Window())));
            EXPECT_EQ(LOWORD(SendMessageW(form.Window(), DM_GETDEFID, 0, 0)), IDOK);
        }
    });
}
