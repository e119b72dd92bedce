#pragma once

/// What a cell holds, with its type and free of any locale. Hosts write and read cells by it
/// (`Cells`), so that no number and no date goes through a text that somebody's locale has shaped.

#include <tablio/date.h>
#include <tablio/decimal.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace tablio {

/// A conversion that makes no sense throws TypeMismatch, one whose result does not fit throws
/// OverflowError. As text, numbers have a point and no groups, dates are 2004-03-05, and truth is
/// "True" or "False".
class CellValue {
public:
    enum class Type { Empty, Text, Integer, Decimal, Date, Boolean };

    /// Of an empty cell.
    CellValue() noexcept = default;
    /// An empty text is an empty cell.
    CellValue(std::string text);
    CellValue(std::string_view text) : CellValue(std::string(text)) {}
    CellValue(const char *text) : CellValue(std::string(text)) {}
    CellValue(std::int64_t number) noexcept : data_(number) {}
    CellValue(int number) noexcept : data_(std::int64_t{number}) {}
    CellValue(tablio::Decimal number) noexcept : data_(std::move(number)) {}
    /// The shortest decimal number that stands for this double. OverflowError for one that is not
    /// finite.
    CellValue(double number);
    CellValue(tablio::Date date) noexcept : data_(date) {}
    CellValue(bool truth) noexcept : data_(truth) {}
    /// Anything else that would turn into a bool or a number on the quiet.
    template <typename Other>
    requires(std::is_pointer_v<Other> || std::is_arithmetic_v<Other>) CellValue(Other)
    = delete;

    [[nodiscard]] Type type() const noexcept { return static_cast<Type>(data_.index()); }
    [[nodiscard]] bool isEmpty() const noexcept { return type() == Type::Empty; }

    [[nodiscard]] std::string toText() const;
    /// A text holds one number; an empty cell is no number.
    [[nodiscard]] tablio::Decimal toDecimal() const;
    [[nodiscard]] double toDouble() const { return toDecimal().toDouble(); }
    /// Whole numbers only.
    [[nodiscard]] std::int64_t toInteger() const;
    /// A text is 2004-03-05 or 05/03/2004.
    [[nodiscard]] tablio::Date toDate() const;
    /// "True" and "False" in any case, and 1 and 0; an empty cell is False.
    [[nodiscard]] bool toBoolean() const;

    /// The same type and the same value.
    friend bool operator==(const CellValue &, const CellValue &) = default;

private:
    /// Alternatives stand in the order of Type.
    std::variant<std::monostate, std::string, std::int64_t, tablio::Decimal, tablio::Date, bool>
        data_;
};

} // namespace tablio
