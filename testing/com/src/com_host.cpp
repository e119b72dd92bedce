#include "com_host.h"

#include "object/text.h"
#include "server/guid.h"

#include <tablio/errors.h>
#include <tablio/members.h>

#include <algorithm>
#include <vector>

namespace tablio::scenario {

using com::ComPtr;

namespace {

std::string taken(BSTR text) {
    std::string result = com::narrow(com::viewOf(text));
    SysFreeString(text);
    return result;
}

/// An argument of an event by reference; what the host makes of it goes back.
class Text {
public:
    explicit Text(VARIANT &argument)
        : place_(*V_BSTRREF(&argument)), text_(com::narrow(com::viewOf(place_))) {}
    ~Text() {
        SysFreeString(place_);
        place_ = com::newBstr(text_);
    }
    Text(const Text &) = delete;
    Text &operator=(const Text &) = delete;
    operator std::string &() noexcept { return text_; }

private:
    BSTR &place_;
    std::string text_;
};

class Flag {
public:
    explicit Flag(VARIANT &argument)
        : place_(*V_BOOLREF(&argument)), isSet_(place_ != VARIANT_FALSE) {}
    ~Flag() { place_ = isSet_ ? VARIANT_TRUE : VARIANT_FALSE; }
    Flag(const Flag &) = delete;
    Flag &operator=(const Flag &) = delete;
    operator bool &() noexcept { return isSet_; }

private:
    VARIANT_BOOL &place_;
    bool isSet_;
};

bool isHeld(std::int16_t key) { return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU; }

} // namespace

Value invoke(IDispatch &object, std::string_view name, WORD how, const Values &arguments) {
    com::WideText text = com::wide(name);
    OLECHAR *names = text.data();
    DISPID number = 0;
    if (FAILED(object.GetIDsOfNames(IID_NULL, &names, 1, 0, &number)))
        throw UnknownMember("no member " + std::string(name));
    std::vector<com::Variant> kept(arguments.size());
    std::vector<VARIANT> reversed;
    for (std::size_t at = arguments.size(); at-- > 0;) {
        com::setVariant(kept[at].get(), arguments[at]);
        reversed.push_back(kept[at].get());
    }
    DISPID put = DISPID_PROPERTYPUT;
    const UINT named = how == DISPATCH_PROPERTYPUT ? 1 : 0;
    DISPPARAMS parameters{reversed.data(), named != 0 ? &put : nullptr,
                          static_cast<UINT>(reversed.size()), named};
    com::Variant result;
    EXCEPINFO exception{};
    const HRESULT code =
        object.Invoke(number, IID_NULL, 0, how, &parameters, result.out(), &exception, nullptr);
    const std::string description = taken(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    // This code alone says it all to a host.
    if (code == DISP_E_OVERFLOW)
        throw OverflowError((arguments.empty() ? "It" : arguments.back().toText()) +
                            " does not fit 16 bits");
    if (FAILED(code))
        throw Error(description);
    const bool isMatrix = V_VT(&result.get()) == VT_DISPATCH;
    return isMatrix ? Value() : com::valueOf(result.get(), MemberType::Any);
}

void ComHost::connect(IUnknown &control) {
    const auto container = ComPtr<IConnectionPointContainer>::of(&control);
    for (const IID &iid : {com::eventsId, IID_IPropertyNotifySink}) {
        ComPtr<IConnectionPoint> point;
        DWORD cookie = 0;
        if (FAILED(container->FindConnectionPoint(iid, point.out())) ||
            FAILED(point->Advise(static_cast<IDispatch *>(this), &cookie)))
            throw Error("the control has no connection point for its events");
    }
}

HRESULT ComHost::QueryInterface(REFIID iid, void **object) {
    return ComObject::QueryInterface(iid == com::eventsId ? IID_IDispatch : iid, object);
}

HRESULT ComHost::GetTypeInfoCount(UINT *count) {
    *count = 0;
    return S_OK;
}

HRESULT ComHost::Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS *arguments, VARIANT *,
                        EXCEPINFO *exception, UINT *) {
    const auto all = events();
    const auto event = std::find_if(all.begin(), all.end(),
                                    [&](const Event &each) { return each.number == number; });
    if (event == all.end() || host == nullptr)
        return DISP_E_MEMBERNOTFOUND;
    // The last argument comes first.
    std::reverse(arguments->rgvarg, arguments->rgvarg + arguments->cArgs);
    try {
        hear(event->name, arguments->rgvarg);
        return S_OK;
    } catch (const std::exception &error) {
        *exception = {};
        exception->scode = E_FAIL;
        exception->bstrDescription = com::newBstr(error.what());
        return DISP_E_EXCEPTION;
    }
}

void ComHost::hear(std::string_view event, VARIANT *arguments) {
    const auto number = [arguments](int at) -> std::int16_t & { return *V_I2REF(&arguments[at]); };
    if (event == "EditPreValidation")
        host->EditPreValidation(number(0), number(1), Flag(arguments[2]));
    else if (event == "EditOnChange")
        host->EditOnChange(number(0), number(1), Text(arguments[2]));
    else if (event == "EditPostValidation")
        host->EditPostValidation(number(0), number(1), Flag(arguments[2]), Text(arguments[3]),
                                 Text(arguments[4]), number(5));
    else if (event == "EditLookup")
        host->EditLookup(number(0), number(1));
    else if (event == "CellFocus")
        host->CellFocus(number(0), number(1));
    else if (event == "CellKeyPress")
        host->CellKeyPress(number(0), number(1), number(2));
    else if (event == "TableChange")
        host->TableChange();
    else if (event == "TableKeyDown" && isHeld(number(0)))
        return; // no step of a scenario
    else if (event == "TableKeyDown")
        host->TableKeyDown(number(0), number(1), number(2), number(3));
    else if (event == "TableRowChange")
        host->TableRowChange(number(0), number(1));
    else if (event == "DoubleClick")
        host->DoubleClick(number(0), number(1));
}

HRESULT ComHost::OnChanged(DISPID number) {
    if (noticed)
        noticed(findMember(number).name);
    return S_OK;
}

} // namespace tablio::scenario
