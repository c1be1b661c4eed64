// The editor on the MAUSB Media Settings page, with the MAUSB tool alone installed.
#pragma once

#include "resource.h"
#include "support/form.h"

#include <gtest/gtest.h>

class MediaPage : public testing::Test
{
protected:
    using Values = std::map<Text, StoredValue>;

    inline static const Text ToolKey = _T("SOFTWARE\\Halvane\\KauriQB");
    static constexpr LPCTSTR Tab = _T("MAUSB Media Settings");

    void SetUp() override
    {
        ClearSettings();
        InstallTools({KauriQB});
    }
    void TearDown() override { ClearSettings(); }

    static void Put(LPCTSTR name, const StoredValue& value) { Store(ToolKey, name, value); }
    static StoredValue Get(LPCTSTR name) { return Stored(ToolKey, name); }

    // Runs the script with the page in front for the first time.
    static void Run(const std::function<void(Sheet&)>& script)
    {
        RunEditor(
            [&script](Sheet& sheet)
            {
                ASSERT_TRUE(sheet.Select(Tab));
                script(sheet);
            });
    }
};
