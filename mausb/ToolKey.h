// Where the MAUSB tool reads its settings. All of its pages share the one key; no two share a value name.
#pragma once

#include "framework/ProductId.h"

// "SOFTWARE\Halvane\KauriQB"
const WideString& ToolKey();
