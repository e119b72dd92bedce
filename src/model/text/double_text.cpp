#include "model/text/double_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tablio {

namespace {

/// The number is 0.digits times ten to the power `point`.
struct Digits {
    std::string digits;
    int point = 0;
};

/// All digits of a finite number above zero: at most 767.
Digits exactDigits(double number) {
    int exponent = 0;
    const double fraction = std::frexp(number, &exponent);
    constexpr int bits = 53;
    auto rest = static_cast<std::uint64_t>(std::ldexp(fraction, bits));
    exponent -= bits;

    constexpr int limbDigits = 9;
    constexpr std::uint32_t limbSize = 1'000'000'000;
    std::vector<std::uint32_t> limbs; // The lowest first.
    for (; rest > 0; rest /= limbSize)
        limbs.push_back(static_cast<std::uint32_t>(rest % limbSize));
    // A halving is five times as much, one decimal place further right.
    const std::uint32_t base = exponent < 0 ? 5 : 2;
    for (int left = std::abs(exponent); left > 0;) {
        constexpr int stepsThatFit = 12; // So that what is carried is one limb.
        std::uint32_t factor = 1;
        for (int step = std::min(left, stepsThatFit); step > 0; --step, --left)
            factor *= base;
        std::uint64_t carry = 0;
        for (std::uint32_t &limb : limbs) {
            carry += std::uint64_t{limb} * factor;
            limb = static_cast<std::uint32_t>(carry % limbSize);
            carry /= limbSize;
        }
        if (carry > 0)
            limbs.push_back(static_cast<std::uint32_t>(carry));
    }

    Digits result;
    for (auto limb = limbs.rbegin(); limb != limbs.rend(); ++limb) {
        const std::string digits = std::to_string(*limb);
        if (limb != limbs.rbegin())
            result.digits.append(limbDigits - digits.size(), '0');
        result.digits += digits;
    }
    result.point = static_cast<int>(result.digits.size()) + std::min(exponent, 0);
    return result;
}

/// To the nearest, of two equally near ones to the even one.
void round(Digits &number, std::size_t kept) {
    std::string &digits = number.digits;
    if (digits.size() > kept) {
        const bool isTie =
            digits[kept] == '5' && digits.find_first_not_of('0', kept + 1) == std::string::npos;
        const bool goesUp = isTie ? (digits[kept - 1] - '0') % 2 == 1 : digits[kept] >= '5';
        digits.resize(kept);
        if (goesUp) {
            const std::size_t last = digits.find_last_not_of('9');
            digits.resize(last == std::string::npos ? 0 : last + 1);
            if (digits.empty()) {
                digits = '0';
                ++number.point;
            }
            ++digits.back();
        }
    }
    digits.resize(digits.find_last_not_of('0') + 1);
}

} // namespace

std::string textOfDouble(double number, int digits, char exponentSign) {
    if (number == 0)
        return "0";
    std::string text = std::signbit(number) ? "-" : "";
    if (!std::isfinite(number))
        return text.append(std::isnan(number) ? "NAN" : "INF");
    Digits rounded = exactDigits(std::abs(number));
    round(rounded, static_cast<std::size_t>(digits));
    const std::string &all = rounded.digits;
    const int power = rounded.point - 1;
    if (power < -4 || power >= digits) {
        text.append(all, 0, 1).append(all.size() > 1 ? "." : "").append(all, 1);
        text.append({exponentSign, power < 0 ? '-' : '+'});
        return text.append(std::abs(power) < 10 ? "0" : "").append(std::to_string(std::abs(power)));
    }
    if (power < 0)
        return text.append("0.").append(static_cast<std::size_t>(-1 - power), '0').append(all);
    const auto whole = static_cast<std::size_t>(rounded.point);
    text.append(all, 0, whole).append(whole > all.size() ? whole - all.size() : 0, '0');
    return all.size() > whole ? text.append(".").append(all, whole) : text;
}

} // namespace tablio
