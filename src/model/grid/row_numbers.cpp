#include "model/grid/row_numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace tablio {

namespace {

constexpr std::size_t mostDigits = 5;

/// All numbers as text, side by side, so that a cell's text can be looked at without being made.
class NumberTexts {
public:
    NumberTexts() {
        digits_.resize(mostDigits * (RowNumbers::greatest + 1));
        for (int number = 0; number <= RowNumbers::greatest; ++number) {
            char *const place = &digits_[mostDigits * static_cast<std::size_t>(number)];
            std::to_chars(place, place + mostDigits, number);
        }
    }
    [[nodiscard]] std::string_view of(int number) const noexcept {
        const char *const place = &digits_[mostDigits * static_cast<std::size_t>(number)];
        return {place,
                static_cast<std::size_t>(std::find(place, place + mostDigits, '\0') - place)};
    }

private:
    std::vector<char> digits_;
};

} // namespace

std::string_view RowNumbers::textOf(int row) const noexcept {
    static const NumberTexts texts;
    return texts.of(row - first + 1);
}

void RowNumbers::cut(int rows, int colCount) {
    end = std::min(end, rows);
    if (cols.size() > static_cast<std::size_t>(colCount))
        cols.resize(static_cast<std::size_t>(colCount));
}

} // namespace tablio
