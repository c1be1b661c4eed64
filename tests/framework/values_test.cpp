// How values of every kind, type and length reach members, and how members are stored.
#include "framework/SettingsPage.h"
#include "resource.h"
#include "support/settings_test.h"

#include <cstring>

namespace
{
// Under a part of SOFTWARE\Halvane that no page uses.
const Text Key = _T("SOFTWARE\\Halvane\\Scratch\\Below");
const Text Name = _T("Value");

// A page for its registry operations alone; it is never displayed.
class ValuePage : public CSettingsPage
{
public:
    ValuePage() : CSettingsPage(IDD_GENERAL_SETTINGS) {}

    using CSettingsPage::ReadBinaryValue;
    using CSettingsPage::ReadValue;
    using CSettingsPage::WriteBinaryValue;
    using CSettingsPage::WriteValue;

    template <class Member>
    Member Read(Member member)
    {
        ReadValue(Key, Name, member);
        return member;
    }

protected:
    void InitToolTips() override {}
    void SaveSettings() override {}
    void LoadSettings() override {}
};

class ValuesTest : public SettingsTest
{
protected:
    static void StoreBytes(const std::vector<BYTE>& bytes, DWORD type = REG_BINARY)
    {
        Store(Key, Name, {type, bytes});
    }

    ValuePage page;
};
}  // namespace

TEST_F(ValuesTest, ReadOfNothingCreatesNothing)
{
    BYTE buffer[2] = {1, 2};
    const auto readAll = [&]
    {
        EXPECT_EQ(page.Read(-7), -7);
        EXPECT_EQ(page.Read(0x80000007U), 0x80000007U);
        EXPECT_FALSE(page.Read(true));
        EXPECT_TRUE(page.Read(CString(_T("default"))).IsEmpty()) << "a text's default does not survive";
        page.ReadBinaryValue(Key, Name, 2, buffer);
        page.ReadBinaryValue(Key, Name, 2, nullptr);
        EXPECT_EQ(buffer[0], 1);
        WideString text = _T("kept");
        EXPECT_FALSE(ReadRegistryString(Key, Name, text));
        EXPECT_EQ(text, _T("kept"));
    };
    readAll();
    EXPECT_FALSE(KeyExists(_T("SOFTWARE\\Halvane\\Scratch")));
    // The same with the key there and no value.
    Store(Key, _T("Other"), Dword(1));
    readAll();
    EXPECT_EQ(StoredValues(Key).size(), 1U);
}

TEST_F(ValuesTest, WriteCreatesKeyAndValue)
{
    page.WriteValue(Key, Name, -2);
    EXPECT_EQ(Stored(Key, Name), Dword(0xFFFFFFFE));
    page.WriteValue(Key, Name, 0x80000000U);
    EXPECT_EQ(Stored(Key, Name), Dword(0x80000000));
    page.WriteValue(Key, Name, true);
    EXPECT_EQ(Stored(Key, Name), Dword(1));
    page.WriteValue(Key, Name, false);
    EXPECT_EQ(Stored(Key, Name), Dword(0));
    // n characters take 2n + 2 bytes, none take 2.
    page.WriteValue(Key, Name, CString());
    EXPECT_EQ(Stored(Key, Name), (StoredValue{REG_SZ, {0, 0}}));
    page.WriteValue(Key, Name, CString(_T("ab")));
    EXPECT_EQ(Stored(Key, Name), (StoredValue{REG_SZ, {'a', 0, 'b', 0, 0, 0}}));
    EXPECT_TRUE(WriteRegistryString(Key, Name, nullptr));
    EXPECT_EQ(Stored(Key, Name), Sz(_T("")));
    page.WriteBinaryValue(Key, Name, 3, "\1\2\3");
    EXPECT_EQ(Stored(Key, Name), Binary({1, 2, 3}));

    const Text other = _T("SOFTWARE\\Halvane\\Other");
    page.WriteBinaryValue(other, Name, 0, "x");
    page.WriteBinaryValue(other, Name, 1, nullptr);
    EXPECT_FALSE(KeyExists(other));
}

TEST_F(ValuesTest, NumbersTakeTheBytesOfAnyTypeThatFit)
{
    StoreBytes({0xCD, 0xAB});
    EXPECT_EQ(page.Read(0x12345678), 0x1234ABCD);
    EXPECT_EQ(page.Read(0x12345678U), 0x1234ABCDU);
    EXPECT_TRUE(page.Read(false));
    StoreBytes({});
    EXPECT_EQ(page.Read(42), 42);
    StoreBytes({1, 2, 3, 4, 5});
    EXPECT_EQ(page.Read(42), 42);
    Store(Key, Name, Sz(_T("A")));
    EXPECT_EQ(page.Read(-1), 'A');
    Store(Key, Name, Dword(0x80000000));
    EXPECT_EQ(page.Read(0), INT32_MIN);
}

TEST_F(ValuesTest, TextsTakeTheBytesOfAnyTypeUpToTheFirstNul)
{
    const auto read = [this] { return Text(page.Read(CString(_T("before")))); };
    Store(Key, Name, Dword(5));
    EXPECT_EQ(read(), Text(1, 5));
    StoreBytes({'a', 0, 'b', 0}, REG_SZ);
    EXPECT_EQ(read(), _T("ab")) << "no terminator";
    StoreBytes({'a', 0, 0, 0, 'b', 0}, REG_SZ);
    EXPECT_EQ(read(), _T("a"));
    StoreBytes({'a', 0, 'b'});
    EXPECT_EQ(read(), _T("ab")) << "half a character has 0 for the other half";
    StoreBytes({});
    EXPECT_EQ(read(), _T(""));
    const Text text(20000, _T('x'));
    Store(Key, Name, Sz(text.c_str()));
    EXPECT_EQ(read(), text);
}

TEST_F(ValuesTest, BytesAreCutToTheBufferAndLeaveItsRest)
{
    BYTE buffer[6];
    std::memset(buffer, 0xEE, sizeof(buffer));
    StoreBytes({1, 2}, REG_SZ);
    page.ReadBinaryValue(Key, Name, 4, buffer);
    EXPECT_EQ(std::vector<BYTE>(buffer, buffer + 6), (std::vector<BYTE>{1, 2, 0xEE, 0xEE, 0xEE, 0xEE}));
    StoreBytes({5, 6, 7, 8, 9, 10});
    page.ReadBinaryValue(Key, Name, 4, buffer);
    EXPECT_EQ(std::vector<BYTE>(buffer, buffer + 6), (std::vector<BYTE>{5, 6, 7, 8, 0xEE, 0xEE}));
}

TEST_F(ValuesTest, KeyOfATool)
{
    WideString path = _T("what stood there");
    MakeProductKeyPath(path, KauriQB);
    EXPECT_EQ(path, keys::Kauri);
}
