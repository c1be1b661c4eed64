// How values of every kind, type and length reach members, and how members are stored.
#include "framework/SettingsPage.h"
#include "resource.h"
#include "support/calls.h"
#include "support/registry.h"

namespace {
// Under a part of SOFTWARE\Halvane that no page uses.
const Text Key = _T("SOFTWARE\\Halvane\\Scratch\\Below");
const Text Name = _T("Value");

// A page for its registry operations alone; it is never displayed.
class ValuePage : public CSettingsPage {
public:
    ValuePage() : CSettingsPage(IDD_GENERAL_SETTINGS) {}

    using CSettingsPage::ReadBinaryValue;
    using CSettingsPage::ReadValue;
    using CSettingsPage::WriteBinaryValue;
    using CSettingsPage::WriteValue;

    template <class Member>
    Member Read(Member member) {
        ReadValue(Key, Name, member);
        return member;
    }

protected:
    void InitToolTips() override {}
    void SaveSettings() override {}
    void LoadSettings() override {}
};

class ValuesTest : public SettingsTest {
protected:
    // What stands in a buffer of six bytes once four have been asked for.
    std::vector<BYTE> ReadFour() {
        std::vector<BYTE> buffer(6, 0xEE);
        page.ReadBinaryValue(Key, Name, 4, buffer.data());
        return buffer;
    }
    void ExpectNothingRead() {
        EXPECT_EQ(page.Read(-7), -7);
        EXPECT_EQ(page.Read(0x80000007U), 0x80000007U);
        EXPECT_FALSE(page.Read(true));
        EXPECT_TRUE(page.Read(CString(_T("default"))).IsEmpty()) << "a text's default does not survive";
        EXPECT_EQ(ReadFour(), std::vector<BYTE>(6, 0xEE));
        page.ReadBinaryValue(Key, Name, 2, nullptr);
        WideString text = _T("kept");
        EXPECT_FALSE(ReadRegistryString(Key, Name, text));
        EXPECT_EQ(text, _T("kept"));
    }

    ValuePage page;
};
}  // namespace

TEST_F(ValuesTest, ReadOfNothingCreatesNothing) {
    ExpectNothingRead();
    EXPECT_FALSE(KeyExists(_T("SOFTWARE\\Halvane\\Scratch")));
    Store(Key, _T("Other"), Dword(1));
    ExpectNothingRead();
    Store(Key, Name, Dword(1));
    calls::Refuse("RegQueryValueExW", 1, ERROR_MORE_DATA, true);
    ExpectNothingRead();
    calls::Reset();
    // Refused at the second question, for the data.
    WideString text = _T("kept");
    calls::Refuse("RegQueryValueExW", 2, ERROR_MORE_DATA);
    EXPECT_FALSE(ReadRegistryString(Key, Name, text));
    EXPECT_EQ(text, _T("kept"));
    calls::Refuse("RegQueryValueExW", 2, ERROR_MORE_DATA);
    EXPECT_EQ(ReadFour(), std::vector<BYTE>(6, 0xEE));
}

TEST_F(ValuesTest, WriteCreatesKeyAndValue) {
    page.WriteValue(Key, Name, -2);
    EXPECT_EQ(Stored(Key, Name), Dword(0xFFFFFFFE));
    page.WriteValue(Key, Name, 0x80000000U);
    EXPECT_EQ(Stored(Key, Name), Dword(0x80000000));
    page.WriteValue(Key, Name, true);
    EXPECT_EQ(Stored(Key, Name), Dword(1));
    page.WriteValue(Key, Name, false);
    EXPECT_EQ(Stored(Key, Name), Dword(0));
    // n characters take 2n + 2 bytes, none take 2.
    page.WriteValue(Key, Name, CString(_T("ab")));
    EXPECT_EQ(Stored(Key, Name), (StoredValue{REG_SZ, {'a', 0, 'b', 0, 0, 0}}));
    page.WriteValue(Key, Name, CString());
    EXPECT_EQ(Stored(Key, Name), (StoredValue{REG_SZ, {0, 0}}));
    page.WriteBinaryValue(Key, Name, 3, "\1\2\3");
    EXPECT_EQ(Stored(Key, Name), Binary({1, 2, 3}));
    EXPECT_TRUE(WriteRegistryString(Key, Name, nullptr));
    EXPECT_EQ(Stored(Key, Name), Sz({}));
    calls::Refuse("RegSetValueExW", 1, ERROR_ACCESS_DENIED, true);
    EXPECT_FALSE(WriteRegistryString(Key, Name, _T("x")));
    EXPECT_FALSE(WriteRegistryDword(Key, Name, 1));
    const Text other = _T("SOFTWARE\\Halvane\\Other");
    page.WriteBinaryValue(other, Name, 0, "x");
    page.WriteBinaryValue(other, Name, 1, nullptr);
    EXPECT_FALSE(KeyExists(other));
}

TEST_F(ValuesTest, ReadTakesTheBytesOfAnyType) {
    const auto readText = [this] { return Text(page.Read(CString(_T("before")))); };
    Store(Key, Name, Binary({0xCD, 0xAB}));
    EXPECT_EQ(page.Read(0x12345678), 0x1234ABCD);
    EXPECT_EQ(page.Read(0x12345678U), 0x1234ABCDU);
    EXPECT_TRUE(page.Read(false));
    EXPECT_EQ(ReadFour(), (std::vector<BYTE>{0xCD, 0xAB, 0xEE, 0xEE, 0xEE, 0xEE}));
    Store(Key, Name, Binary({5, 6, 7, 8, 9}));
    EXPECT_EQ(page.Read(42), 42) << "does not fit";
    EXPECT_EQ(ReadFour(), (std::vector<BYTE>{5, 6, 7, 8, 0xEE, 0xEE}));
    Store(Key, Name, Binary({}));
    EXPECT_EQ(page.Read(42), 42);
    EXPECT_EQ(readText(), Text());
    Store(Key, Name, Sz(_T("A")));
    EXPECT_EQ(page.Read(-1), 'A');
    Store(Key, Name, Dword(5));
    EXPECT_EQ(readText(), Text(1, 5));
    Store(Key, Name, {REG_SZ, {'a', 0, 'b', 0}});
    EXPECT_EQ(readText(), _T("ab")) << "no terminator";
    Store(Key, Name, {REG_SZ, {'a', 0, 0, 0, 'b', 0}});
    EXPECT_EQ(readText(), _T("a"));
    Store(Key, Name, Binary({'a', 0, 'b'}));
    EXPECT_EQ(readText(), _T("ab")) << "half a character has 0 for the other half";
    const Text text(500000, _T('x'));
    Store(Key, Name, Sz(text));
    EXPECT_EQ(readText(), text);
}
