// The tooltip control: what it keeps of its tools, and its times and width.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>
#include <tchar.h>

#include <array>
#include <string>

namespace
{
using String = std::basic_string<TCHAR>;

class TooltipTest : public testing::Test
{
protected:
    void SetUp() override
    {
        INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_WIN95_CLASSES};
        ASSERT_TRUE(InitCommonControlsEx(&classes));
        owner = CreateWindowExW(0, _T("STATIC"), _T("Owner"), WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr,
                                nullptr, nullptr, nullptr);
        for (HWND& control : controls)
        {
            control = CreateWindowExW(0, _T("EDIT"), _T(""), WS_CHILD | WS_VISIBLE, 0, 0, 60, 20, owner,
                                      nullptr, nullptr, nullptr);
        }
        tips = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP, CW_USEDEFAULT, CW_USEDEFAULT,
                               CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, nullptr, nullptr);
        ASSERT_NE(tips, nullptr);
    }

    void TearDown() override { DestroyWindow(owner); }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageW(tips, message, wParam, lParam);
    }

    TTTOOLINFOW Tool(HWND control, LPTSTR text = nullptr) const
    {
        TTTOOLINFOW tool = {};
        tool.cbSize = sizeof(tool);
        tool.uFlags = TTF_IDISHWND;
        tool.hwnd = owner;
        tool.uId = reinterpret_cast<UINT_PTR>(control);
        tool.lpszText = text;
        return tool;
    }

    bool Add(TTTOOLINFOW tool) const { return Send(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) != 0; }

    String TextOf(HWND control) const
    {
        TCHAR text[80] = {};
        TTTOOLINFOW tool = Tool(control, text);
        Send(TTM_GETTEXTW, 80, reinterpret_cast<LPARAM>(&tool));
        return text;
    }

    // Automatic, reshow, shown, initial.
    std::array<LRESULT, 4> Delays() const
    {
        std::array<LRESULT, 4> delays = {};
        for (size_t kind = 0; kind < delays.size(); ++kind)
        {
            delays[kind] = Send(TTM_GETDELAYTIME, kind);
        }
        return delays;
    }

    HWND owner = nullptr;
    std::array<HWND, 2> controls = {};
    HWND tips = nullptr;
};
}  // namespace

TEST_F(TooltipTest, KeepsItsToolsWithCopiesOfTheirTexts)
{
    TCHAR text[] = _T("First");
    TTTOOLINFOW first = Tool(controls[0], text);
    first.lParam = 77;
    EXPECT_TRUE(Add(first));
    _tcscpy(text, _T("Later"));
    TTTOOLINFOW second = {};
    second.cbSize = sizeof(second);
    second.hwnd = owner;
    second.uId = 5;
    second.rect = {1, 2, 3, 4};
    second.lpszText = text;
    EXPECT_TRUE(Add(second));
    EXPECT_EQ(Send(TTM_ADDTOOLW), 0);
    EXPECT_EQ(Send(TTM_GETTOOLCOUNT), 2);
    EXPECT_EQ(TextOf(controls[0]), String(_T("First")));
    EXPECT_EQ(TextOf(controls[1]), String());

    TCHAR buffer[80] = {};
    TTTOOLINFOW found = {};
    found.cbSize = sizeof(found);
    found.lpszText = buffer;
    EXPECT_NE(Send(TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&found)), 0);
    EXPECT_EQ(found.uFlags, UINT{TTF_IDISHWND});
    EXPECT_EQ(found.hwnd, owner);
    EXPECT_EQ(found.uId, reinterpret_cast<UINT_PTR>(controls[0]));
    EXPECT_EQ(found.lParam, 77);
    EXPECT_EQ(String(buffer), String(_T("First")));
    EXPECT_NE(Send(TTM_ENUMTOOLSW, 1, reinterpret_cast<LPARAM>(&found)), 0);
    EXPECT_EQ(found.uId, UINT_PTR{5});
    EXPECT_EQ(found.rect.bottom, 4);
    EXPECT_EQ(Send(TTM_ENUMTOOLSW, 2, reinterpret_cast<LPARAM>(&found)), 0);
}

TEST_F(TooltipTest, FindsAToolByItsWindowAndId)
{
    TCHAR text[] = _T("Text");
    Add(Tool(controls[0], text));
    TTTOOLINFOW asked = Tool(controls[0]);
    asked.uFlags = 0;
    EXPECT_NE(Send(TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&asked)), 0);
    EXPECT_EQ(asked.uFlags, UINT{TTF_IDISHWND});
    asked = Tool(controls[1]);
    EXPECT_EQ(Send(TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&asked)), 0);

    TCHAR other[] = _T("Another text");
    TTTOOLINFOW changed = Tool(controls[0], other);
    Send(TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&changed));
    EXPECT_EQ(TextOf(controls[0]), String(other));

    Send(TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&asked));
    EXPECT_EQ(Send(TTM_GETTOOLCOUNT), 1);
    asked = Tool(controls[0]);
    Send(TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&asked));
    EXPECT_EQ(Send(TTM_GETTOOLCOUNT), 0);
    EXPECT_EQ(TextOf(controls[0]), String());
}

TEST_F(TooltipTest, TakesTheOlderAndShorterRecords)
{
    TCHAR text[] = _T("Text");
    TTTOOLINFOW tool = Tool(controls[0], text);
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    EXPECT_TRUE(Add(tool));
    EXPECT_EQ(TextOf(controls[0]), String(text));
    // A tool may come without a text.
    EXPECT_TRUE(Add(Tool(controls[1])));
    EXPECT_EQ(TextOf(controls[1]), String());
}

TEST_F(TooltipTest, KeepsItsWidthAndTimes)
{
    EXPECT_EQ(Send(TTM_GETMAXTIPWIDTH), -1);
    EXPECT_EQ(Send(TTM_SETMAXTIPWIDTH, 0, 300), -1);
    EXPECT_EQ(Send(TTM_SETMAXTIPWIDTH, 0, 200), 300);
    EXPECT_EQ(Send(TTM_GETMAXTIPWIDTH), 200);

    using Times = std::array<LRESULT, 4>;
    EXPECT_EQ(Delays(), (Times{500, 100, 5000, 500}));
    Send(TTM_SETDELAYTIME, TTDT_AUTOPOP, 30000);
    EXPECT_EQ(Delays(), (Times{500, 100, 30000, 500}));
    Send(TTM_SETDELAYTIME, TTDT_INITIAL, 50);
    Send(TTM_SETDELAYTIME, TTDT_RESHOW, 7);
    EXPECT_EQ(Delays()[TTDT_INITIAL], 50);
    EXPECT_EQ(Delays()[TTDT_RESHOW], 7);
    Send(TTM_SETDELAYTIME, TTDT_AUTOMATIC, 200);
    EXPECT_EQ(Delays(), (Times{200, 40, 2000, 200}));
}

TEST_F(TooltipTest, LivesHiddenBesideItsOwner)
{
    EXPECT_EQ(GetWindow(tips, GW_OWNER), owner);
    EXPECT_FALSE(IsWindowVisible(tips));
    EXPECT_NE(GetWindowLongW(tips, GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
    Send(TTM_ACTIVATE, TRUE);
    MSG message = {};
    message.hwnd = controls[0];
    message.message = WM_MOUSEMOVE;
    EXPECT_EQ(Send(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message)), 0);
    DestroyWindow(owner);
    EXPECT_FALSE(IsWindow(tips));
}

TEST_F(TooltipTest, OutlivesAToolItSubclassed)
{
    TCHAR text[] = _T("Text");
    TTTOOLINFOW tool = Tool(controls[0], text);
    tool.uFlags |= TTF_SUBCLASS;
    EXPECT_TRUE(Add(tool));
    DestroyWindow(controls[0]);
    EXPECT_EQ(Send(TTM_GETTOOLCOUNT), 1);
    EXPECT_EQ(TextOf(controls[0]), String(text));
}
