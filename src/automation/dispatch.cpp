#include <tablio/dispatch.h>

#include "control/inside.h"
#include "model/text/decimal_text.h"
#include <tablio/members.h>

#include <tablio/errors.h>
#include <tablio/tablio.h>
#include <tablio/tmatrix.h>

#include <string>
#include <type_traits>
#include <variant>

namespace tablio {

namespace {

[[noreturn]] void refuse(const Member &member, std::string_view why) {
    throw UnknownMember(std::string(member.name).append(": ").append(why));
}

[[noreturn]] void wrongCount(const Member &member, std::size_t given) {
    throw ArgumentCount(std::string(member.name) + ": " + std::to_string(given) +
                        " arguments do not fit its " + std::to_string(member.arguments.size()));
}

/// A number that is given for a text is written as the control's user writes numbers, since that is
/// how the control reads it.
Value numberText(Tablio &control, const Value &number) {
    std::string text = number.toText();
    const std::size_t sign = text.find('.');
    if (sign != std::string::npos)
        text.replace(sign, 1, decimalSignOf(Inside::of(control).state.link.face().numberFormat()));
    return text;
}

/// Converts with an error that tells which argument of which member is wrong.
Value fitted(Tablio &control, const Member &member, std::string_view argument, int place,
             MemberType type, const Value &value) {
    const auto told = [&](const Error &error) {
        return std::string(member.name)
            .append(", ")
            .append(argument)
            .append(": ")
            .append(error.what());
    };
    try {
        if (type == MemberType::String && value.type() == Value::Type::Double)
            return numberText(control, value);
        return convertedTo(type, value);
    } catch (const TypeMismatch &error) {
        throw TypeMismatch(told(error), place);
    } catch (const OverflowError &error) {
        throw OverflowError(told(error), place);
    }
}

/// All declared arguments in their types, the ones left out by their defaults.
Values fitted(Tablio &control, const Member &member, const Values &given) {
    if (given.size() > member.arguments.size())
        wrongCount(member, given.size());
    Values result;
    result.reserve(member.arguments.size() + 1);
    for (const Argument &argument : member.arguments) {
        const std::size_t place = result.size();
        if (place < given.size() && !given[place].isMissing())
            result.push_back(fitted(control, member, argument.name, static_cast<int>(place),
                                    argument.type, given[place]));
        else if (argument.optional)
            result.push_back(argument.defaultValue());
        else
            wrongCount(member, given.size());
    }
    return result;
}

/// What a caller can be given of what hangs on a cell; an object of the host's own is Empty.
Value valueOf(const MatrixValue &held) {
    return std::visit(
        [](const auto &value) -> Value {
            using Held = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Held, std::int64_t>)
                return static_cast<double>(value);
            else if constexpr (std::is_convertible_v<Held, Value>)
                return value;
            else
                return {};
        },
        held);
}

MatrixValue matrixValueOf(const Value &value) {
    switch (value.type()) {
    case Value::Type::Boolean:
        return value.toBoolean();
    case Value::Type::Integer:
        return value.toInteger();
    case Value::Type::Long:
        return value.toLong();
    case Value::Type::Double:
        return value.toDouble();
    default:
        return value.toText();
    }
}

/// The cell of a matrix that a caller names by indexes although the member itself has none.
CellAddress cellOf(Tablio &control, const Values &index) {
    const Values cell = fitted(control, matrixMembers().front(), index);
    return {cell[0].toInteger(), cell[1].toInteger()};
}

bool isCellOfMatrix(const Member &member, const Values &index) noexcept {
    return member.type == MemberType::Matrix && !index.empty();
}

Value readMember(Tablio &control, const Member &member, const Values &arguments) {
    if (member.read == nullptr)
        refuse(member, "cannot be read");
    if (isCellOfMatrix(member, arguments)) {
        const CellAddress cell = cellOf(control, arguments);
        return valueOf(member.read(control, {}).toObject()->Text(cell.row, cell.col));
    }
    const Value result = member.read(control, fitted(control, member, arguments));
    // The typed function may count in a wider type than the interface.
    return fitted(control, member, "result", -1, member.type, result);
}

Value getProperty(Tablio &control, const Member &member, const Values &index) {
    if (member.kind != MemberKind::Property)
        refuse(member, "is no property");
    return readMember(control, member, index);
}

void putProperty(Tablio &control, const Member &member, const Value &value, const Values &index) {
    if (member.write == nullptr)
        refuse(member, "cannot be written");
    if (isCellOfMatrix(member, index)) {
        const CellAddress cell = cellOf(control, index);
        member.read(control, {}).toObject()->setText(cell.row, cell.col, matrixValueOf(value));
        return;
    }
    Values arguments = fitted(control, member, index);
    arguments.push_back(
        fitted(control, member, "value", static_cast<int>(index.size()), member.type, value));
    member.write(control, arguments);
}

} // namespace

Value Dispatch::call(MemberNumber number, const Values &arguments) {
    return readMember(control_, findMember(number), arguments);
}

Value Dispatch::call(std::string_view name, const Values &arguments) {
    return readMember(control_, findMember(name), arguments);
}

Value Dispatch::get(MemberNumber number, const Values &index) {
    return getProperty(control_, findMember(number), index);
}

Value Dispatch::get(std::string_view name, const Values &index) {
    return getProperty(control_, findMember(name), index);
}

void Dispatch::put(MemberNumber number, const Value &value, const Values &index) {
    putProperty(control_, findMember(number), value, index);
}

void Dispatch::put(std::string_view name, const Value &value, const Values &index) {
    putProperty(control_, findMember(name), value, index);
}

MemberNumber Dispatch::numberOf(std::string_view name) { return findMember(name).number; }

MemberNumber Dispatch::numberOfEvent(std::string_view name) { return findEvent(name).number; }

} // namespace tablio
