#include <tablio/tmatrix.h>

#include <limits>
#include <utility>

namespace tablio {

namespace {

bool fits16Bit(int number) noexcept {
    return number >= std::numeric_limits<std::int16_t>::min() &&
           number <= std::numeric_limits<std::int16_t>::max();
}

/// Appends the number's decimal text to the key, four bits a character. Two 16-bit numbers have
/// at most twelve characters, so the joined text fits and no two texts share a key.
std::uint64_t appendDigits(std::uint64_t key, int number) noexcept {
    constexpr std::uint64_t minus = 11;
    if (number < 0) {
        key = (key << 4U) | minus;
        number = -number;
    }
    int scale = 1;
    while (number / scale >= 10)
        scale *= 10;
    for (; scale > 0; scale /= 10)
        key = (key << 4U) | static_cast<std::uint64_t>(number / scale % 10 + 1);
    return key;
}

std::uint64_t keyOf(int row, int col) noexcept { return appendDigits(appendDigits(0, row), col); }

} // namespace

MatrixValue TMatrix::Text(int Row, int Col) const {
    if (!fits16Bit(Row) || !fits16Bit(Col))
        return std::string();
    const auto found = values_.find(keyOf(Row, Col));
    return found == values_.end() ? MatrixValue(std::string()) : found->second;
}

void TMatrix::setText(int Row, int Col, MatrixValue Value) {
    if (fits16Bit(Row) && fits16Bit(Col))
        values_.insert_or_assign(keyOf(Row, Col), std::move(Value));
}

void TMatrix::remove(int Row, int Col) noexcept {
    if (fits16Bit(Row) && fits16Bit(Col))
        values_.erase(keyOf(Row, Col));
}

} // namespace tablio
