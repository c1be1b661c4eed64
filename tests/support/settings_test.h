// A test that starts and ends with nothing stored that the editor reads or writes.
#pragma once

#include "support/registry.h"

#include <gtest/gtest.h>

class SettingsTest : public testing::Test
{
protected:
    void SetUp() override { ClearSettings(); }
    void TearDown() override { ClearSettings(); }
};
