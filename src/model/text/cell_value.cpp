#include <tablio/cell_value.h>

#include "model/text/ascii.h"
#include "model/text/date_reader.h"
#include "model/text/date_text.h"

#include <tablio/errors.h>

#include <algorithm>
#include <charconv>

namespace tablio {

namespace {

[[noreturn]] void mismatch(const CellValue &value, std::string_view wanted) {
    throw TypeMismatch("\"" + value.toText() + "\" is no " + std::string(wanted));
}

bool sameWord(std::string_view text, std::string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char a, char b) { return ascii::lower(a) == b; });
}

std::string isoText(const Date &date) {
    return PadNumber(std::to_string(date.year), 4) + '-' +
           PadNumber(std::to_string(date.month), 2) + '-' + PadNumber(std::to_string(date.day), 2);
}

} // namespace

CellValue::CellValue(std::string text) {
    if (!text.empty())
        data_ = std::move(text);
}

CellValue::CellValue(double number) {
    std::optional<tablio::Decimal> decimal = tablio::Decimal::fromDouble(number);
    if (!decimal)
        throw OverflowError("a number that is not finite has no place in a cell");
    data_ = *std::move(decimal);
}

std::string CellValue::toText() const {
    switch (type()) {
    case Type::Text:
        return std::get<std::string>(data_);
    case Type::Integer:
        return std::to_string(std::get<std::int64_t>(data_));
    case Type::Decimal:
        return std::get<tablio::Decimal>(data_).plainText();
    case Type::Date:
        return isoText(std::get<tablio::Date>(data_));
    case Type::Boolean:
        return std::get<bool>(data_) ? "True" : "False";
    default:
        return {};
    }
}

Decimal CellValue::toDecimal() const {
    if (type() == Type::Integer)
        return {std::get<std::int64_t>(data_)};
    if (type() == Type::Decimal)
        return std::get<tablio::Decimal>(data_);
    const bool isText = type() == Type::Text;
    // A sign that groups nowhere, so that "1,5" is no number here.
    const NumberFormat neutral{.decimalSign = ".", .groupSign = "", .groupSize = 0};
    const auto number = isText ? tablio::Decimal::parse(toText(), neutral) : std::nullopt;
    if (!number)
        mismatch(*this, "number");
    return *number;
}

std::int64_t CellValue::toInteger() const {
    const std::string digits = toDecimal().plainText();
    std::int64_t number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec == std::errc::result_out_of_range)
        throw OverflowError(digits + " does not fit 64 bits");
    if (read.ptr != digits.data() + digits.size())
        mismatch(*this, "whole number");
    return number;
}

Date CellValue::toDate() const {
    if (type() == Type::Date)
        return std::get<tablio::Date>(data_);
    const auto date =
        type() == Type::Text ? readDate(toText(), DateOrder::DayMonthYear) : std::nullopt;
    if (!date)
        mismatch(*this, "date");
    return TextToDate(*date);
}

bool CellValue::toBoolean() const {
    if (type() == Type::Boolean || isEmpty())
        return !isEmpty() && std::get<bool>(data_);
    const std::string text = toText();
    const bool isTrue = sameWord(text, "true") || text == "1";
    if (!isTrue && !sameWord(text, "false") && text != "0")
        mismatch(*this, "truth");
    return isTrue;
}

} // namespace tablio
