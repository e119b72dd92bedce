#pragma once

/// The place that a container has given the control: its site and what that says about the form
/// around it. Asked anew when the container tells of a change; a container that says nothing leaves
/// the user's own settings.

#include "object/com_object.h"

#include <tablio/types.h>

#include <optional>
#include <utility>

namespace tablio::com {

class Site {
public:
    /// Null takes the control out of its container.
    void set(IOleClientSite *site);
    [[nodiscard]] IOleClientSite *client() const noexcept { return client_.get(); }
    /// Another interface of the site; null where it has none.
    template <typename Interface> [[nodiscard]] ComPtr<Interface> as() const {
        return ComPtr<Interface>::of(client_.get());
    }

    /// The container has other properties.
    void readAmbients();
    [[nodiscard]] LCID locale() const noexcept { return locale_; }
    [[nodiscard]] bool isDesigned() const noexcept { return isDesigned_; }
    [[nodiscard]] const std::optional<Font> &font() const noexcept { return font_; }
    [[nodiscard]] const std::optional<std::pair<Colour, Colour>> &colours() const noexcept {
        return colours_;
    }

private:
    ComPtr<IOleClientSite> client_;
    LCID locale_ = LOCALE_USER_DEFAULT;
    bool isDesigned_ = false;
    std::optional<Font> font_;
    std::optional<std::pair<Colour, Colour>> colours_;
};

} // namespace tablio::com
