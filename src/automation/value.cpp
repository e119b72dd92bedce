#include <tablio/value.h>

#include <tablio/errors.h>
#include <tablio/tmatrix.h>

#include "model/text/ascii.h"
#include "model/text/decimal_text.h"
#include "model/text/double_text.h"
#include "model/text/leading_number.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace tablio {

namespace {

constexpr std::array<std::string_view, 9> typeNames{
    "Empty", "Boolean", "Integer", "Long", "Double", "String", "Font", "Object", "missing"};

std::optional<double> numberIn(std::string_view text) {
    static const NumberFormat noLocale{".", "", 0};
    const std::optional<Decimal> number = Decimal::parse(text, noLocale);
    return number ? std::optional(number->toDouble()) : std::nullopt;
}

std::string textOf(double number) { return textOfDouble(number, 15, 'E'); }

[[noreturn]] void mismatch(const Value &value, std::string_view wanted) {
    std::string message("a value of type ");
    message.append(nameOf(value.type()));
    if (value.type() == Value::Type::String)
        message.append(" (\"").append(value.toText().substr(0, 40)).append("\")");
    throw TypeMismatch(message.append(" cannot be read as ").append(wanted));
}

template <typename Whole> Whole wholeNumber(const Value &value, Value::Type type) {
    using Limits = std::numeric_limits<Whole>;
    const double number = value.toDouble();
    const double whole = nearestWhole(number);
    if (!(whole >= Limits::min() && whole <= Limits::max()))
        throw OverflowError(textOf(number).append(
            type == Value::Type::Integer ? " does not fit 16 bits" : " does not fit 32 bits"));
    return static_cast<Whole>(whole);
}

/// Numbers and Boolean, which compare by what they are worth.
bool isNumeric(const Value &value) noexcept {
    return value.type() >= Value::Type::Boolean && value.type() <= Value::Type::Double;
}

} // namespace

Value Value::missing() noexcept {
    Value value;
    value.data_.emplace<Absent>();
    return value;
}

double Value::toDouble() const {
    switch (type()) {
    case Type::Empty:
        return 0;
    case Type::Boolean:
        return std::get<bool>(data_) ? -1 : 0;
    case Type::Integer:
        return std::get<std::int16_t>(data_);
    case Type::Long:
        return std::get<std::int32_t>(data_);
    case Type::Double:
        return std::get<double>(data_);
    case Type::String:
        if (const std::optional<double> number = numberIn(std::get<std::string>(data_)))
            return *number;
        break;
    default:
        break;
    }
    mismatch(*this, "a number");
}

std::int16_t Value::toInteger() const { return wholeNumber<std::int16_t>(*this, Type::Integer); }

std::int32_t Value::toLong() const { return wholeNumber<std::int32_t>(*this, Type::Long); }

bool Value::toBoolean() const {
    if (const std::string *text = std::get_if<std::string>(&data_)) {
        if (sameName(*text, "True"))
            return true;
        if (sameName(*text, "False"))
            return false;
    }
    return toDouble() != 0;
}

std::string Value::toText() const {
    switch (type()) {
    case Type::Empty:
        return {};
    case Type::Boolean:
        return std::get<bool>(data_) ? "True" : "False";
    case Type::Integer:
    case Type::Long:
        return std::to_string(toLong());
    case Type::Double:
        return textOf(std::get<double>(data_));
    case Type::String:
        return std::get<std::string>(data_);
    default:
        mismatch(*this, "text");
    }
}

Colour Value::toColour() const {
    if (type() != Type::Long) {
        const double number = toDouble();
        // The unsigned reading of a colour whose top bit is set.
        if (number > std::numeric_limits<std::int32_t>::max() &&
            number <= std::numeric_limits<std::uint32_t>::max())
            return Colour{static_cast<std::uint32_t>(nearestWhole(number))};
    }
    return Colour{static_cast<std::uint32_t>(toLong())};
}

Font Value::toFont() const {
    if (const auto *font = std::get_if<tablio::Font>(&data_))
        return *font;
    mismatch(*this, "a font");
}

std::shared_ptr<TMatrix> Value::toObject() const {
    if (type() == Type::Empty)
        return nullptr;
    if (const auto *object = std::get_if<std::shared_ptr<TMatrix>>(&data_))
        return *object;
    mismatch(*this, "an object");
}

Value Value::convertedTo(Type wanted) const {
    switch (wanted) {
    case Type::Boolean:
        return toBoolean();
    case Type::Integer:
        return toInteger();
    case Type::Long:
        return toLong();
    case Type::Double:
        return toDouble();
    case Type::String:
        return toText();
    case Type::Font:
        return toFont();
    case Type::Object:
        return toObject();
    default:
        if (type() != wanted)
            mismatch(*this, nameOf(wanted));
        return *this;
    }
}

bool comparesEqual(const Value &left, const Value &right) {
    using Type = Value::Type;
    if (left.type() == right.type())
        return left == right;
    if (left.type() > right.type())
        return comparesEqual(right, left);
    // From here on the right one has the later type of the two.
    if (right.type() == Type::Object)
        return left.type() == Type::Empty && right.toObject() == nullptr;
    if (right.type() == Type::String) {
        const std::string text = right.toText();
        if (left.type() == Type::Empty)
            return text.empty();
        const std::optional<double> number = numberIn(text);
        return number ? *number == left.toDouble() : sameName(text, left.toText());
    }
    return isNumeric(right) && left.toDouble() == right.toDouble();
}

std::string_view nameOf(Value::Type type) noexcept {
    return typeNames[static_cast<std::size_t>(type)];
}

bool sameName(std::string_view left, std::string_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return ascii::lower(a) == ascii::lower(b); });
}

} // namespace tablio
