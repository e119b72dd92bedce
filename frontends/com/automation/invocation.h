#pragma once

/// IDispatch over a table of members: names, arguments in their places however a host passes them
/// (by position, by name, left out, as the value of a put), results, and how a failure is told.
/// What a member does is up to the class that derives from it.

#include "automation/variants.h"
#include "server/type_library.h"

#include <tablio/members.h>

#include <span>

namespace tablio::com {

/// The arguments of one call.
class Invocation {
public:
    /// Throws ArgumentCount for more arguments than places, TypeMismatch for what is no value.
    Invocation(const Member &member, WORD flags, const DISPPARAMS &parameters);

    /// The new value of a property that is to be written, as the host gave it; null for a call.
    [[nodiscard]] const VARIANT *put() const noexcept { return put_; }
    /// Whether the property is to hold the very object.
    [[nodiscard]] bool isReference() const noexcept { return isReference_; }
    /// Value::missing() stands for one that is left out.
    [[nodiscard]] const Values &arguments() const noexcept { return arguments_; }

private:
    bool isReference_;
    const VARIANT *put_ = nullptr;
    Values arguments_;
};

/// A failure as IDispatch::Invoke tells it.
struct InvokeAnswer {
    VARIANT *result;
    EXCEPINFO *exception;
    UINT *wrongArgument;
};

/// The code for the exception that is being handled, after telling what more there is to tell.
HRESULT tellFailure(const DISPPARAMS &parameters, const InvokeAnswer &answer) noexcept;
HRESULT numbersOf(std::span<const Member> members, OLECHAR **names, UINT count, DISPID *numbers);
[[nodiscard]] const Member &memberOf(std::span<const Member> members, DISPID number);

template <typename Base> class Automation : public Base {
public:
    template <typename... Arguments>
    Automation(std::span<const Member> members, const GUID &interfaceId, Arguments &...arguments)
        : Base(arguments...), members_(members), interfaceId_(interfaceId) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) override {
        if (count == nullptr)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo **info) override {
        return index == 0 ? typeInfoOf(interfaceId_, info) : DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, OLECHAR **names, UINT count,
                                            LCID /*locale*/, DISPID *numbers) override {
        if (iid != IID_NULL)
            return DISP_E_UNKNOWNINTERFACE;
        return numbersOf(members_, names, count, numbers);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID iid, LCID /*locale*/, WORD flags,
                                     DISPPARAMS *parameters, VARIANT *result, EXCEPINFO *exception,
                                     UINT *wrongArgument) override {
        if (iid != IID_NULL)
            return DISP_E_UNKNOWNINTERFACE;
        if (parameters == nullptr)
            return E_POINTER;
        const ComPtr<IUnknown> keeps(this);
        try {
            const Member &member = memberOf(members_, number);
            const Invocation invocation(member, flags, *parameters);
            Variant answer;
            carryOut(member, invocation, answer.get());
            if (result != nullptr)
                *result = std::exchange(answer.get(), VARIANT{});
            return S_OK;
        } catch (...) {
            return tellFailure(*parameters, {result, exception, wrongArgument});
        }
    }

protected:
    /// Reads, writes or calls a member. Exceptions are told to the host.
    virtual void carryOut(const Member &member, const Invocation &invocation, VARIANT &result) = 0;

private:
    std::span<const Member> members_;
    const GUID &interfaceId_;
};

} // namespace tablio::com
