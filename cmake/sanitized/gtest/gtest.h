// GoogleTest is built for the machine, not for Windows, and has to be read likewise.
#pragma once

#pragma push_macro("_WIN32")
#undef _WIN32
#include_next <gtest/gtest.h>
#pragma pop_macro("_WIN32")
