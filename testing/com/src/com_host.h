#pragma once

/// A scenario's host behind the event interface, and the control's members by name through
/// IDispatch: the way of a script.

#include "automation/variants.h"
#include "object/com_object.h"

#include <tablio/dispatch.h>
#include <tablio/testing/recording_face.h>

#include <functional>

namespace tablio::scenario {

/// Throws Error with the description that the control gives.
Value invoke(IDispatch &object, std::string_view name, WORD how, const Values &arguments);

/// Hears the control's events and notices while it lives, and answers as the scenario's host does.
class ComHost final : public com::ComObject<IDispatch, IPropertyNotifySink> {
public:
    HostEvents *host = nullptr;
    /// The names of properties that have changed.
    std::function<void(std::string_view)> noticed;

    /// To both connection points.
    void connect(IUnknown &control);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *, UINT, LCID, DISPID *) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS *arguments,
                                     VARIANT *, EXCEPINFO *exception, UINT *) override;
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID number) override;
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }

private:
    void hear(std::string_view event, VARIANT *arguments);
};

} // namespace tablio::scenario
