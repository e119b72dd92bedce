#include "events/events.h"

#include "automation/variants.h"
#include "events/enumerator.h"
#include "object/control.h"
#include "object/entry.h"
#include "object/failure.h"
#include "object/text.h"
#include "server/guid.h"
#include "server/type_library.h"

#include <olectl.h>

#include <optional>

namespace tablio::com {

namespace {

/// An argument of an event as sinks get it: a reference to what they may change.
class ReferenceArgument {
public:
    explicit ReferenceArgument(const Value &value) { setVariant(value_.get(), value); }

    [[nodiscard]] VARIANT reference() noexcept {
        VARIANT reference{};
        VARIANT &value = value_.get();
        V_VT(&reference) = static_cast<VARTYPE>(V_VT(&value) | VT_BYREF);
        // All kinds of values begin at the same place.
        V_BYREF(&reference) = &V_BYREF(&value);
        return reference;
    }
    [[nodiscard]] Value value() const { return valueOf(value_.get(), MemberType::Any); }

private:
    Variant value_;
};

Failure failureOf(EXCEPINFO &exception) {
    if (exception.pfnDeferredFillIn != nullptr)
        exception.pfnDeferredFillIn(&exception);
    const auto taken = [](BSTR text) {
        std::string result = narrow(viewOf(text));
        SysFreeString(text);
        return result;
    };
    Failure failure{DISP_E_EXCEPTION, exception.scode, taken(exception.bstrDescription),
                    taken(exception.bstrSource)};
    SysFreeString(exception.bstrHelpFile);
    if (failure.number == 0) // told as a number of the host's own
        failure.number = static_cast<HRESULT>(0x80040000U | exception.wCode);
    return failure;
}

/// Answers how the sink's handler failed, if it did. A sink that has no handler is none.
std::optional<Failure> tell(IUnknown &sink, MemberNumber number, std::span<Value> arguments) {
    const auto dispatch = ComPtr<IDispatch>::of(&sink);
    if (!dispatch)
        return std::nullopt;
    std::vector<ReferenceArgument> kept(arguments.begin(), arguments.end());
    std::vector<VARIANT> references;
    for (auto argument = kept.rbegin(); argument != kept.rend(); ++argument)
        references.push_back(argument->reference());
    DISPPARAMS parameters{references.data(), nullptr, static_cast<UINT>(references.size()), 0};
    EXCEPINFO exception{};
    Variant ignored;
    const HRESULT code = dispatch->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                          &parameters, ignored.out(), &exception, nullptr);
    if (code == DISP_E_EXCEPTION)
        return failureOf(exception);
    if (SUCCEEDED(code))
        for (std::size_t place = 0; place < arguments.size(); ++place)
            arguments[place] = kept[place].value();
    return std::nullopt;
}

} // namespace

Events::Events(Control &control)
    : PartOf(control), relay_(relayTo(*this)), events_(control, eventsId),
      notices_(control, IID_IPropertyNotifySink) {
    control.table().setHost(relay_.get());
}

void Events::event(MemberNumber number, std::span<Value> arguments) {
    if (events_.isEmpty() || control().eventsAreFrozen())
        return;
    const ComPtr<IUnknown> keeps(&control().outer());
    std::optional<Failure> failure;
    for (const Connection &one : events_.connections()) {
        if (!events_.has(one.cookie))
            continue; // an earlier sink has disconnected it
        if (auto failed = tell(*one.sink.get(), number, arguments))
            failure = std::move(failed);
    }
    if (failure)
        throw HandlerFailed(*std::move(failure));
}

void Events::propertyChanged(long number) {
    if (notices_.isEmpty())
        return;
    for (const Connection &one : notices_.connections())
        if (notices_.has(one.cookie))
            if (const auto sink = ComPtr<IPropertyNotifySink>::of(one.sink.get()))
                sink->OnChanged(number);
}

HRESULT Events::EnumConnectionPoints(IEnumConnectionPoints **points) {
    if (points == nullptr)
        return E_POINTER;
    return entry(control(), [&] {
        *points = new Enumerator<IEnumConnectionPoints, IConnectionPoint *>({&events_, &notices_});
    });
}

HRESULT Events::FindConnectionPoint(REFIID iid, IConnectionPoint **point) {
    if (point == nullptr)
        return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint *one : {&events_, &notices_})
        if (iid == one->iid())
            return one->QueryInterface(IID_IConnectionPoint, reinterpret_cast<void **>(point));
    return CONNECT_E_NOCONNECTION;
}

HRESULT Events::GetClassInfo(ITypeInfo **info) { return typeInfoOf(tablioClassId, info); }

HRESULT Events::GetGUID(DWORD kind, GUID *guid) {
    if (guid == nullptr)
        return E_POINTER;
    *guid = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? eventsId : GUID_NULL;
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
}

} // namespace tablio::com
