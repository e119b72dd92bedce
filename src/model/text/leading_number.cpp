#include "model/text/leading_number.h"

#include "model/text/decimal_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string>
#include <system_error>

namespace tablio {

namespace {

constexpr std::string_view blanks = " \t\n";

std::size_t pastDigits(std::string_view text, std::size_t position) {
    return std::min(text.find_first_not_of("0123456789", position), text.size());
}

std::size_t pastSign(std::string_view text, std::size_t position) {
    const bool hasSign = position < text.size() && (text[position] == '-' || text[position] == '+');
    return hasSign ? position + 1 : position;
}

} // namespace

double leadingNumber(std::string_view text) {
    std::string packed;
    if (text.find_first_of(blanks) != std::string_view::npos) {
        std::copy_if(text.begin(), text.end(), std::back_inserter(packed), [](char character) {
            return blanks.find(character) == std::string_view::npos;
        });
        text = packed;
    }
    std::size_t end = pastDigits(text, pastSign(text, 0));
    if (end < text.size() && text[end] == '.')
        end = pastDigits(text, end + 1);
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const std::size_t exponent = pastSign(text, end + 1);
        const std::size_t exponentEnd = pastDigits(text, exponent);
        if (exponentEnd > exponent)
            end = exponentEnd;
    }
    const NumberFormat plain{".", "", 0};
    return Decimal::parse(text.substr(0, end), plain).value_or(Decimal()).toDouble();
}

std::int64_t leadingWhole(std::string_view text) {
    // Nearly all texts are whole numbers that the control has written itself.
    std::int64_t whole = 0;
    const char *const end = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), end, whole);
    constexpr std::int64_t greatest = 999'999'999'999'999'999;
    if (read.ptr == end && read.ec == std::errc())
        return std::clamp(whole, -greatest, greatest);
    const double nearest = nearestWhole(leadingNumber(text));
    if (std::abs(nearest) >= static_cast<double>(greatest))
        return nearest < 0 ? -greatest : greatest;
    return static_cast<std::int64_t>(nearest);
}

double nearestWhole(double number) noexcept { return number - std::remainder(number, 1.0); }

} // namespace tablio
