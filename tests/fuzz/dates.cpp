/// Dates as text, against a reading that walks the calendar day by day.

#include "fuzz.h"

#include "model/text/date_reader.h"
#include "model/text/date_text.h"

#include <cstdio>

namespace tablio::fuzz {

namespace {

/// The day so many days after 1 January of a year, by counting.
Date walked(int year, int days) {
    Date day{year, 1, 1};
    for (; days > 0; --days) {
        const bool isLeap = (year % 4 == 0) != (year % 100 == 0) || year % 400 == 0;
        constexpr std::array<int, 13> lengths{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const int length =
            lengths[static_cast<std::size_t>(day.month)] + (isLeap && day.month == 2 ? 1 : 0);
        if (++day.day > length) {
            day.day = 1;
            if (++day.month > 12)
                return day; // the year's end is as far as this walks
        }
    }
    return day;
}

std::string shown(const Date &day, const char *shape) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), shape, day.day, day.month, day.year);
    return text.data();
}

} // namespace

void dates(Bytes &bytes) {
    const int year = 1000 + bytes.below(90) * 100 + bytes.below(100);
    const Date day = walked(year, bytes.below(250) + bytes.below(115));
    const std::string text = shown(day, "%02d/%02d/%04d");
    if (day.month <= 12 && !(day == noDate)) {
        expect(!IsDateInvalid(text), text + " is no date");
        expect(TextToDate(text) == day && DateToText(day) == text, text + " is read differently");
        constexpr std::array<const char *, 5> shapes{"%d/%d/%04d", "%02d.%02d.%04d", "%d-%d-%04d",
                                                     " %d. %d. %04d ", "%02d%02d%04d"};
        const auto read = readDate(shown(day, bytes.pick(shapes)), DateOrder::DayMonthYear);
        expect(!read || *read == text, text + " is read as " + read.value_or(""));
        const std::string iso = shown({day.day, day.month, day.year}, "%04d-%02d-%02d");
        expect(readDate(iso, static_cast<DateOrder>(bytes.below(3))) == text,
               iso + " is not " + text);
    }
    // Any text is a day of the calendar or none.
    const std::string any = bytes.text(20);
    if (const auto read = readDate(any, static_cast<DateOrder>(bytes.below(3)))) {
        expect(read->size() == 10 && !IsDateInvalid(*read), any + " becomes " + *read);
        expect(DateToText(TextToDate(*read)) == *read || TextToDate(*read) == noDate ||
                   read->starts_with("29/02"),
               *read + " is not its own day");
    } else {
        expect(!whatIsWrongWith(any).empty(), "nothing is wrong with " + any);
    }
    (void)formatDate(day.month > 12 ? noDate : day, bytes.text(20));
    (void)TextToDate(bytes.text(12));
    (void)PadNumber(bytes.text(12), bytes.number());
}

} // namespace tablio::fuzz
