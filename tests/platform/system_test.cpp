// Named mutexes, UUIDs and the runtime's numbers in text, as the editor uses them.
#include <gtest/gtest.h>
#include <rpc.h>
#include <tchar.h>
#include <windows.h>

#include <string>

namespace
{
constexpr LPCTSTR MutexName = _T("{D5B4E4F2-5D0C-4C2C-9F0E-2C9B8F0F6A31}");

struct Scan
{
    int items;
    unsigned number = 7;

    explicit Scan(LPCTSTR text) { items = _sntscanf(text, 63, _T("%x"), &number); }
    Scan(int count, unsigned value) : items(count), number(value) {}
    bool operator==(const Scan& other) const { return items == other.items && number == other.number; }
};

template <class... Arguments>
std::basic_string<TCHAR> Format(LPCTSTR format, Arguments... arguments)
{
    TCHAR buffer[80];
    int length = _sntprintf(buffer, 80, format, arguments...);
    return length < 0 ? std::basic_string<TCHAR>() : std::basic_string<TCHAR>(buffer);
}
}  // namespace

TEST(SystemTest, MutexNameLivesAsLongAsAHandle)
{
    SetLastError(ERROR_CANCELLED);
    HANDLE first = CreateMutexW(nullptr, FALSE, MutexName);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SUCCESS});
    HANDLE second = CreateMutexW(nullptr, FALSE, MutexName);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ALREADY_EXISTS});
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);

    EXPECT_TRUE(CloseHandle(first));
    HANDLE third = OpenMutexW(SYNCHRONIZE, FALSE, MutexName);
    EXPECT_NE(third, nullptr);
    EXPECT_TRUE(CloseHandle(second));
    EXPECT_TRUE(CloseHandle(third));
    EXPECT_FALSE(CloseHandle(third));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});

    EXPECT_EQ(OpenMutexW(SYNCHRONIZE, FALSE, MutexName), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
    HANDLE again = CreateMutexW(nullptr, FALSE, MutexName);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SUCCESS});
    CloseHandle(again);
}

TEST(SystemTest, UuidsAreRandomAndNotNil)
{
    UUID first;
    UUID second;
    RPC_STATUS status = RPC_S_OK;
    UuidCreateNil(&first);
    EXPECT_TRUE(UuidIsNil(&first, &status));
    ASSERT_EQ(UuidCreate(&first), RPC_S_OK);
    ASSERT_EQ(UuidCreate(&second), RPC_S_OK);
    EXPECT_FALSE(UuidIsNil(&first, &status));
    EXPECT_FALSE(IsEqualGUID(first, second));
    EXPECT_EQ(first.Data3 >> 12, 4);
    EXPECT_EQ(first.Data4[0] >> 6, 2);
}

TEST(SystemTest, HexadecimalIsScannedAsTheRuntimeDoes)
{
    EXPECT_EQ(Scan(_T("1F")), Scan(1, 0x1F));
    EXPECT_EQ(Scan(_T(" \t0x1fg")), Scan(1, 0x1F));
    EXPECT_EQ(Scan(_T("-1")), Scan(1, 0xFFFFFFFF));
    EXPECT_EQ(Scan(_T("+a")), Scan(1, 0xA));
    EXPECT_EQ(Scan(_T("FFFFFFFF80001234")), Scan(1, 0x80001234));
    EXPECT_EQ(Scan(_T("10000000000000001")), Scan(1, 1));
    EXPECT_EQ(Scan(_T("0x")), Scan(0, 7));
    EXPECT_EQ(Scan(_T("0xg")), Scan(0, 7));
    EXPECT_EQ(Scan(_T("g")), Scan(0, 7));
    EXPECT_EQ(Scan(_T("- 1")), Scan(0, 7));
    EXPECT_EQ(Scan(_T("")), Scan(EOF, 7));
}

TEST(SystemTest, NumbersInTextAreThoseOf32Bits)
{
    EXPECT_EQ(_tcstoul(_T("9001"), nullptr, 10), 9001u);
    EXPECT_EQ(_tcstoul(_T("99999999999"), nullptr, 10), 0xFFFFFFFFu);
    EXPECT_EQ(_tcstoul(_T("99999999999999999999999"), nullptr, 10), 0xFFFFFFFFu);
    EXPECT_EQ(_tcstoul(_T("-1"), nullptr, 10), 0xFFFFFFFFu);
    EXPECT_EQ(_tcstoul(_T("0x10"), nullptr, 10), 0u);
    EXPECT_EQ(_tcstol(_T("-9999999999"), nullptr, 10), -0x7FFFFFFF - 1);
    EXPECT_EQ(_tcstol(_T("9999999999"), nullptr, 10), 0x7FFFFFFF);
    LPCTSTR text = _T("  12a");
    LPTSTR end = nullptr;
    EXPECT_EQ(_tcstol(text, &end, 10), 12);
    EXPECT_EQ(end - text, 4);
    EXPECT_EQ(_tcstol(text + 5, &end, 10), 0);
    EXPECT_EQ(end - text, 5);
}

TEST(SystemTest, FormatsNumbersAndText)
{
    EXPECT_EQ(Format(_T("{%08lX-%04hX-%02hhX}"), DWORD{0xAB}, 0xFFFF, 0xFE), _T("{000000AB-FFFF-FE}"));
    EXPECT_EQ(Format(_T("%u|%d|%5d|%-4u|%+d|%#x"), 0xFFFFFFFFu, -1, -3, 4u, 5, 255),
              _T("4294967295|-1|   -3|4   |+5|0xff"));
    EXPECT_EQ(Format(_T("%ls|%.2ls|%4ls|%c|%%"), _T("text"), _T("text"), _T("x"), _T('c')),
              _T("text|te|   x|c|%"));

    TCHAR buffer[5] = {_T('#'), _T('#'), _T('#'), _T('#'), _T('#')};
    EXPECT_EQ(_sntprintf(buffer, 3, _T("%d"), 1234), -1);
    EXPECT_EQ(buffer[3], _T('#'));
    EXPECT_EQ(_sntprintf(buffer, 5, _T("%d"), 1234), 4);
    EXPECT_EQ(buffer[4], 0);
}
