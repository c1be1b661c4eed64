// How values of every type and length are read into members, and how members are stored.
#include "framework/SettingsPage.h"
#include "resource.h"
#include "support/calls.h"
#include "support/registry.h"

namespace
{
// A key that no page uses.
const Text Key = keys::Halvane + _T("\\Scratch\\Below");
const Text Name = _T("Value");

// A page without a window, whose registry operations are public.
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
    // A buffer of six bytes after a read of four.
    std::vector<BYTE> ReadFour()
    {
        std::vector<BYTE> buffer(6, 0xDD);
        page.ReadBinaryValue(Key, Name, 4, buffer.data());
        return buffer;
    }
    void ExpectNoString()
    {
        WideString text = _T("kept");
        EXPECT_FALSE(ReadRegistryString(Key, Name, text));
        EXPECT_EQ(text, _T("kept"));
    }
    void ExpectNothingRead()
    {
        EXPECT_EQ(Read(-7), -7);
        EXPECT_EQ(Read(0x80000007U), 0x80000007U);
        EXPECT_FALSE(Read(true));
        EXPECT_EQ(ReadText(), Text()) << "a text does not keep its default";
        EXPECT_EQ(ReadFour(), std::vector<BYTE>(6, 0xDD));
        page.ReadBinaryValue(Key, Name, 2, nullptr);
        ExpectNoString();
    }

    ValuePage page;
};
}  // namespace

TEST_F(ValuesTest, ReadOfNothingCreatesNothing)
{
    ExpectNothingRead();
    EXPECT_FALSE(KeyExists(keys::Halvane + _T("\\Scratch")));
    Store(Key, Name, Dword(1));
    calls::Refuse("RegQueryValueExW", 1, ERROR_MORE_DATA, true);
    ExpectNothingRead();
    // The first query asks for the size. The second one, for the data, fails.
    calls::Refuse("RegQueryValueExW", 2, ERROR_MORE_DATA);
    ExpectNoString();
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
    // A text is stored with its terminator, even an empty one.
    EXPECT_EQ(written(CString(_T("ab"))), (StoredValue{REG_SZ, {'a', 0, 'b', 0, 0, 0}}));
    EXPECT_EQ(written(CString()), (StoredValue{REG_SZ, {0, 0}}));
    page.WriteBinaryValue(Key, Name, 3, "\1\2\3");
    EXPECT_EQ(Stored(Key, Name), Binary({1, 2, 3}));
    EXPECT_TRUE(WriteRegistryString(Key, Name, nullptr));
    EXPECT_EQ(Stored(Key, Name), Sz({}));
    calls::Refuse("RegSetValueExW", 1, ERROR_ACCESS_DENIED, true);
    EXPECT_FALSE(WriteRegistryString(Key, Name, _T("x")));
    EXPECT_FALSE(WriteRegistryDword(Key, Name, 1));
    const Text other = keys::Halvane + _T("\\Other");
    page.WriteBinaryValue(other, Name, 0, "x");
    page.WriteBinaryValue(other, Name, 1, nullptr);
    EXPECT_FALSE(KeyExists(other));
}

TEST_F(ValuesTest, ReadTakesTheBytesOfAnyType)
{
    // The value, the number that -1 becomes, and the text.
    const std::tuple<StoredValue, int, Text> cases[] = {
        {Binary({0xCD, 0xAB}), static_cast<int>(0xFFFFABCD), Text(1, TCHAR{0xABCD})},
        {Binary({}), -1, {}},
        {Sz(_T("A")), 'A', _T("A")},
        {Dword(5), 5, Text(1, 5)},
        {{REG_SZ, {'a', 0, 'b', 0}}, 'b' << 16 | 'a', _T("ab")},          // no terminator
        {{REG_SZ, {'a', 0, 0, 0, 'b', 0}}, -1, _T("a")},                  // too long for a number
        {Binary({'a', 0, 'b'}), -0x1000000 | 'b' << 16 | 'a', _T("ab")},  // half a character is the low half
        {Sz(Text(500000, _T('x'))), -1, Text(500000, _T('x'))}};
    for (const auto& [value, number, text] : cases)
    {
        Store(Key, Name, value);
        EXPECT_EQ(Read(-1), number) << Printable(text.substr(0, 9));
        EXPECT_EQ(Read(UINT_MAX), static_cast<UINT>(number));
        EXPECT_TRUE(ReadText() == text) << Printable(text.substr(0, 9));
    }
    Store(Key, Name, Dword(2));
    EXPECT_TRUE(Read(false));
    Store(Key, Name, Binary({1, 2}));
    EXPECT_EQ(ReadFour(), (std::vector<BYTE>{1, 2, 0xDD, 0xDD, 0xDD, 0xDD}));
    Store(Key, Name, Binary({5, 6, 7, 8, 9}));
    EXPECT_EQ(ReadFour(), (std::vector<BYTE>{5, 6, 7, 8, 0xDD, 0xDD}));
}
