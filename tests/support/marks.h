#pragma once

#include "support/form.h"

using Events = std::vector<std::string>;

// What a page is told by its edits and buttons and tells its sheet of its mark while the steps run, in order: "1099
// changed", "1177 clicked", "marked", "unmarked".
Events EventsOf(const Sheet& sheet, const std::function<void()>& steps);
