// The exchange of numbers.
#include "resource.h"
#include "support/scripts.h"

using ExchangeTest = SettingsTest;

TEST_F(ExchangeTest, NumbersAreTakenWholeOrNotAtAll)
{
    std::vector<std::pair<Text, long long>> cases = {{_T("007"), 7},
                                                     {_T(" 12\t"), 12},
                                                     {_T("+3"), 3},
                                                     {_T("-5"), -5},
                                                     {_T("2147483647"), 2147483647},
                                                     {_T("-2147483648"), -2147483648},
                                                     {_T("-2147483649"), -2147483649},
                                                     {_T("2147483648"), 2147483648}};
    for (const TCHAR* none :
         {_T("-"), _T("1 2"), _T("0x1"), _T("9:"), _T("/1"), _T("99999999999999999999999999")})
    {
        cases.emplace_back(none, 1LL << 40);
    }
    const Editor sheet(tabs::Xhci);
    for (const auto& [text, number] : cases)
    {
        SCOPED_TRACE(Printable(text));
        const bool isInt = number == static_cast<int>(number);
        const auto enter = [&, &typed = text] { sheet.SetText(IDC_ISOCH_DELAY_HS_READ, typed); };
        EXPECT_EQ(CountPrompts(enter), isInt ? 0 : 1);
        if (isInt)
        {
            sheet.Apply();
            EXPECT_EQ(Stored(keys::TestServices, _T("IsochDelayBeforeHSRead")),
                      Dword(static_cast<DWORD>(number)));
        }
        else
        {
            EXPECT_EQ(GetFocus(), sheet.Control(IDC_ISOCH_DELAY_HS_READ));
            EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELONG(0, text.size()));
        }
        EXPECT_EQ(CountPrompts([&] { sheet.SetText(IDC_ISOCH_DELAY_HS_READ, _T("77")); }), 0);
    }
}
