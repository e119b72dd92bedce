#pragma once

/// The grid as screen readers see it: a table whose cells are its simple children, numbered row by
/// row from 1. Everything is asked of the control when a reader asks; nothing is kept. An answer
/// for a window that is gone says so.

#include "object/com_object.h"

#include <tablio/screen.h>

#include <oleacc.h>

#include <memory>

namespace tablio::com {

template <> inline bool answersTo<IAccessible>(REFIID iid) noexcept {
    return answersTo<IAccessible, IDispatch>(iid);
}

class Window;

class AccessibleGrid final : public ComObject<IAccessible> {
public:
    explicit AccessibleGrid(std::weak_ptr<Window> window) : window_(std::move(window)) {}

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch **parent) override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG *count) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch **object) override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR *name) override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR *value) override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR *text) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT *role) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT *state) override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR *text) override { return none(text); }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR *file, VARIANT, LONG *) override {
        return none(file);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR *keys) override {
        return none(keys);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT *child) override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT *children) override {
        return get_accFocus(children);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT, BSTR *action) override {
        return none(action);
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG, VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE accLocation(LONG *left, LONG *top, LONG *width, LONG *height,
                                          VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT from, VARIANT *to) override;
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT *child) override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *, UINT, LCID, DISPID *) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS *, VARIANT *,
                                     EXCEPINFO *, UINT *) override {
        return E_NOTIMPL;
    }

private:
    static HRESULT none(BSTR *text);
    /// Calls with the window and the child's cell, nothing for the table itself.
    template <typename Action> HRESULT answer(const VARIANT &child, Action action);

    std::weak_ptr<Window> window_;
};

} // namespace tablio::com
