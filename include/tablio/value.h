#pragma once

/// `Value`, one value of any type that the control's automation interface knows. Late-bound hosts,
/// property stores and the property pages pass them; typed callers never meet one. It converts the
/// way automation does and free of any locale: the decimal sign is ".", nothing groups digits.

#include <tablio/types.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace tablio {

class TMatrix;

/// A conversion that makes no sense throws TypeMismatch, one whose result does not fit throws
/// OverflowError. Constructors take what they are given; `Value(1)` is a Long.
class Value {
public:
    /// Missing stands for an optional argument that a caller leaves out.
    enum class Type { Empty, Boolean, Integer, Long, Double, String, Font, Object, Missing };

    Value() noexcept = default;
    Value(bool value) noexcept : data_(value) {}
    Value(std::int16_t value) noexcept : data_(value) {}
    Value(std::int32_t value) noexcept : data_(value) {}
    Value(double value) noexcept : data_(value) {}
    Value(std::string value) noexcept : data_(std::move(value)) {}
    Value(std::string_view value) : data_(std::string(value)) {}
    Value(const char *value) : data_(std::string(value)) {}
    Value(tablio::Font value) noexcept : data_(std::move(value)) {}
    Value(std::shared_ptr<TMatrix> value) noexcept : data_(std::move(value)) {}
    /// A colour is a Long with the same bits.
    Value(Colour value) noexcept : data_(static_cast<std::int32_t>(value.value)) {}
    template <typename Enumeration>
    requires std::is_enum_v<Enumeration> Value(Enumeration value)
    noexcept : data_(static_cast<std::int32_t>(value)) {}
    /// Anything else that would turn into a bool or a number on the quiet.
    template <typename Other>
    requires(std::is_pointer_v<Other> || std::is_arithmetic_v<Other>) Value(Other)
    = delete;

    [[nodiscard]] static Value missing() noexcept;

    [[nodiscard]] Type type() const noexcept { return static_cast<Type>(data_.index()); }
    [[nodiscard]] bool isMissing() const noexcept { return type() == Type::Missing; }

    /// Numbers but 0 are True; text is "True" or "False" in any case, or a number.
    [[nodiscard]] bool toBoolean() const;
    /// True is −1. A fraction is rounded, a half to the even neighbour. Text holds one number.
    [[nodiscard]] std::int16_t toInteger() const;
    [[nodiscard]] std::int32_t toLong() const;
    [[nodiscard]] double toDouble() const;
    /// "True" or "False", a number with up to 15 digits, the text itself.
    [[nodiscard]] std::string toText() const;
    /// A Long's bits; the unsigned reading of a system colour (2147483666) is one, too.
    [[nodiscard]] Colour toColour() const;
    [[nodiscard]] tablio::Font toFont() const;
    /// Empty is the null object.
    [[nodiscard]] std::shared_ptr<TMatrix> toObject() const;
    [[nodiscard]] Value convertedTo(Type type) const;

    /// The same type and the same value.
    friend bool operator==(const Value &, const Value &) = default;

private:
    struct Absent {
        friend bool operator==(const Absent &, const Absent &) = default;
    };

    /// Alternatives stand in the order of Type.
    std::variant<std::monostate, bool, std::int16_t, std::int32_t, double, std::string,
                 tablio::Font, std::shared_ptr<TMatrix>, Absent>
        data_;
};

/// Whether automation takes the two for equal whatever their types: 2 and 2.0, False and 0, "64"
/// and 64. Text is compared exactly; Empty is 0 and "".
[[nodiscard]] bool comparesEqual(const Value &left, const Value &right);

/// The type as callers know it: "Integer", "Long", …
[[nodiscard]] std::string_view nameOf(Value::Type type) noexcept;

/// The text without regard to the case of ASCII letters, as member and key names are compared.
[[nodiscard]] bool sameName(std::string_view left, std::string_view right) noexcept;

} // namespace tablio
