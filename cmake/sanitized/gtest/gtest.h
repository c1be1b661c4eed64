// GoogleTest is built for Linux, so its header must be compiled without _WIN32.
#pragma once

#pragma push_macro("_WIN32")
#undef _WIN32
#include_next <gtest/gtest.h>
#pragma pop_macro("_WIN32")
