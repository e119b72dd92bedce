#include "automation/invocation.h"

#include "object/entry.h"
#include "object/failure.h"
#include "object/text.h"

#include <tablio/errors.h>

#include <algorithm>

namespace tablio::com {

namespace {

/// Tells which argument an error is about.
Value argumentOf(const VARIANT &variant, MemberType type, std::size_t place) {
    try {
        return valueOf(variant, type);
    } catch (const TypeMismatch &error) {
        throw TypeMismatch(error.what(), static_cast<int>(place));
    } catch (const OverflowError &error) {
        throw OverflowError(error.what(), static_cast<int>(place));
    }
}

/// Where an argument stands among the parameters, which are in the opposite order: named ones
/// first, with the value of a put before all.
UINT placeIn(const DISPPARAMS &parameters, int argument) noexcept {
    for (UINT place = 0; place < parameters.cNamedArgs; ++place)
        if (parameters.rgdispidNamedArgs[place] == argument)
            return place;
    const int place = static_cast<int>(parameters.cArgs) - 1 - argument;
    return place > 0 ? static_cast<UINT>(place) : 0;
}

} // namespace

Invocation::Invocation(const Member &member, WORD flags, const DISPPARAMS &parameters)
    : isReference_((flags & DISPATCH_PROPERTYPUTREF) != 0) {
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const std::size_t places = member.arguments.size();
    const auto tooMany = [&member] {
        throw ArgumentCount(std::string(member.name) + ": too many arguments");
    };
    const auto set = [&](std::size_t place, const VARIANT &variant) {
        if (place >= places)
            tooMany();
        if (arguments_.size() <= place)
            arguments_.resize(place + 1, Value::missing());
        arguments_[place] = argumentOf(variant, member.arguments[place].type, place);
    };
    arguments_.reserve(places);
    UINT first = 0;
    for (; first < parameters.cNamedArgs; ++first) {
        const DISPID name = parameters.rgdispidNamedArgs[first];
        if (name == DISPID_PROPERTYPUT)
            put_ = &parameters.rgvarg[first];
        else
            set(static_cast<std::size_t>(name), parameters.rgvarg[first]);
    }
    // Not every host names the value.
    if (isPut && put_ == nullptr && first < parameters.cArgs)
        put_ = &parameters.rgvarg[first++];
    if (isPut != (put_ != nullptr))
        throw ArgumentCount(std::string(member.name) + ": a value to put, or none, is wanted");
    for (UINT last = parameters.cArgs; last > first; --last)
        set(parameters.cArgs - last, parameters.rgvarg[last - 1]);
}

HRESULT tellFailure(const DISPPARAMS &parameters, const InvokeAnswer &answer) noexcept {
    const Failure failure = failureOfException();
    if (failure.argument >= 0 && answer.wrongArgument != nullptr && parameters.cArgs > 0)
        *answer.wrongArgument = placeIn(parameters, failure.argument);
    if (failure.code != DISP_E_EXCEPTION)
        return failure.code;
    if (answer.exception == nullptr)
        return failure.number;
    *answer.exception = EXCEPINFO{};
    answer.exception->scode = failure.number;
    answer.exception->bstrDescription = SysAllocString(wide(failure.description).c_str());
    answer.exception->bstrSource = SysAllocString(wide(failure.source).c_str());
    return DISP_E_EXCEPTION;
}

const Member &memberOf(std::span<const Member> members, DISPID number) {
    const auto found = std::find_if(members.begin(), members.end(),
                                    [number](const Member &one) { return one.number == number; });
    if (found == members.end())
        throw UnknownMember("no member has the number " + std::to_string(number));
    return *found;
}

HRESULT numbersOf(std::span<const Member> members, OLECHAR **names, UINT count, DISPID *numbers) {
    if (names == nullptr || numbers == nullptr || count == 0)
        return E_INVALIDARG;
    std::fill_n(numbers, count, DISPID_UNKNOWN);
    try {
        const auto member = std::find_if(
            members.begin(), members.end(),
            [name = narrow(names[0])](const Member &one) { return sameName(one.name, name); });
        if (member == members.end())
            return DISP_E_UNKNOWNNAME;
        numbers[0] = member->number;
        HRESULT code = S_OK;
        for (UINT index = 1; index < count; ++index) {
            const auto &arguments = member->arguments;
            const auto found = std::find_if(arguments.begin(), arguments.end(),
                                            [name = narrow(names[index])](const Argument &one) {
                                                return sameName(one.name, name);
                                            });
            if (found == arguments.end())
                code = DISP_E_UNKNOWNNAME;
            else
                numbers[index] = static_cast<DISPID>(found - arguments.begin());
        }
        return code;
    } catch (...) {
        return codeOfException();
    }
}

} // namespace tablio::com
