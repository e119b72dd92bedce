#pragma once

/// The control as the component runtime knows it: one table, the parts that show it to a host, and
/// their references. It has no interface of its own but IUnknown; each of the others is a part's.

#include "object/part.h"
#include "object/platform_face.h"
#include "server/module.h"

#include <tablio/tablio.h>

namespace tablio::com {

class Control final : private IUnknown, public WindowHost {
public:
    /// Makes one, as IClassFactory::CreateInstance does. A host that aggregates may ask for
    /// IUnknown only.
    static HRESULT create(IUnknown *outer, REFIID iid, void **object) noexcept;

    /// The control behind an object of this server in this process, which an aggregating host may
    /// have wrapped; null for any other object. It lives as long as the object.
    [[nodiscard]] static Control *of(IUnknown &object) noexcept;

    /// The host's object where it aggregates, else this one's.
    [[nodiscard]] IUnknown &outer() noexcept { return *outer_; }
    [[nodiscard]] tablio::Tablio &table() noexcept { return table_; }

    /// The face tells it; every part hears it.
    void propertyChanged(MemberNumber number) override;

    /// While somebody freezes the events (IOleControl::FreezeEvents), no sink hears one.
    void freezeEvents(bool freezes) noexcept { frozen_ += freezes ? 1 : -1; }
    [[nodiscard]] bool eventsAreFrozen() const noexcept { return frozen_ > 0; }

    /// Whether something has changed that a container stores.
    [[nodiscard]] bool isDirty() const noexcept { return isDirty_; }
    void setDirty(bool isDirty) noexcept { isDirty_ = isDirty; }

private:
    explicit Control(IUnknown *outer);
    virtual ~Control();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    ULONG references_ = 1;
    IUnknown *outer_;
    int frozen_ = 0;
    bool isDirty_ = false;
    KeepsModule keepsModule_;
    PlatformFace face_;
    tablio::Tablio table_;
    Parts parts_;
};

} // namespace tablio::com
