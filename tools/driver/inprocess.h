// Runs the editor within the tests and within the benchmark of registry access.
#pragma once

#include "driver/form.h"

#include <functional>

// Runs the steps, and calls the action once for each window with one of these titles that opens during them,
// up to the given number. Returns their count, or -1 if a window does not open or does not close within half
// a minute.
int ActDuring(const std::function<void()>& steps, const std::vector<Text>& titles,
              const std::function<void(const Form&)>& act, int most = 1);

// Runs the program's InitInstance until its sheet or its error box waits for input, and then lets the caller
// continue. The destructor cancels an open window, and lets InitInstance return. Only one object can exist at
// a time. If no window opens, or the page does not exist, this program ends with code 1.
class Editor : public Sheet
{
public:
    // Opens the page with this title, if one is given.
    explicit Editor(const Text& tab = {});
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;
    ~Editor() override;

    // False if the error box is open instead.
    bool HasSheet() const { return Title() == SheetTitle; }
};
