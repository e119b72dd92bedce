#include "model/text/leading_number.h"

#include "model/text/decimal_text.h"

#include <algorithm>
#include <cmath>

namespace tablio {

namespace {

std::size_t pastDigits(std::string_view text, std::size_t position) {
    return std::min(text.find_first_not_of("0123456789", position), text.size());
}

std::size_t pastSign(std::string_view text, std::size_t position) {
    const bool hasSign = position < text.size() && (text[position] == '-' || text[position] == '+');
    return hasSign ? position + 1 : position;
}

} // namespace

double leadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
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

double nearestWhole(double number) noexcept { return number - std::remainder(number, 1.0); }

} // namespace tablio
