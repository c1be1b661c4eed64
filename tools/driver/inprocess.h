// The editor within the program that acts on it: for the tests and the benchmark of registry access.
#pragma once

#include "driver/form.h"

#include <functional>

// Takes the steps, and acts on windows of these titles that open meanwhile, each once and at most so many.
// Gives their count; -1 if one does not open, or does not close, within half a minute.
int ActDuring(const std::function<void()>& steps, const std::vector<Text>& titles,
              const std::function<void(const Form&)>& act, int most = 1);

// Runs the program's InitInstance until its sheet, or its error box, waits for the user; the caller then goes
// on. The end of the scope cancels what is still open and returns from InitInstance. There is one at a time.
// Without a window, or without that page, this program ends with 1.
class Editor : public Sheet
{
public:
    // With the page of that tab in front.
    explicit Editor(const Text& tab = {});
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;
    ~Editor() override;

    // False if the error box is open.
    bool HasSheet() const { return Title() == SheetTitle; }
};
