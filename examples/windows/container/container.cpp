#include "container.h"

#include <olectl.h>

namespace {

constexpr LONG himetricPerInch = 2540;

} // namespace

Container::~Container() { letGo(); }

void Container::hold(IUnknown *control) {
    letGo();
    control_ = interfaceOf<IOleObject>(control);
    control_->SetClientSite(this);
}

void Container::letGo() {
    if (!control_)
        return;
    // The control may be released by what it raises meanwhile.
    const Owned<IOleObject> control = std::move(control_);
    control->Close(OLECLOSE_NOSAVE);
    control->SetClientSite(nullptr);
    active_.reset();
}

void Container::changed(DISPID ambient) {
    if (const auto control = interfaceOf<IOleControl>(control_.get()))
        control->OnAmbientPropertyChange(ambient);
}

HRESULT Container::doVerb(LONG verb) {
    return control_ ? control_->DoVerb(verb, nullptr, this, 0, window_, &place_) : E_UNEXPECTED;
}

HRESULT Container::show(const RECT &place) {
    move(place);
    return doVerb(OLEIVERB_SHOW);
}

void Container::move(const RECT &place) {
    place_ = place;
    const HDC device = GetDC(window_);
    SIZEL size{
        MulDiv(place.right - place.left, himetricPerInch, GetDeviceCaps(device, LOGPIXELSX)),
        MulDiv(place.bottom - place.top, himetricPerInch, GetDeviceCaps(device, LOGPIXELSY))};
    ReleaseDC(window_, device);
    if (control_)
        control_->SetExtent(DVASPECT_CONTENT, &size);
    if (const auto shown = interfaceOf<IOleInPlaceObject>(control_.get()))
        shown->SetObjectRects(&place_, &place_);
}

void Container::enter() { doVerb(OLEIVERB_UIACTIVATE); }

void Container::leave() {
    if (const auto shown = interfaceOf<IOleInPlaceObject>(control_.get()))
        shown->UIDeactivate();
}

HWND Container::controlWindow() const {
    HWND window = nullptr;
    if (const auto shown = interfaceOf<IOleInPlaceObject>(control_.get()))
        shown->GetWindow(&window);
    return window;
}

/// The control first, then what a dialog does with Tab, Enter and Esc.
bool Container::translate(MSG &message) {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    if (isKey && active_ && IsChild(controlWindow(), message.hwnd) != FALSE) {
        // It may take the keyboard away from itself meanwhile.
        const auto active = interfaceOf<IOleInPlaceActiveObject>(active_.get());
        if (active->TranslateAccelerator(&message) == S_OK)
            return true;
    }
    return IsDialogMessageW(window_, &message) != FALSE;
}

HRESULT Container::QueryInterface(REFIID iid, void **object) {
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IOleClientSite)
        *object = static_cast<IOleClientSite *>(this);
    else if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow)
        *object = static_cast<IOleInPlaceSite *>(this);
    else if (iid == IID_IOleControlSite)
        *object = static_cast<IOleControlSite *>(this);
    else if (iid == IID_IOleInPlaceFrame || iid == IID_IOleInPlaceUIWindow)
        *object = static_cast<IOleInPlaceFrame *>(this);
    else if (iid == IID_IDispatch)
        *object = static_cast<IDispatch *>(this);
    return *object != nullptr ? S_OK : E_NOINTERFACE;
}

HRESULT Container::GetContainer(IOleContainer **container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT Container::GetWindow(HWND *window) {
    *window = window_;
    return S_OK;
}

HRESULT Container::GetWindowContext(IOleInPlaceFrame **frame, IOleInPlaceUIWindow **document,
                                    LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    *frame = this;
    *document = nullptr;
    *place = place_;
    *clip = place_;
    info->fMDIApp = FALSE;
    info->hwndFrame = window_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

/// A key that the control leaves to the form.
HRESULT Container::TranslateAccelerator(MSG *message, DWORD held) {
    if (message->message != WM_KEYDOWN || message->wParam != VK_TAB || (held & ~1U) != 0)
        return S_FALSE;
    SetFocus(GetNextDlgTabItem(window_, message->hwnd, (held & 1U) != 0));
    return S_OK;
}

HRESULT Container::SetActiveObject(IOleInPlaceActiveObject *object, LPCOLESTR /*name*/) {
    active_ = interfaceOf<IOleInPlaceActiveObject>(object);
    return S_OK;
}

HRESULT Container::GetTypeInfoCount(UINT *count) {
    *count = 0;
    return S_OK;
}

HRESULT Container::Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS *, VARIANT *result,
                          EXCEPINFO *, UINT *) {
    switch (number) {
    case DISPID_AMBIENT_USERMODE:
        V_VT(result) = VT_BOOL;
        V_BOOL(result) = isRunning ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    case DISPID_AMBIENT_LOCALEID:
        V_VT(result) = VT_I4;
        V_I4(result) = static_cast<LONG>(locale);
        return S_OK;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}
