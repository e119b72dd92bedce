#pragma once

/// A property page as native widgets: one for each control of the page's model, in two columns and
/// in tab order. It hands in what the user does and shows what the model says; it decides nothing.

#include "window/native_window.h"

#include <tablio/pages/property_pages.h>

#include <commctrl.h>
#include <ole2.h>

#include <memory>
#include <vector>

namespace tablio::com {

class PageWindow final : public NativeWindow {
public:
    /// The owner is kept alive through each message; it must outlive this.
    PageWindow(IUnknown &owner, PropertyPages &pages, PropertyPage &page) noexcept;
    ~PageWindow() override;

    /// How large the page is in pixels of this screen.
    [[nodiscard]] static SIZE sizeOf(const PropertyPage &page) noexcept;
    /// Makes the window with all that stands in it; false where the platform has none.
    bool createIn(HWND parent, const RECT &place);
    /// Shows what a control of the model holds now.
    void mirror(const PageControl &control);
    void giveKeyboard(const PageControl &control) const;
    /// The box that has the keyboard is left, as far as the model is concerned.
    void settle();
    /// Whether a key belongs to the page: Tab between its widgets, access keys, Enter in the index.
    bool takesKey(MSG &message);

private:
    class Box;
    struct Widget {
        PageControl *control;
        HWND label;
        HWND window;
        std::unique_ptr<Box> box;
    };

    LRESULT message(UINT message, WPARAM first, LPARAM second) override;
    std::shared_ptr<void> keptAlive() override;
    void add(PageControl &control, const RECT &place);
    HWND addNative(const wchar_t *kind, const std::string &text, DWORD style, const RECT &place,
                   DWORD extended = 0) const;
    void commanded(HWND window, UINT notice);
    void spun(const NMUPDOWN &step);
    /// The column that the index box names, after which anything may have changed.
    void goToIndex();
    [[nodiscard]] Widget *widgetOf(HWND window);

    IUnknown &owner_;
    PropertyPages &pages_;
    PropertyPage &page_;
    std::vector<Widget> widgets_;
    HFONT font_ = nullptr;
    bool isMirroring_ = false;
};

} // namespace tablio::com
