#include "model/text/number_shower.h"

#include "model/text/ascii.h"
#include "model/text/number_picture.h"
#include "model/text/number_text.h"

#include <algorithm>

namespace tablio {

NumberShower::NumberShower(std::string_view picture) : picture_(picture) {
    const std::size_t point = picture.find('.');
    const std::string_view whole = picture.substr(0, point);
    const std::string_view fraction =
        point == std::string_view::npos ? std::string_view() : picture.substr(point + 1);
    const auto isPlace = [](char character) { return character == '0' || character == '#'; };
    isSimple_ = !whole.empty() && isPlace(whole.front()) && isPlace(whole.back()) &&
                whole.find_first_not_of("0#,") == std::string_view::npos &&
                fraction.find_first_not_of("0#") == std::string_view::npos &&
                (point == std::string_view::npos || !fraction.empty()) &&
                picture.size() <= mostDigits;
    // A comma behind a comma divides nothing here, since a place follows.
    groups_ = whole.find(',') != std::string_view::npos;
    const std::size_t firstZero = std::min(whole.find('0'), whole.size());
    wholeZeros_ = static_cast<int>(std::count_if(
        whole.begin() + static_cast<std::ptrdiff_t>(firstZero), whole.end(), isPlace));
    fractionPlaces_ = static_cast<int>(fraction.size());
    fractionZeros_ = static_cast<int>(fraction.find_last_of('0') + 1);
}

std::string_view NumberShower::shown(std::string_view text, const NumberFormat &format) {
    const std::string_view simple = isSimple_ ? shownSimply(text, format) : std::string_view();
    if (!simple.empty())
        return simple;
    result_ = formatNumber(textToDecimal(text, format), picture_, format);
    return result_;
}

std::string_view NumberShower::shownSimply(std::string_view text, const NumberFormat &format) {
    const std::string_view sign = decimalSignOf(format);
    if (text.size() > mostDigits || sign.size() != 1 || format.groupSign.size() > longestSign)
        return {};
    const bool isNegative = !text.empty() && text.front() == '-';
    // One place is free before them, for what rounding carries.
    std::array<char, mostDigits + 1> room{'0'};
    char *const digits = room.data() + 1;
    int count = 0;
    int whole = -1;
    for (const char character : text.substr(isNegative ? 1 : 0)) {
        if (ascii::isDigit(character))
            digits[count++] = character;
        else if (character == sign.front() && whole < 0)
            whole = count;
        else
            return {};
    }
    if (count == 0)
        return {};
    whole = whole < 0 ? count : whole;

    if (const int kept = whole + fractionPlaces_; kept < count) {
        char *digit = digits + kept;
        const bool isUp = *digit >= '5';
        for (bool carries = isUp; carries;) {
            --digit;
            carries = *digit == '9';
            *digit = carries ? '0' : static_cast<char>(*digit + 1);
        }
        count = kept;
    }
    // The place that was free is a digit like the others, and mostly a needless zero.
    const char *first = room.data();
    ++whole;
    ++count;
    for (; whole > 0 && *first == '0'; --whole, --count)
        ++first;
    int fraction = count - whole;
    while (fraction > 0 && first[whole + fraction - 1] == '0')
        --fraction;

    char *to = buffer_.data();
    if (isNegative && whole + fraction > 0)
        *to++ = '-';
    const bool groups = groups_ && format.groupSize > 0 && format.groupSign != sign;
    for (int power = std::max(whole, wholeZeros_) - 1; power >= 0; --power) {
        *to++ = power < whole ? first[whole - 1 - power] : '0';
        if (groups && power > 0 && format.groupsBefore(power))
            to = std::copy(format.groupSign.begin(), format.groupSign.end(), to);
    }
    if (fractionPlaces_ > 0)
        *to++ = sign.front();
    for (int place = 0; place < std::max(fraction, fractionZeros_); ++place)
        *to++ = place < fraction ? first[whole + place] : '0';
    return {buffer_.data(), static_cast<std::size_t>(to - buffer_.data())};
}

} // namespace tablio
