#pragma once

/// The control's life in its container's window: from the first time that it is shown to the time
/// when it is taken away, with the keyboard or without. It owns the window and passes on keys that
/// the container sends; what they do it does not know.

#include "object/part.h"
#include "ole/site.h"
#include "window/window.h"

#include <functional>

namespace tablio::com {

class Activation final : public PartOf<IOleInPlaceObject, IOleInPlaceActiveObject>,
                         public WindowHost {
public:
    explicit Activation(Control &control);
    ~Activation() override;

    [[nodiscard]] Site &site() noexcept { return site_; }
    [[nodiscard]] Window &window() noexcept { return *window_; }
    /// Null takes the control out of its container.
    void setSite(IOleClientSite *site);
    /// The container's ambient properties are others.
    void ambientsChanged();

    /// Shows the control in the container's window, with the keyboard when it is wanted.
    HRESULT activate(bool wantsKeyboard);
    void deactivate();
    /// What the picture looks like has changed, and no window shows it.
    std::function<void()> onPictureChanged;

    HRESULT STDMETHODCALLTYPE GetWindow(HWND *window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL /*enters*/) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE UIDeactivate() override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }

    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) override;
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL activates) override;
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL activates) override;
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow *, BOOL) override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL /*enables*/) override { return S_OK; }

    // What the window asks and tells. The table's face tells of properties here, and the control
    // each part.
    using Part::propertyChanged;
    void propertyChanged(MemberNumber number) override;
    [[nodiscard]] LCID locale() const noexcept override { return site_.locale(); }
    [[nodiscard]] std::optional<Font> formFont() const override { return site_.font(); }
    [[nodiscard]] bool isDesigned() const noexcept override { return site_.isDesigned(); }
    [[nodiscard]] std::optional<std::pair<Colour, Colour>> formColours() const override {
        return site_.colours();
    }
    void keyboardCame() override;
    void keyboardWent() override;
    void keyLeft(const MSG &key) override;
    void pictureChanged() override;

private:
    bool openWindow(IOleInPlaceSite &place);
    void takeUi(IOleInPlaceSite &place);
    /// True when the container has taken the key.
    bool offerToSite(const MSG &key);

    Site site_;
    std::shared_ptr<Window> window_;
    ComPtr<IOleInPlaceSite> place_;
    ComPtr<IOleInPlaceFrame> frame_;
    ComPtr<IOleInPlaceUIWindow> document_;
    bool hasUi_ = false;
    bool wasShown_ = false;
};

} // namespace tablio::com
