// A user at the keyboard, beside whom another program's window may cover the editor.
#pragma once

#include "driver/editor.h"

// Presses and releases a virtual key, or types a digit.
void Press(int key);
// The control that has the focus in the program of that window.
HWND FocusOf(HWND window);
// Presses Tab until the focus returns to where it was. Calls `visit` for each control on the way, the first
// one included. Fails the test if Tab gets stuck, or a visit fails.
void TabThrough(HWND window, const std::function<void(HWND)>& visit);
// Opens the page of that title; fails the test if there is none. Opens the pages before it too.
void OpenPage(const Sheet& sheet, const Text& title);

// A window over the editor, which has the focus when it opens.
class Cover
{
public:
    Cover();
    ~Cover() { DestroyWindow(m_window); }
    Cover(const Cover&) = delete;
    Cover& operator=(const Cover&) = delete;

private:
    HWND m_window;
};
