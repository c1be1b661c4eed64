// The ways in which tests count, break and record the calls of the program.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "headless.h"
#include "rpc.h"

namespace
{
constexpr LPCWSTR Path = u"SOFTWARE\\Headless\\Deep";

class HeadlessTest : public testing::Test
{
protected:
    void SetUp() override { Reset(); }
    void TearDown() override { Reset(); }

    static void Reset()
    {
        headless::ClearFaults();
        headless::ResetRegistry();
        headless::ResetCallCounts();
        headless::RecordRegistryCalls(false);
    }

    static LSTATUS Create(HKEY* key)
    {
        return RegCreateKeyExW(HKEY_LOCAL_MACHINE, Path, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, key,
                               nullptr);
    }

    // As a program stores a number: true when every call that matters succeeded.
    static bool Store(LPCWSTR name, DWORD number)
    {
        HKEY key = nullptr;
        if (Create(&key) != ERROR_SUCCESS)
        {
            return false;
        }
        LSTATUS status =
            RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof(number));
        RegCloseKey(key);
        return status == ERROR_SUCCESS;
    }

    static bool Read(LPCWSTR name, DWORD* number)
    {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, Path, 0, KEY_READ, &key) != ERROR_SUCCESS)
        {
            return false;
        }
        DWORD size = sizeof(*number);
        LSTATUS status =
            RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(number), &size);
        RegCloseKey(key);
        return status == ERROR_SUCCESS;
    }
};
}  // namespace

TEST_F(HeadlessTest, CountsOpenKeysAndForgetsThemOnReset)
{
    HKEY first = nullptr;
    HKEY second = nullptr;
    ASSERT_EQ(Create(&first), ERROR_SUCCESS);
    ASSERT_EQ(Create(&second), ERROR_SUCCESS);
    EXPECT_EQ(headless::OpenKeyCount(), 2u);
    RegCloseKey(second);
    RegCloseKey(second);
    RegCloseKey(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(headless::OpenKeyCount(), 1u);

    headless::ResetRegistry();
    EXPECT_EQ(headless::OpenKeyCount(), 0u);
    EXPECT_EQ(RegDeleteTreeW(first, nullptr), ERROR_INVALID_HANDLE);
    DWORD number = 0;
    EXPECT_FALSE(Read(u"Number", &number));
    ASSERT_EQ(Create(&second), ERROR_SUCCESS);
    EXPECT_NE(second, first);
    RegCloseKey(second);
}

TEST_F(HeadlessTest, FaultStrikesOnceAtTheNthUse)
{
    headless::FailCall("RegSetValueExW", 2, ERROR_NO_SYSTEM_RESOURCES);
    EXPECT_TRUE(Store(u"One", 1));
    EXPECT_FALSE(Store(u"Two", 2));
    EXPECT_TRUE(Store(u"Three", 3));
    EXPECT_EQ(headless::CallCount("RegSetValueExW"), 3u);

    DWORD number = 0xEE;
    EXPECT_TRUE(Read(u"One", &number));
    EXPECT_FALSE(Read(u"Two", &number));
    EXPECT_EQ(number, 1u);
    EXPECT_TRUE(Read(u"Three", &number));

    headless::FailCall("RegSetValueExW", 1, ERROR_ACCESS_DENIED);
    headless::FailCall("RegCreateKeyExW", 2, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(Store(u"One", 9));
    EXPECT_FALSE(Store(u"One", 9));
    EXPECT_TRUE(Store(u"One", 9));

    headless::FailCallsFrom("RegSetValueExW", 2, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(Store(u"One", 4));
    EXPECT_FALSE(Store(u"One", 5));
    EXPECT_FALSE(Store(u"One", 5));
    headless::ClearFaults();
    EXPECT_TRUE(Store(u"One", 5));
    EXPECT_EQ(headless::OpenKeyCount(), 0u);
}

TEST_F(HeadlessTest, FailedOpenGivesNoKeyAndFailedCloseStillCloses)
{
    HKEY key = HKEY_LOCAL_MACHINE;
    headless::FailCall("RegCreateKeyExW", 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Create(&key), ERROR_ACCESS_DENIED);
    EXPECT_EQ(key, nullptr);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, Path, 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);

    ASSERT_EQ(Create(&key), ERROR_SUCCESS);
    headless::FailCall("RegCloseKey", 1, ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(headless::OpenKeyCount(), 0u);
}

TEST_F(HeadlessTest, EachRegistryCallCanFailInTurn)
{
    headless::ResetCallCounts();
    ASSERT_TRUE(Store(u"Number", 1));
    const unsigned calls = headless::RegistryCallCount();
    ASSERT_EQ(calls, 3u);
    for (unsigned nth = 1; nth <= calls; ++nth)
    {
        headless::ResetRegistry();
        headless::FailAnyRegistryCall(nth, ERROR_ACCESS_DENIED);
        EXPECT_EQ(Store(u"Number", nth), nth == 3) << nth;
        EXPECT_EQ(headless::OpenKeyCount(), 0u) << nth;
        DWORD number = 0;
        EXPECT_EQ(Read(u"Number", &number), nth == 3) << nth;
        headless::ClearFaults();
    }
}

TEST_F(HeadlessTest, RecordsCallsInOrder)
{
    headless::RecordRegistryCalls(true);
    Store(u"Number", 0x01020304);
    DWORD number = 0;
    Read(u"Missing", &number);
    headless::RecordRegistryCalls(false);
    Store(u"Unseen", 1);

    const auto& calls = headless::RegistryCalls();
    ASSERT_EQ(calls.size(), 6u);
    const std::u16string path = std::u16string(u"HKEY_LOCAL_MACHINE\\") + Path;
    const char* const functions[] = {"RegCreateKeyExW", "RegSetValueExW",   "RegCloseKey",
                                     "RegOpenKeyExW",   "RegQueryValueExW", "RegCloseKey"};
    for (std::size_t i = 0; i < calls.size(); ++i)
    {
        EXPECT_EQ(calls[i].function, functions[i]);
        EXPECT_EQ(calls[i].key, path);
        EXPECT_EQ(calls[i].status, i == 4 ? ERROR_FILE_NOT_FOUND : ERROR_SUCCESS);
    }
    EXPECT_EQ(calls[1].value, u"Number");
    EXPECT_EQ(calls[1].type, DWORD{REG_DWORD});
    EXPECT_EQ(calls[1].data, (std::vector<BYTE>{4, 3, 2, 1}));
    EXPECT_EQ(calls[4].value, u"Missing");
}

TEST_F(HeadlessTest, OtherFunctionsFailToo)
{
    UUID uuid = {};
    uuid.Data1 = 0xEEEEEEEE;
    headless::FailCall("UuidCreate", 1, RPC_S_UUID_NO_ADDRESS);
    EXPECT_EQ(UuidCreate(&uuid), RPC_S_UUID_NO_ADDRESS);
    EXPECT_EQ(uuid.Data1, 0xEEEEEEEEu);
    EXPECT_EQ(UuidCreate(&uuid), RPC_S_OK);
    EXPECT_EQ(headless::CallCount("UuidCreate"), 2u);

    headless::FailCall("CreateMutexW", 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(CreateMutexW(nullptr, FALSE, u"HeadlessTest"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(OpenMutexW(SYNCHRONIZE, FALSE, u"HeadlessTest"), nullptr);
    EXPECT_EQ(headless::RegistryCallCount(), 0u);
}
