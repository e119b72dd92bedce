#include "ole/activation.h"

#include "object/control.h"
#include "object/entry.h"

#include <utility>

namespace tablio::com {

Activation::Activation(Control &control)
    : PartOf(control), window_(Window::of(control.table(), *this)) {}

Activation::~Activation() { window_->retire(); }

void Activation::setSite(IOleClientSite *site) {
    if (site == nullptr)
        deactivate();
    site_.set(site);
    window_->showAnew();
}

void Activation::ambientsChanged() {
    site_.readAmbients();
    window_->showAnew();
}

HRESULT Activation::activate(bool wantsKeyboard) {
    if (!place_) {
        auto place = site_.as<IOleInPlaceSite>();
        if (!place || place->CanInPlaceActivate() != S_OK)
            return OLE_E_NOT_INPLACEACTIVE;
        if (const HRESULT code = place->OnInPlaceActivate(); FAILED(code))
            return code;
        place_ = place;
        if (!openWindow(*place.get())) {
            place->OnInPlaceDeactivate();
            place_.reset();
            return E_FAIL;
        }
        site_.client()->ShowObject();
        if (!std::exchange(wasShown_, true))
            control().table().Show();
        else
            window_->tell([](Input &input) { input.appeared(); });
    }
    if (wantsKeyboard && place_) {
        takeUi(*ComPtr<IOleInPlaceSite>(place_).get());
        window_->takeKeyboard();
        window_->enter();
    }
    return S_OK;
}

bool Activation::openWindow(IOleInPlaceSite &place) {
    HWND parent = nullptr;
    RECT position{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    if (FAILED(place.GetWindow(&parent)) ||
        FAILED(place.GetWindowContext(frame_.out(), document_.out(), &position, &clip, &info)))
        return false;
    return window_->open(parent, position);
}

void Activation::takeUi(IOleInPlaceSite &place) {
    if (std::exchange(hasUi_, true))
        return;
    place.OnUIActivate();
    for (IOleInPlaceUIWindow *window :
         std::initializer_list<IOleInPlaceUIWindow *>{frame_.get(), document_.get()}) {
        if (window != nullptr) {
            window->SetActiveObject(this, L"Tablio");
            window->SetBorderSpace(nullptr);
        }
    }
}

HRESULT Activation::UIDeactivate() {
    return entry(control(), [this] {
        if (!std::exchange(hasUi_, false))
            return;
        window_->leftForForm();
        for (IOleInPlaceUIWindow *window :
             std::initializer_list<IOleInPlaceUIWindow *>{frame_.get(), document_.get()}) {
            if (window != nullptr)
                window->SetActiveObject(nullptr, nullptr);
        }
        if (place_)
            place_->OnUIDeactivate(FALSE);
    });
}

void Activation::deactivate() {
    if (!place_)
        return;
    UIDeactivate();
    // Who takes the grid away looks at what was entered next.
    window_->tell([](Input &input) { input.endEdit(); });
    window_->close();
    frame_.reset();
    document_.reset();
    if (const ComPtr<IOleInPlaceSite> place = std::exchange(place_, {}))
        place->OnInPlaceDeactivate();
}

HRESULT Activation::InPlaceDeactivate() {
    return entry(control(), [this] { deactivate(); });
}

HRESULT Activation::GetWindow(HWND *window) {
    if (window == nullptr)
        return E_POINTER;
    *window = window_->handle();
    return *window != nullptr ? S_OK : E_FAIL;
}

HRESULT Activation::SetObjectRects(LPCRECT position, LPCRECT clip) {
    if (position == nullptr)
        return E_POINTER;
    return entry(control(), [&] {
        RECT seen = *position;
        const bool isCut = clip != nullptr && IntersectRect(&seen, position, clip) != FALSE &&
                           EqualRect(&seen, position) == FALSE;
        OffsetRect(&seen, -position->left, -position->top);
        if (window_->handle() == nullptr)
            return;
        SetWindowRgn(window_->handle(), isCut ? CreateRectRgnIndirect(&seen) : nullptr, TRUE);
        window_->place(*position, nullptr);
    });
}

/// What the control wants goes to it before the container's own keys; the rest is the container's.
HRESULT Activation::TranslateAccelerator(LPMSG message) {
    if (message == nullptr)
        return E_POINTER;
    return entry(control(), [&]() -> HRESULT {
        if (message->message != WM_KEYDOWN && message->message != WM_SYSKEYDOWN)
            return S_FALSE;
        if (window_->wantsKey(*message)) {
            TranslateMessage(message);
            DispatchMessageW(message);
            return S_OK;
        }
        return offerToSite(*message) ? S_OK : S_FALSE;
    });
}

bool Activation::offerToSite(const MSG &key) {
    const auto site = site_.as<IOleControlSite>();
    MSG copy = key;
    const DWORD held = (GetKeyState(VK_SHIFT) < 0 ? 1U : 0U) |
                       (GetKeyState(VK_CONTROL) < 0 ? 2U : 0U) |
                       (GetKeyState(VK_MENU) < 0 ? 4U : 0U);
    return site && site->TranslateAccelerator(&copy, held) == S_OK;
}

HRESULT Activation::OnFrameWindowActivate(BOOL /*activates*/) {
    window_->showCurrentCell();
    return S_OK;
}

HRESULT Activation::OnDocWindowActivate(BOOL activates) {
    return entry(control(), [&] {
        if (activates == FALSE)
            UIDeactivate();
        else if (place_)
            activate(true);
    });
}

void Activation::propertyChanged(MemberNumber number) { control().propertyChanged(number); }

void Activation::keyboardCame() {
    if (!place_)
        return;
    const ComPtr<IUnknown> keeps(&control().outer());
    takeUi(*ComPtr<IOleInPlaceSite>(place_).get());
    if (const auto site = site_.as<IOleControlSite>())
        site->OnFocus(TRUE);
}

void Activation::keyboardWent() {
    if (const auto site = site_.as<IOleControlSite>())
        site->OnFocus(FALSE);
}

void Activation::keyLeft(const MSG &key) {
    const ComPtr<IUnknown> keeps(&control().outer());
    if (!offerToSite(key))
        WindowHost::keyLeft(key);
}

void Activation::pictureChanged() {
    if (onPictureChanged)
        onPictureChanged();
}

} // namespace tablio::com
