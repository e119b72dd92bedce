#pragma once

/// A host in a few lines: makes a control, calls it as scripts do, hears its events. Used by the
/// tests of the Windows control; after each of them nothing of the server may be left.

#include "automation/variants.h"
#include "object/control.h"
#include "object/text.h"
#include "server/class_factory.h"
#include "server/guid.h"
#include "server/module.h"

#include <tablio_com.h>

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace tablio::com {

/// An argument, a result, or a value in a VARIANT of any type.
class Any {
public:
    Any() noexcept { VariantInit(&value_); }
    Any(VARTYPE type, long long bits) : Any() {
        V_I8(&value_) = bits;
        V_VT(&value_) = type;
    }
    Any(int value) : Any(VT_I4, value) {}
    Any(bool value) : Any(VT_BOOL, value ? VARIANT_TRUE : VARIANT_FALSE) {}
    Any(double value) : Any(VT_R8, 0) { V_R8(&value_) = value; }
    Any(const char *value) : Any() {
        V_BSTR(&value_) = newBstr(value);
        V_VT(&value_) = VT_BSTR;
    }
    template <typename Object> Any(const ComPtr<Object> &object) : Any() {
        V_DISPATCH(&value_) = ComPtr<IDispatch>::of(object.get()).release();
        V_VT(&value_) = VT_DISPATCH;
    }
    Any(const Any &other) : Any() { VariantCopy(&value_, const_cast<VARIANT *>(&other.value_)); }
    Any &operator=(const Any &other) {
        VariantCopy(&value_, const_cast<VARIANT *>(&other.value_));
        return *this;
    }
    ~Any() { VariantClear(&value_); }

    static Any leftOut() { return {VT_ERROR, DISP_E_PARAMNOTFOUND}; }

    [[nodiscard]] VARIANT &get() noexcept { return value_; }
    [[nodiscard]] VARTYPE type() const noexcept { return V_VT(&value_); }
    /// As a person would write it.
    [[nodiscard]] std::string text() const {
        Variant text;
        if (FAILED(VariantChangeTypeEx(&text.get(), const_cast<VARIANT *>(&value_), 0x409,
                                       VARIANT_ALPHABOOL, VT_BSTR)))
            return "?";
        return narrow(viewOf(V_BSTR(&text.get())));
    }
    [[nodiscard]] ComPtr<IDispatch> object() const {
        return ComPtr<IDispatch>::of(objectIn(value_));
    }

private:
    VARIANT value_;
};

/// What a call came to.
struct Outcome {
    HRESULT code = S_OK;
    Any result;
    HRESULT number = 0;
    std::string description;
    UINT wrongArgument = 99;
};

struct Call {
    WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    /// In the order in which a person writes them; a put's value last.
    std::vector<Any> arguments;
    /// The last of the arguments are these, by name.
    std::vector<std::string> names;
};

inline Outcome invoke(IDispatch &object, const std::string &name, Call call) {
    std::vector<WideText> texts{wide(name)};
    for (const std::string &one : call.names)
        texts.push_back(wide(one));
    std::vector<OLECHAR *> names;
    for (WideText &text : texts)
        names.push_back(text.data());
    std::vector<DISPID> numbers(names.size());
    Outcome outcome;
    outcome.code = object.GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()), 0,
                                        numbers.data());
    if (FAILED(outcome.code))
        return outcome;
    std::vector<VARIANT> arguments;
    for (auto argument = call.arguments.rbegin(); argument != call.arguments.rend(); ++argument)
        arguments.push_back(argument->get());
    std::vector<DISPID> named(numbers.rbegin(), numbers.rend() - 1);
    if ((call.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0)
        named.insert(named.begin(), DISPID_PROPERTYPUT);
    DISPPARAMS parameters{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(named.size())};
    EXCEPINFO exception{};
    outcome.code = object.Invoke(numbers[0], IID_NULL, 0, call.flags, &parameters,
                                 &outcome.result.get(), &exception, &outcome.wrongArgument);
    outcome.number = exception.scode;
    outcome.description = narrow(viewOf(exception.bstrDescription));
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    return outcome;
}

/// Reads a property or calls a method; what fails fails the test.
inline Any get(IDispatch &object, const std::string &name, std::vector<Any> arguments = {}) {
    Outcome outcome = invoke(object, name, {.arguments = std::move(arguments), .names = {}});
    EXPECT_EQ(outcome.code, S_OK) << name << ": " << outcome.description;
    return outcome.result;
}

inline void put(IDispatch &object, const std::string &name, std::vector<Any> arguments,
                WORD how = DISPATCH_PROPERTYPUT) {
    const Outcome outcome =
        invoke(object, name, {.flags = how, .arguments = std::move(arguments), .names = {}});
    EXPECT_EQ(outcome.code, S_OK) << name << ": " << outcome.description;
}

/// Hears events and does what a test says.
class Sink final : public ComObject<IDispatch> {
public:
    using Handler = std::function<HRESULT(DISPPARAMS &arguments, EXCEPINFO &exception)>;

    /// By the number of the event.
    std::map<DISPID, Handler> handlers;
    /// The numbers of what was heard.
    std::vector<DISPID> heard;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override {
        return ComObject::QueryInterface(iid == eventsId ? IID_IDispatch : iid, object);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, OLECHAR **, UINT, LCID, DISPID *) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS *arguments,
                                     VARIANT *, EXCEPINFO *exception, UINT *) override {
        heard.push_back(number);
        const auto found = handlers.find(number);
        if (found == handlers.end())
            return DISP_E_MEMBERNOTFOUND;
        const Handler handler = found->second; // which may take itself away
        return handler(*arguments, *exception);
    }
};

inline ComPtr<IConnectionPoint> pointOf(IUnknown &control, const IID &iid) {
    ComPtr<IConnectionPoint> point;
    const auto container = ComPtr<IConnectionPointContainer>::of(&control);
    EXPECT_EQ(container->FindConnectionPoint(iid, point.out()), S_OK);
    return point;
}

class ComTest : public testing::Test {
protected:
    ComTest() { OleInitialize(nullptr); }
    ~ComTest() override {
        EXPECT_EQ(moduleUsers(), 0) << "objects are left over";
        OleUninitialize();
    }

    /// A new control of five rows and four columns.
    static ComPtr<IDispatch> newControl() {
        ComPtr<IDispatch> control;
        EXPECT_EQ(Control::create(nullptr, IID_IDispatch, reinterpret_cast<void **>(control.out())),
                  S_OK);
        tableOf(control).InitProperties();
        tableOf(control).setRows(5);
        tableOf(control).setCols(4);
        return control;
    }
    static tablio::Tablio &tableOf(const ComPtr<IDispatch> &control) {
        return Control::of(*control.get())->table();
    }
    static DWORD connect(const ComPtr<IDispatch> &control, const ComPtr<Sink> &sink) {
        DWORD cookie = 0;
        EXPECT_EQ(pointOf(*control.get(), eventsId)->Advise(sink.get(), &cookie), S_OK);
        return cookie;
    }
    static ComPtr<Sink> newSink() { return ComPtr<Sink>::taken(new Sink); }
};

} // namespace tablio::com
