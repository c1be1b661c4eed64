// A window that keeps what its controls tell it.
#pragma once

#include <gtest/gtest.h>
#include <tchar.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

class ControlTest : public testing::Test
{
protected:
    using Text = std::basic_string<TCHAR>;
    using Codes = std::vector<int>;

    void SetUp() override;
    void TearDown() override;

    HWND Parent() const { return m_parent; }
    // 100 by 60, with its text as first contents.
    HWND Make(LPCTSTR className, DWORD style, LPCTSTR text = _T(""), int id = 1) const;

    static LRESULT Send(HWND control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    static LRESULT Send(HWND control, UINT message, WPARAM wParam, LPCTSTR text);
    static void Key(HWND control, int key);
    static void Type(HWND control, LPCTSTR characters);
    // Holds a key down until the test's end or the next call; 0 holds none.
    static void Hold(int key);
    static Text TextOf(HWND control);
    static bool HasTabStop(HWND control);

    // The notification codes since the last call.
    Codes Told();

    // Runs at each notification, after it has been noted.
    std::function<void(HWND control, int code)> m_handler;
    // The ids that sent the notifications of the last Told.
    std::vector<int> m_ids;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_parent = nullptr;
    std::vector<int> m_newIds;
    Codes m_codes;
};
