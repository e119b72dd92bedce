#pragma once

/// What only Windows knows about the user: the signs of numbers, the order of dates, upper and
/// lower case, today, the clipboard. A control that has no window yet has this face alone; it shows
/// nothing and has no keyboard. The window's face derives from it.

#include "window/window_host.h"

#include <tablio/face.h>

#include <optional>

namespace tablio::com {

class PlatformFace : public Face {
public:
    explicit PlatformFace(WindowHost &host) noexcept : host_(host) {}

    [[nodiscard]] bool canTakeFocus() const override { return false; }
    [[nodiscard]] std::string clipboardText() override;
    void setClipboardText(std::string_view text) override;
    [[nodiscard]] NumberFormat numberFormat() const override;
    /// The user, or the container, has another locale.
    void forgetNumberFormat() noexcept { numbers_.reset(); }
    [[nodiscard]] char32_t toUpper(char32_t character) const override;
    [[nodiscard]] char32_t toLower(char32_t character) const override;
    [[nodiscard]] Date today() const override;
    [[nodiscard]] DateOrder dateOrder() const override;
    void propertyChanged(MemberNumber number) override { host_.propertyChanged(number); }
    void setHostKeyPreview(bool preview) override { host_.setHostKeyPreview(preview); }

private:
    WindowHost &host_;
    /// Asked for once: numbers are formatted by the hundred thousand.
    mutable std::optional<NumberFormat> numbers_;
};

} // namespace tablio::com
