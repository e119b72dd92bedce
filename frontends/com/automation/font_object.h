#pragma once

/// Fonts as hosts hold them: the platform's font object, which a host may change at any time. The
/// control's `Font` property is one of these, and what a host changes in it changes the table.

#include "object/com_object.h"

#include <tablio/types.h>

#include <ocidl.h>

namespace tablio {
class Tablio;
}

namespace tablio::com {

/// What the object says now; a property that it does not answer keeps its default.
[[nodiscard]] tablio::Font fontOf(IFont &object);
/// A new object. What the font leaves open (family, size) is taken from the default font.
[[nodiscard]] ComPtr<IFont> newFont(const tablio::Font &font, const tablio::Font &fallback = {});

/// The font object of one table.
class LiveFont {
public:
    explicit LiveFont(tablio::Tablio &table) noexcept;
    ~LiveFont();
    LiveFont(const LiveFont &) = delete;
    LiveFont &operator=(const LiveFont &) = delete;

    /// The object that says what the table's font is now, the same one each time.
    [[nodiscard]] ComPtr<IFont> object();
    /// From now on the table shares this object with the host.
    void share(IFont &object);

private:
    class Listener;

    void listenTo(ComPtr<IFont> object);
    void stopListening() noexcept;
    /// The host has changed the object.
    void changed();

    tablio::Tablio &table_;
    ComPtr<IFont> object_;
    ComPtr<Listener> listener_;
    DWORD cookie_ = 0;
    /// The table's font that the object stands for.
    tablio::Font known_;
    bool isWriting_ = false;
};

} // namespace tablio::com
