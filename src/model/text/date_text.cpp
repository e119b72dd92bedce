#include "model/text/date_text.h"

#include "model/text/ascii.h"
#include "model/text/leading_number.h"

#include <algorithm>
#include <cstdint>

namespace tablio {

namespace {

constexpr std::string_view emptyMask = "__/__/____";
constexpr std::string_view clearedDate = "  /  /    ";
constexpr int greatestWidth = 18; // 10^18 is the greatest power of ten in 64 bits.

/// Date text is taken apart by character positions. This view of it has one byte a UTF-16 unit,
/// which stays as it is when it is ASCII and otherwise is something that no rule knows.
std::string characterPerByte(std::string_view text) {
    std::string characters;
    characters.reserve(text.size());
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        if (value < 0x80)
            characters += byte;
        else if (value >= 0xC0)
            characters.append(value >= 0xF0 ? 2 : 1, '\x7F');
    }
    return characters;
}

struct DateParts {
    int day;
    int month;
    int year;
};

/// The three numbers of a date text, found by their places.
DateParts readParts(std::string_view characters) {
    const auto numberAt = [&](std::size_t start, std::size_t length) {
        if (start >= characters.size())
            return 0;
        return static_cast<int>(leadingWhole(characters.substr(start, length)));
    };
    const std::size_t yearStart = characters.size() > 4 ? characters.size() - 4 : 0;
    return {numberAt(0, 2), numberAt(3, 2), numberAt(yearStart, 4)};
}

std::string padded(std::int64_t number, int width) {
    width = std::clamp(width, 0, greatestWidth);
    std::int64_t power = 1;
    for (int left = width; left > 0; --left)
        power *= 10;
    const std::string digits = std::to_string(power + number);
    const auto length = static_cast<std::size_t>(width);
    return digits.size() > length ? digits.substr(digits.size() - length) : digits;
}

/// Writes the part of `date` that a run of `length` picture letters asks for.
void appendPart(const Date &date, char letter, std::size_t length, const DateNames &names,
                std::string &result) {
    const int number = letter == 'd' ? date.day : date.month;
    if (letter == 'y')
        result += padded(date.year, length <= 2 ? 2 : 4);
    else if (length == 1)
        result += std::to_string(number);
    else if (length == 2)
        result += padded(number, 2);
    else if (letter == 'd')
        result += (length == 3 ? names.shortWeekdays
                               : names.weekdays)[static_cast<std::size_t>(date.weekday())];
    else
        result += (length == 3 ? names.shortMonths
                               : names.months)[static_cast<std::size_t>(date.month - 1)];
}

} // namespace

const DateNames englishDateNames{
    {"January", "February", "March", "April", "May", "June", "July", "August", "September",
     "October", "November", "December"},
    {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
    {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"},
    {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"}};

bool IsBlankDate(std::string_view Text) {
    return Text.empty() || Text == emptyMask || Text == clearedDate;
}

bool IsDateInvalid(std::string_view Text) {
    const std::string characters = characterPerByte(Text);
    const DateParts parts = readParts(characters);

    static constexpr int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    bool isInvalid = true;
    if (parts.month >= 1 && parts.month <= 12) {
        const bool isLeap = (parts.year & 3) == 0; // Without the century rule, on purpose.
        const int length = lengths[parts.month - 1] + (isLeap && parts.month == 2 ? 1 : 0);
        isInvalid = parts.day < 1 || parts.day > length;
    }
    if (characters.size() < 6 || characters[2] != '/' || characters[5] != '/')
        isInvalid = true;
    if (IsBlankDate(Text))
        isInvalid = false;
    // The year comes last and so speaks against blank texts as well. Read from four characters it
    // cannot be too great.
    return isInvalid || parts.year < 1000;
}

Date TextToDate(std::string_view Text) {
    if (IsBlankDate(Text))
        return noDate;
    const DateParts parts = readParts(characterPerByte(Text));
    return Date::rolledOver(parts.year, parts.month, parts.day);
}

std::string DateToText(const Date &Value) {
    if (Value == noDate)
        return std::string(clearedDate);
    return padded(Value.day, 2) + '/' + padded(Value.month, 2) + '/' + padded(Value.year, 4);
}

std::string PadNumber(std::string_view Text, int Width) {
    return padded(leadingWhole(Text), Width);
}

std::string formatDate(const Date &date, std::string_view picture, const DateNames &names) {
    if (picture.empty() || picture == dateEditMask)
        return DateToText(date);
    if (date == noDate)
        return {};

    std::string result;
    bool showsDate = false;
    for (std::size_t position = 0; position < picture.size();) {
        const char character = picture[position];
        const char letter = ascii::lower(character);
        std::size_t end = position + 1;
        if (letter == 'd' || letter == 'm' || letter == 'y') {
            while (end < picture.size() && ascii::lower(picture[end]) == letter)
                ++end;
            appendPart(date, letter, end - position, names, result);
            showsDate = true;
        } else if (character == '"') {
            const std::size_t close = std::min(picture.find('"', end), picture.size());
            result += picture.substr(end, close - end);
            end = std::min(close + 1, picture.size());
        } else if (character == '\\') {
            result += picture.substr(end, 1);
            end = std::min(end + 1, picture.size());
        } else {
            result += character;
        }
        position = end;
    }
    return showsDate ? result : DateToText(date);
}

} // namespace tablio
