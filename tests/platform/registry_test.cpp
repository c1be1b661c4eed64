// What the editor expects of the registry. Built for both platforms: Wine, where this runs against the real
// functions, is the judge of the ones in memory.
#include <gtest/gtest.h>
#include <tchar.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace
{
using Text = std::basic_string<TCHAR>;
using Bytes = std::vector<BYTE>;

constexpr LPCTSTR Scratch = _T("SOFTWARE\\QBRegistryTest");
constexpr BYTE Filler = 0xEE;
constexpr DWORD FillerDword = 0xEEEEEEEE;

const HKEY NoKey = nullptr;
const HKEY Untouched = reinterpret_cast<HKEY>(ULONG_PTR{0x7777});

class RegistryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, Scratch);
        m_key = Create(HKEY_LOCAL_MACHINE, Scratch);
    }

    void TearDown() override
    {
        for (HKEY key : m_open)
        {
            RegCloseKey(key);
        }
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, Scratch);
    }

    HKEY Create(HKEY parent, LPCTSTR path, REGSAM access = KEY_ALL_ACCESS)
    {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(parent, path, 0, nullptr, 0, access, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        m_open.push_back(key);
        return key;
    }

    HKEY Open(HKEY parent, LPCTSTR path, REGSAM access)
    {
        HKEY key = nullptr;
        EXPECT_EQ(RegOpenKeyExW(parent, path, 0, access, &key), ERROR_SUCCESS);
        m_open.push_back(key);
        return key;
    }

    LSTATUS Set(LPCTSTR name, DWORD type, const Bytes& data) const { return Set(m_key, name, type, data); }

    static LSTATUS Set(HKEY key, LPCTSTR name, DWORD type, const Bytes& data)
    {
        return RegSetValueExW(key, name, 0, type, data.data(), static_cast<DWORD>(data.size()));
    }

    bool Exists(LPCTSTR path) const
    {
        HKEY key = nullptr;
        bool exists = RegOpenKeyExW(m_key, path, 0, KEY_READ, &key) == ERROR_SUCCESS;
        if (exists)
        {
            RegCloseKey(key);
        }
        return exists;
    }

    HKEY m_key = nullptr;
    std::vector<HKEY> m_open;
};

// The outputs of a query, filled before it, with a buffer longer than the room that the query is told of.
struct Query
{
    LSTATUS status;
    DWORD type = FillerDword;
    DWORD size;
    std::array<BYTE, 24> data;

    Query(HKEY key, LPCTSTR name, DWORD room) : size(room)
    {
        data.fill(Filler);
        status = RegQueryValueExW(key, name, nullptr, &type, data.data(), &size);
    }

    // Whether the buffer holds these bytes and nothing after them was touched.
    bool Holds(const Bytes& expected) const
    {
        return std::equal(expected.begin(), expected.end(), data.begin()) &&
               std::all_of(data.begin() + static_cast<std::ptrdiff_t>(expected.size()), data.end(),
                           [](BYTE byte) { return byte == Filler; });
    }
};

// The same for an enumerated name.
struct Name
{
    LSTATUS status;
    DWORD length;
    std::array<TCHAR, 40> text;

    static Name OfKey(HKEY key, DWORD index, DWORD room = 30)
    {
        Name name(room);
        name.status =
            RegEnumKeyExW(key, index, name.text.data(), &name.length, nullptr, nullptr, nullptr, nullptr);
        return name;
    }

    static Name OfValue(HKEY key, DWORD index, DWORD room = 30)
    {
        Name name(room);
        name.status =
            RegEnumValueW(key, index, name.text.data(), &name.length, nullptr, nullptr, nullptr, nullptr);
        return name;
    }

    bool Holds(LPCTSTR expected) const
    {
        std::size_t end = _tcslen(expected) + 1;
        return std::memcmp(text.data(), expected, end * sizeof(TCHAR)) == 0 && FilledFrom(end);
    }
    bool FilledFrom(std::size_t position) const
    {
        return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(position), text.end(),
                           [](TCHAR character) { return character == Mark; });
    }

private:
    static constexpr TCHAR Mark = 0xEEEE;

    explicit Name(DWORD room) : status(0), length(room) { text.fill(Mark); }
};
}  // namespace

TEST_F(RegistryTest, CreatesTheMissingKeysOfAPath)
{
    HKEY key = nullptr;
    DWORD disposition = 0;
    auto create = [&](LPCTSTR path)
    {
        LSTATUS status =
            RegCreateKeyExW(m_key, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, &disposition);
        RegCloseKey(key);
        return status;
    };

    EXPECT_EQ(create(_T("One\\Two\\Three")), ERROR_SUCCESS);
    EXPECT_EQ(disposition, DWORD{REG_CREATED_NEW_KEY});
    EXPECT_TRUE(Exists(_T("One\\Two")));
    EXPECT_TRUE(Exists(_T("One\\Two\\")));

    EXPECT_EQ(create(_T("ONE\\two\\THREE")), ERROR_SUCCESS);
    EXPECT_EQ(disposition, DWORD{REG_OPENED_EXISTING_KEY});
    EXPECT_TRUE(Name::OfKey(m_key, 0).Holds(_T("One")));
    EXPECT_EQ(Name::OfKey(m_key, 1).status, ERROR_NO_MORE_ITEMS);
}

TEST_F(RegistryTest, FailedOpenGivesNoKey)
{
    struct
    {
        HKEY parent;
        LPCTSTR path;
        LSTATUS status;
    } const cases[] = {
        {m_key, _T("Missing"), ERROR_FILE_NOT_FOUND}, {m_key, _T("Missing\\Deeper"), ERROR_FILE_NOT_FOUND},
        {m_key, _T("\\Leading"), ERROR_BAD_PATHNAME}, {Untouched, _T("Any"), ERROR_INVALID_HANDLE},
        {NoKey, _T("Any"), ERROR_INVALID_HANDLE},
    };
    for (const auto& test : cases)
    {
        SCOPED_TRACE(Text(test.path).size());
        HKEY key = Untouched;
        EXPECT_EQ(RegOpenKeyExW(test.parent, test.path, 0, KEY_READ, &key), test.status);
        EXPECT_EQ(key, NoKey);
    }
    EXPECT_EQ(RegOpenKeyExW(m_key, _T("Missing"), 0, KEY_READ, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(Exists(_T("Missing")));

    HKEY key = Untouched;
    DWORD disposition = FillerDword;
    EXPECT_EQ(RegCreateKeyExW(Untouched, _T("New"), 0, nullptr, 0, KEY_READ, nullptr, &key, &disposition),
              ERROR_INVALID_HANDLE);
    EXPECT_EQ(key, NoKey);
    EXPECT_EQ(disposition, FillerDword);
}

TEST_F(RegistryTest, NamesHaveLimits)
{
    HKEY key = nullptr;
    Text longest(255, _T('k'));
    EXPECT_EQ(RegCreateKeyExW(m_key, longest.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(key);
    Text tooLong(257, _T('k'));
    EXPECT_EQ(RegCreateKeyExW(m_key, tooLong.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
              ERROR_INVALID_PARAMETER);

    Text longestValue(16383, _T('v'));
    EXPECT_EQ(Set(longestValue.c_str(), REG_DWORD, {1, 0, 0, 0}), ERROR_SUCCESS);
    EXPECT_EQ(Set((longestValue + _T('v')).c_str(), REG_DWORD, {1, 0, 0, 0}), ERROR_INVALID_PARAMETER);

    std::vector<TCHAR> name(16384);
    auto length = static_cast<DWORD>(name.size()) - 1;
    EXPECT_EQ(RegEnumValueW(m_key, 0, name.data(), &length, nullptr, nullptr, nullptr, nullptr),
              ERROR_MORE_DATA);
    length = static_cast<DWORD>(name.size());
    EXPECT_EQ(RegEnumValueW(m_key, 0, name.data(), &length, nullptr, nullptr, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(name.data(), longestValue);
}

TEST_F(RegistryTest, HandleRightsDecide)
{
    Create(m_key, _T("Key"));
    HKEY reader = Open(m_key, _T("key"), KEY_READ);
    HKEY writer = Open(m_key, _T("KEY"), KEY_WRITE);

    EXPECT_EQ(Set(reader, _T("v"), REG_DWORD, {5, 0, 0, 0}), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Set(writer, _T("v"), REG_DWORD, {5, 0, 0, 0}), ERROR_SUCCESS);
    Query denied(writer, _T("v"), 4);
    EXPECT_EQ(denied.status, ERROR_ACCESS_DENIED);
    EXPECT_EQ(denied.type, FillerDword);
    EXPECT_TRUE(denied.Holds({}));
    EXPECT_EQ(Query(reader, _T("v"), 4).status, ERROR_SUCCESS);
    EXPECT_EQ(Name::OfKey(writer, 0).status, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Name::OfValue(writer, 0).status, ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteValueW(reader, _T("v")), ERROR_ACCESS_DENIED);

    // Subkeys have rights of their own.
    Create(reader, _T("Sub"), KEY_WRITE);
    Open(writer, _T("Sub"), KEY_READ);
}

TEST_F(RegistryTest, QueryTellsTypeAndSize)
{
    ASSERT_EQ(Set(_T("Number"), REG_DWORD, {1, 2, 3, 4}), ERROR_SUCCESS);
    ASSERT_EQ(Set(_T("Odd"), 77, {9, 8, 7}), ERROR_SUCCESS);

    Query fits(m_key, _T("NUMBER"), 8);
    EXPECT_EQ(fits.status, ERROR_SUCCESS);
    EXPECT_EQ(fits.type, DWORD{REG_DWORD});
    EXPECT_EQ(fits.size, 4u);
    EXPECT_TRUE(fits.Holds({1, 2, 3, 4}));

    Query odd(m_key, _T("Odd"), 4);
    EXPECT_EQ(odd.type, 77u);
    EXPECT_EQ(odd.size, 3u);
    EXPECT_TRUE(odd.Holds({9, 8, 7}));

    for (DWORD room : {0u, 3u})
    {
        Query small(m_key, _T("Number"), room);
        EXPECT_EQ(small.status, ERROR_MORE_DATA);
        EXPECT_EQ(small.type, DWORD{REG_DWORD});
        EXPECT_EQ(small.size, 4u);
        EXPECT_TRUE(small.Holds({}));
    }

    Query missing(m_key, _T("Missing"), 4);
    EXPECT_EQ(missing.status, ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(missing.type, FillerDword);
    EXPECT_EQ(missing.size, 4u);
    EXPECT_TRUE(missing.Holds({}));

    DWORD size = FillerDword;
    EXPECT_EQ(RegQueryValueExW(m_key, _T("Number"), nullptr, nullptr, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 4u);
    BYTE data[4] = {};
    EXPECT_EQ(RegQueryValueExW(m_key, _T("Number"), nullptr, nullptr, data, nullptr),
              ERROR_INVALID_PARAMETER);
}

TEST_F(RegistryTest, TextGetsATerminatorWhereThereIsRoom)
{
    const Bytes ab = {'a', 0, 'b', 0, 'X', 0};
    ASSERT_EQ(RegSetValueExW(m_key, _T("Text"), 0, REG_SZ, ab.data(), 4), ERROR_SUCCESS);
    for (DWORD room : {4u, 5u})
    {
        Query tight(m_key, _T("Text"), room);
        EXPECT_EQ(tight.status, ERROR_SUCCESS);
        EXPECT_EQ(tight.size, 4u);
        EXPECT_TRUE(tight.Holds({'a', 0, 'b', 0}));
    }
    Query roomy(m_key, _T("Text"), 8);
    EXPECT_EQ(roomy.size, 4u);
    EXPECT_TRUE(roomy.Holds({'a', 0, 'b', 0, 0, 0}));

    ASSERT_EQ(RegSetValueExW(m_key, _T("Bytes"), 0, REG_BINARY, ab.data(), 4), ERROR_SUCCESS);
    EXPECT_TRUE(Query(m_key, _T("Bytes"), 8).Holds({'a', 0, 'b', 0}));

    ASSERT_EQ(Set(_T("Empty"), REG_SZ, {}), ERROR_SUCCESS);
    Query empty(m_key, _T("Empty"), 8);
    EXPECT_EQ(empty.size, 0u);
    EXPECT_TRUE(empty.Holds({}));

    // A terminator that the caller has but does not count is stored.
    const TCHAR cd[] = _T("cd");
    ASSERT_EQ(RegSetValueExW(m_key, _T("Text"), 0, REG_SZ, reinterpret_cast<const BYTE*>(cd), 4),
              ERROR_SUCCESS);
    Query counted(m_key, _T("Text"), 12);
    EXPECT_EQ(counted.size, 6u);
    EXPECT_TRUE(counted.Holds({'c', 0, 'd', 0, 0, 0}));
}

TEST_F(RegistryTest, SetReplacesAndKeepsTheFirstSpelling)
{
    ASSERT_EQ(Set(_T("Value"), REG_BINARY, {1, 2, 3, 4, 5, 6}), ERROR_SUCCESS);
    ASSERT_EQ(Set(_T("VALUE"), REG_DWORD, {7, 0, 0, 0}), ERROR_SUCCESS);
    EXPECT_TRUE(Query(m_key, _T("value"), 8).Holds({7, 0, 0, 0}));
    EXPECT_TRUE(Name::OfValue(m_key, 0).Holds(_T("Value")));
    EXPECT_EQ(Name::OfValue(m_key, 1).status, ERROR_NO_MORE_ITEMS);

    ASSERT_EQ(Set(nullptr, REG_DWORD, {8, 0, 0, 0}), ERROR_SUCCESS);
    EXPECT_TRUE(Query(m_key, _T(""), 4).Holds({8, 0, 0, 0}));
    EXPECT_TRUE(Name::OfValue(m_key, 0).Holds(_T("")));

    EXPECT_EQ(RegDeleteValueW(m_key, _T("vALUE")), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteValueW(m_key, _T("Value")), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryTest, EnumeratesByNameWithoutRegardToCase)
{
    for (LPCTSTR name : {_T("zeta"), _T("Beta"), _T("alpha"), _T("10"), _T("9"), _T("_mark"), _T("Zebra")})
    {
        Create(m_key, name);
        ASSERT_EQ(Set(name, REG_DWORD, {1, 0, 0, 0}), ERROR_SUCCESS);
    }
    DWORD index = 0;
    for (LPCTSTR name : {_T("10"), _T("9"), _T("_mark"), _T("alpha"), _T("Beta"), _T("Zebra"), _T("zeta")})
    {
        EXPECT_TRUE(Name::OfKey(m_key, index).Holds(name)) << index;
        EXPECT_TRUE(Name::OfValue(m_key, index).Holds(name)) << index;
        ++index;
    }
    EXPECT_TRUE(Name::OfKey(m_key, 2).Holds(_T("_mark")));
    Name end = Name::OfKey(m_key, index);
    EXPECT_EQ(end.status, ERROR_NO_MORE_ITEMS);
    EXPECT_EQ(end.length, 30u);
    EXPECT_TRUE(end.FilledFrom(0));
    EXPECT_EQ(Name::OfValue(m_key, index).status, ERROR_NO_MORE_ITEMS);
}

TEST_F(RegistryTest, EnumerationNeedsRoomForTheTerminator)
{
    Create(m_key, _T("Child"));
    ASSERT_EQ(Set(_T("Value"), REG_DWORD, {1, 2, 3, 4}), ERROR_SUCCESS);
    for (const Name& small : {Name::OfKey(m_key, 0, 5), Name::OfValue(m_key, 0, 5), Name::OfKey(m_key, 0, 0)})
    {
        EXPECT_EQ(small.status, ERROR_MORE_DATA);
        EXPECT_TRUE(small.FilledFrom(0));
    }
    Name exact = Name::OfKey(m_key, 0, 6);
    EXPECT_EQ(exact.status, ERROR_SUCCESS);
    EXPECT_EQ(exact.length, 5u);
    EXPECT_TRUE(exact.Holds(_T("Child")));
    EXPECT_TRUE(Name::OfValue(m_key, 0, 6).Holds(_T("Value")));

    // The data of an enumerated value goes out as that of a queried one does.
    TCHAR name[6];
    BYTE data[6] = {Filler, Filler, Filler, Filler, Filler, Filler};
    DWORD length = 6;
    DWORD type = FillerDword;
    DWORD size = 3;
    EXPECT_EQ(RegEnumValueW(m_key, 0, name, &length, nullptr, &type, data, &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(type, DWORD{REG_DWORD});
    EXPECT_EQ(data[0], Filler);
    length = 6;
    EXPECT_EQ(RegEnumValueW(m_key, 0, name, &length, nullptr, &type, data, &size), ERROR_SUCCESS);
    EXPECT_EQ(data[3], 4);
    EXPECT_EQ(data[4], Filler);
}

TEST_F(RegistryTest, EnumerationSeesChanges)
{
    constexpr int count = 300;
    for (int i = 0; i < count; ++i)
    {
        RegCloseKey(
            Create(m_key, std::basic_string<TCHAR>(1, static_cast<TCHAR>(0x3000 + i)).c_str(), KEY_READ));
        m_open.pop_back();
    }
    // Forwards, backwards, then always the first of what is left.
    for (int i = 0; i < 2 * count; ++i)
    {
        int index = i < count ? i : 2 * count - 1 - i;
        ASSERT_EQ(Name::OfKey(m_key, static_cast<DWORD>(index)).text[0], 0x3000 + index);
    }
    for (int i = 0; i < count; ++i)
    {
        Name first = Name::OfKey(m_key, 0);
        ASSERT_EQ(first.text[0], 0x3000 + i);
        ASSERT_EQ(RegDeleteKeyW(m_key, first.text.data()), ERROR_SUCCESS);
    }
    EXPECT_EQ(Name::OfKey(m_key, 0).status, ERROR_NO_MORE_ITEMS);
}

TEST_F(RegistryTest, InfoCountsAndMeasures)
{
    Create(m_key, _T("One"));
    Create(m_key, _T("Three"));
    ASSERT_EQ(Set(_T("Value"), REG_BINARY, {1, 2, 3}), ERROR_SUCCESS);
    ASSERT_EQ(Set(_T("LongName"), REG_BINARY, {1}), ERROR_SUCCESS);
    DWORD subKeys = 0;
    DWORD longestSubKey = 0;
    DWORD values = 0;
    DWORD longestValue = 0;
    DWORD largest = 0;
    EXPECT_EQ(RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, &subKeys, &longestSubKey, nullptr, &values,
                               &longestValue, &largest, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(subKeys, 2u);
    EXPECT_EQ(longestSubKey, 5u);
    EXPECT_EQ(values, 2u);
    EXPECT_EQ(longestValue, 8u);
    EXPECT_EQ(largest, 3u);
}

TEST_F(RegistryTest, EmptiesATreeAndKeepsTheKey)
{
    Create(m_key, _T("Tree\\Sub\\Deep"));
    HKEY tree = Open(m_key, _T("Tree"), KEY_READ | KEY_WRITE);
    ASSERT_EQ(Set(tree, _T("v"), REG_DWORD, {1, 0, 0, 0}), ERROR_SUCCESS);

    EXPECT_EQ(RegDeleteTreeW(Open(m_key, _T("Tree"), KEY_WRITE), nullptr), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(Exists(_T("Tree\\Sub\\Deep")));
    EXPECT_EQ(RegDeleteTreeW(tree, nullptr), ERROR_SUCCESS);
    EXPECT_FALSE(Exists(_T("Tree\\Sub")));
    EXPECT_EQ(Name::OfKey(tree, 0).status, ERROR_NO_MORE_ITEMS);
    EXPECT_EQ(Name::OfValue(tree, 0).status, ERROR_NO_MORE_ITEMS);
    EXPECT_TRUE(Exists(_T("Tree")));

    Create(tree, _T("Sub\\Deep"));
    EXPECT_EQ(RegDeleteTreeW(m_key, _T("Tree")), ERROR_SUCCESS);
    EXPECT_FALSE(Exists(_T("Tree")));
    EXPECT_EQ(RegDeleteTreeW(m_key, _T("Tree")), ERROR_FILE_NOT_FOUND);

    Create(m_key, _T("Tree\\Sub"));
    EXPECT_EQ(RegDeleteKeyW(m_key, _T("Tree")), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(m_key, _T("Tree\\Sub")), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(m_key, _T("Tree")), ERROR_SUCCESS);
}

TEST_F(RegistryTest, DeadHandlesFailAndHarmNothing)
{
    HKEY deleted = Create(m_key, _T("Deleted\\Sub"));
    ASSERT_EQ(RegDeleteTreeW(m_key, _T("Deleted")), ERROR_SUCCESS);
    Create(m_key, _T("Deleted\\Sub"));
    HKEY closed = Create(m_key, _T("Closed"));
    m_open.pop_back();
    ASSERT_EQ(RegCloseKey(closed), ERROR_SUCCESS);

    struct
    {
        HKEY key;
        LSTATUS status;
    } const cases[] = {
        {deleted, ERROR_KEY_DELETED}, {closed, ERROR_INVALID_HANDLE}, {NoKey, ERROR_INVALID_HANDLE}};
    for (const auto& [key, status] : cases)
    {
        HKEY result = nullptr;
        EXPECT_EQ(Set(key, _T("v"), REG_DWORD, {1, 0, 0, 0}), status);
        EXPECT_EQ(Query(key, _T("v"), 4).status, status);
        EXPECT_EQ(Name::OfKey(key, 0).status, status);
        EXPECT_EQ(Name::OfValue(key, 0).status, status);
        EXPECT_EQ(RegDeleteTreeW(key, nullptr), status);
        EXPECT_EQ(RegDeleteValueW(key, _T("v")), status);
        EXPECT_EQ(RegOpenKeyExW(key, _T("Sub"), 0, KEY_READ, &result), status);
        EXPECT_EQ(RegCreateKeyExW(key, _T("Sub"), 0, nullptr, 0, KEY_READ, nullptr, &result, nullptr),
                  status);
    }
    EXPECT_EQ(RegCloseKey(closed), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegCloseKey(NoKey), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegCloseKey(HKEY_LOCAL_MACHINE), ERROR_SUCCESS);
    EXPECT_TRUE(Exists(_T("Deleted\\Sub")));
}
