#pragma once

/// The signs with which one user writes numbers. A face answers it from the platform's locale;
/// everything in the core that reads or shows a number is given one and keeps none.

#include <string>

namespace tablio {

/// Signs are UTF-8 texts because some locales group with a non-ASCII blank.
struct NumberFormat {
    std::string decimalSign = ".";
    std::string groupSign = ",";
    /// Digits between the decimal sign and the first grouping sign; 0 means that this user does not
    /// group.
    int groupSize = 3;
    /// Digits between two grouping signs; 0 for as many as groupSize.
    int nextGroupSize = 0;

    /// Whether a grouping sign stands in front of the last `digits` digits of the integer part.
    [[nodiscard]] bool groupsBefore(int digits) const noexcept {
        const int next = nextGroupSize > 0 ? nextGroupSize : groupSize;
        return groupSize > 0 && digits >= groupSize && (digits - groupSize) % next == 0;
    }

    friend bool operator==(const NumberFormat &, const NumberFormat &) = default;
};

} // namespace tablio
