#include "model/text/date_text.h"

#include "model/text/date_reader.h"

#include <gtest/gtest.h>

#include <string>

namespace tablio {
namespace {

constexpr const char *cleared = "  /  /    ";

TEST(DateText, OnlyTheThreeBlankTextsAreBlank) {
    for (const char *text : {"", "__/__/____", cleared}) {
        EXPECT_TRUE(IsBlankDate(text)) << text;
        EXPECT_TRUE(IsDateInvalid(text)) << text;
        EXPECT_EQ(TextToDate(text), noDate) << text;
    }
    for (const char *text : {" ", "__/__/___", "  /  /   ", "1_/__/____", "__/__/____ "})
        EXPECT_FALSE(IsBlankDate(text)) << text;
}

TEST(DateText, TellsWhichTextsAreDates) {
    // There is no century rule.
    const char *const dates[] = {"31/12/2004", "01/01/1000", "31/12/9999", "29/02/2004",
                                 "29/02/1900", "29/02/2100", " 1/ 1/2000", "1_/1_/2000"};
    for (const char *text : dates)
        EXPECT_FALSE(IsDateInvalid(text)) << text;
    const char *const noDates[] = {"29/02/2001", "30/02/2004", "31/04/2000", "00/01/2000",
                                   "32/01/2000", "-1/01/2000", "01/00/2000", "01/13/2000",
                                   "01-01-2000", "01/01-2000", "01/01/999",  "01/01/0999",
                                   "01/01/-200", "01/01/____", "__/__/2000", "1/1/2000",
                                   "x",          "01/",        "01/01",      "abcdefghij"};
    for (const char *text : noDates)
        EXPECT_TRUE(IsDateInvalid(text)) << text;
    for (const char *text : {"\u0661\u0661/01/2000", "01\u00E4/01/2000", "\U0001F4C5/01/2000",
                             "\u20AC\u20AC/\xFF", "01/01/2\xC3"})
        EXPECT_TRUE(IsDateInvalid(text)) << text;
}

TEST(DateText, PartsOutOfRangeRollOver) {
    const struct {
        const char *text;
        Date expected;
    } cases[] = {
        {"05/03/2004", {2004, 3, 5}},
        {"31/04/2000", {2000, 5, 1}},
        {"15/13/2000", {2001, 1, 15}},
        {"01/00/2000", {1999, 12, 1}},
        {"00/00/2000", {1999, 11, 30}},
        {"99/99/9999", {10007, 6, 7}},
        {"\U0001F4C5/12/2004", {2004, 11, 30}},
        {"rubbish", {-1, 11, 30}},
        {"12", {11, 12, 12}},
    };
    for (const auto &c : cases)
        EXPECT_EQ(TextToDate(c.text), c.expected) << c.text;
}

TEST(DateText, EveryDayOfFourDigitYearsSurvivesAsText) {
    const std::int64_t last = Date{9999, 12, 31}.dayNumber();
    Date expected{1000, 1, 1};
    int weekday = 2; // 1 January 1000 was a Wednesday in this calendar.
    for (std::int64_t number = expected.dayNumber(); number <= last; ++number) {
        const Date date = Date::fromDayNumber(number);
        ASSERT_EQ(date, expected);
        ASSERT_EQ(date.weekday(), weekday);
        const std::string text = DateToText(date);
        ASSERT_EQ(TextToDate(text), date) << text;
        ASSERT_EQ(IsDateInvalid(text), date == noDate) << text;

        weekday = (weekday + 1) % 7;
        if (++expected.day > daysInMonth(expected.year, expected.month)) {
            expected.day = 1;
            if (++expected.month > 12) {
                expected.month = 1;
                ++expected.year;
            }
        }
    }
    EXPECT_EQ(expected, (Date{10000, 1, 1}));
}

TEST(DateText, CalendarArithmetic) {
    EXPECT_EQ((Date{1970, 1, 1}.dayNumber()), 0);
    EXPECT_EQ((Date{2024, 2, 28}.addDays(2)), (Date{2024, 3, 1}));
    EXPECT_EQ((Date{2024, 1, 31}.addMonths(1)), (Date{2024, 2, 29}));
    EXPECT_EQ((Date{2024, 1, 31}.addMonths(-11)), (Date{2023, 2, 28}));
    EXPECT_EQ((Date{2024, 5, 15}.addMonths(-5)), (Date{2023, 12, 15}));
    EXPECT_EQ(Date::fromDayNumber(Date{-401, 2, 28}.dayNumber()), (Date{-401, 2, 28}));
    EXPECT_LT((Date{2023, 12, 31}), (Date{2024, 1, 1}));
}

TEST(DateText, PadsToTheWidthAndKeepsTheLastDigits) {
    const struct {
        const char *text;
        int width;
        const char *expected;
    } cases[] = {
        {"7", 2, "07"},      {"12", 2, "12"},  {"12345", 2, "45"}, {"", 4, "0000"},
        {" 7x9", 3, "007"},  {"1.6", 2, "02"}, {"2.5", 2, "02"},   {"2.51", 2, "03"},
        {"-7", 2, "93"},     {"-93", 2, "7"},  {"7", 0, ""},       {"7", -1, ""},
        {"2004", 4, "2004"}, {"--7", 2, "00"}, {"+ 4 2", 2, "42"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(PadNumber(c.text, c.width), c.expected) << c.text;
    EXPECT_EQ(PadNumber("7", 99), "000000000000000007");
    EXPECT_EQ(PadNumber("99999999999999999999999999", 3), "999");
}

TEST(DateText, ShowsDatesThroughPictures) {
    const Date date{2004, 3, 5}; // A Friday.
    const struct {
        const char *picture;
        const char *expected;
    } cases[] = {
        {"", "05/03/2004"},
        {"##/##/####", "05/03/2004"},
        {"dd/mm/yyyy", "05/03/2004"},
        {"yyyymmdd", "20040305"},
        {"ddd d mmm", "Fri 5 Mar"},
        {"dddd, \"day\" d mmmm yyyy", "Friday, day 5 March 2004"},
        {"\\dd", "d5"},
        {"d. \u00E4", "5. \u00E4"},
        {"d\\", "5"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(formatDate(date, c.picture), c.expected) << c.picture;
    EXPECT_EQ(formatDate({2004, 12, 31}, "d-m-yy"), "31-12-04");
    EXPECT_EQ(formatDate(noDate, "##/##/####"), cleared);
    EXPECT_EQ(formatDate(noDate, ""), cleared);
    EXPECT_EQ(formatDate(noDate, "dd.mm.yyyy"), "");
    EXPECT_EQ(formatDate({2004, 12, 31}, "#,##0.00"), "31/12/2004");

    DateNames names = englishDateNames;
    names.months[2] = "M\u00E4rz";
    EXPECT_EQ(formatDate(date, "d. mmmm", names), "5. M\u00E4rz");
}

TEST(DateReader, TakesWhatIsSurelyOneDateAndNothingElse) {
    using enum DateOrder;
    const struct {
        DateOrder order;
        const char *text;
        const char *date; ///< "" for none.
    } cases[] = {
        {DayMonthYear, " 5-3-2004 ", "05/03/2004"},
        {DayMonthYear, "5. 3. 2004", "05/03/2004"},
        {DayMonthYear, "5/3/24", "05/03/2024"},
        {DayMonthYear, "5/3/50", "05/03/1950"},
        {MonthDayYear, "3/5/2004", "05/03/2004"},
        {MonthDayYear, "13/5/2004", ""},
        {YearMonthDay, "04.3.5", "05/03/2004"},
        {YearMonthDay, "2004. 03. 05.", "05/03/2004"},
        {YearMonthDay, "05/03/2004", "05/03/2004"},
        {DayMonthYear, "2004-3-5", "05/03/2004"},
        {MonthDayYear, "2010-12-05 08:00", "05/12/2010"},
        {DayMonthYear, "2010-12-05T08:00:30.5+01:00", "05/12/2010"},
        {DayMonthYear, "5/12/2010, 8:00 AM", "05/12/2010"},
        {DayMonthYear, "05032004", "05/03/2004"},
        {DayMonthYear, "20040229", "29/02/2004"},
        {DayMonthYear, "20101205", ""}, // 1205 or 2010?
        {DayMonthYear, "31/02/2011", ""},
        {DayMonthYear, "5/3/204", ""},
        {DayMonthYear, "123/4/2004", ""},
        {DayMonthYear, "1/2/3/2004", ""},
        {DayMonthYear, "05/03/2004 x", ""},
        {DayMonthYear, "05/03/20041", ""},
        {DayMonthYear, "0503", ""},
        {DayMonthYear, "5 March 2004", ""},
        {DayMonthYear, "", ""},
        {DayMonthYear, "\xD9\xA1/\xD9\xA2/2004", ""},
    };
    for (const auto &[order, text, date] : cases)
        EXPECT_EQ(readDate(text, order).value_or(""), date) << text;
}

} // namespace
} // namespace tablio
