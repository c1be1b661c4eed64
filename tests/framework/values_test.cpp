// How values of every kind, type and length reach members, and how members are stored.
#include "framework/SettingsPage.h"
#include "resource.h"
#include "support/calls.h"
#include "support/registry.h"

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

protected:
    void InitToolTips() override {}
    void SaveSettings() override {}
    void LoadSettings() override {}
};

class ValuesTest : public SettingsTest
{
protected:
    template <class Member>
    Member Read(Member member)
    {
        page.ReadValue(Key, Name, member);
        return member;
    }
    Text ReadText() { return Text(Read(CString(_T("default")))); }
    // What stands in a buffer of six bytes once four have been asked for.
    std::vector<BYTE> ReadFour()
    {
        std::vector<BYTE> buffer(6, 0xDD);
        page.ReadBinaryValue(Key, Name, 4, buffer.data());
        return buffer;
    }
    void ExpectNothingRead()
    {
        EXPECT_EQ(Read(-7), -7);
        EXPECT_EQ(Read(0x80000007U), 0x80000007U);
        EXPECT_FALSE(Read(true));
        EXPECT_EQ(ReadText(), Text()) << "a text's default does not survive";
        EXPECT_EQ(ReadFour(), std::vector<BYTE>(6, 0xDD));
        page.ReadBinaryValue(Key, Name, 2, nullptr);
        WideString text = _T("kept");
        EXPECT_FALSE(ReadRegistryString(Key, Name, text));
        EXPECT_EQ(text, _T("kept"));
    }

    ValuePage page;
};
}  // namespace

TEST_F(ValuesTest, ReadOfNothingCreatesNothing)
{
    ExpectNothingRead();
    EXPECT_FALSE(KeyExists(_T("SOFTWARE\\Halvane\\Scratch")));
    Store(Key, Name, Dword(1));
    calls::Refuse("RegQueryValueExW", 1, ERROR_MORE_DATA, true);
    ExpectNothingRead();
    // Refused at the second question, for the data.
    WideString text = _T("kept");
    calls::Refuse("RegQueryValueExW", 2, ERROR_MORE_DATA);
    EXPECT_FALSE(ReadRegistryString(Key, Name, text));
    EXPECT_EQ(text, _T("kept"));
    calls::Refuse("RegQueryValueExW", 2, ERROR_MORE_DATA);
    EXPECT_EQ(ReadFour(), std::vector<BYTE>(6, 0xDD));
}

TEST_F(ValuesTest, WriteCreatesKeyAndValue)
{
    const auto written = [this](const auto& member) {
        page.WriteValue(Key, Name, member);
        return Stored(Key, Name);
    };
    EXPECT_EQ(written(-2), Dword(0xFFFFFFFE));
    EXPECT_EQ(written(0x80000000U), Dword(0x80000000));
    EXPECT_EQ(written(true), Dword(1));
    EXPECT_EQ(written(false), Dword(0));
    // n characters take 2n + 2 bytes, none take 2.
    EXPECT_EQ(written(CString(_T("ab"))), (StoredValue{REG_SZ, {'a', 0, 'b', 0, 0, 0}}));
    EXPECT_EQ(written(CString()), (StoredValue{REG_SZ, {0, 0}}));
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

TEST_F(ValuesTest, ReadTakesTheBytesOfAnyType)
{
    Store(Key, Name, Binary({0xCD, 0xAB}));
    EXPECT_EQ(Read(0x12345678), 0x1234ABCD);
    EXPECT_EQ(Read(0x12345678U), 0x1234ABCDU);
    EXPECT_TRUE(Read(false));
    EXPECT_EQ(ReadFour(), (std::vector<BYTE>{0xCD, 0xAB, 0xDD, 0xDD, 0xDD, 0xDD}));
    Store(Key, Name, Binary({5, 6, 7, 8, 9}));
    EXPECT_EQ(Read(42), 42) << "does not fit";
    EXPECT_EQ(ReadFour(), (std::vector<BYTE>{5, 6, 7, 8, 0xDD, 0xDD}));
    Store(Key, Name, Binary({}));
    EXPECT_EQ(Read(42), 42);
    EXPECT_EQ(ReadText(), Text());
    Store(Key, Name, Sz(_T("A")));
    EXPECT_EQ(Read(-1), 'A');
    Store(Key, Name, Dword(5));
    EXPECT_EQ(ReadText(), Text(1, 5));
    Store(Key, Name, {REG_SZ, {'a', 0, 'b', 0}});
    EXPECT_EQ(ReadText(), _T("ab")) << "no terminator";
    Store(Key, Name, {REG_SZ, {'a', 0, 0, 0, 'b', 0}});
    EXPECT_EQ(ReadText(), _T("a"));
    Store(Key, Name, Binary({'a', 0, 'b'}));
    EXPECT_EQ(ReadText(), _T("ab")) << "half a character has 0 for the other half";
    const Text text(500000, _T('x'));
    Store(Key, Name, Sz(text));
    EXPECT_EQ(ReadText(), text);
}
