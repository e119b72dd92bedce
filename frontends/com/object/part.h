#pragma once

/// A part of the registered control: one subject with the interfaces that belong to it and the
/// state that they share. The control answers QueryInterface by asking its parts one after the
/// other, and counts references for all of them.
///
/// To add a part: derive a class from PartOf<…> with its interfaces, write their functions (each as
/// `return entry(control(), [&] { … });`, see entry.h), and make one in makeAutomationParts() or
/// makeWindowParts(). Nothing else knows the class. A part reaches the table by `control().table()`
/// and other parts by the interfaces that the control answers. The table outlives the parts.

#include "object/com_object.h"

#include <memory>
#include <vector>

namespace tablio::com {

class Control;

class Part {
public:
    Part() = default;
    virtual ~Part() = default;
    Part(const Part &) = delete;
    Part &operator=(const Part &) = delete;

    /// The interface, without another reference; null for one that this part has not.
    [[nodiscard]] virtual void *interfaceOf(REFIID iid) noexcept = 0;
    /// A property has another value (Number::All: any of them may have), or is about to get one; a
    /// part that refuses throws. Comes from the control's face.
    virtual void propertyChanged(long /*number*/) {}
};

using Parts = std::vector<std::unique_ptr<Part>>;

/// Hands IUnknown's functions on to whoever is outermost: the host, where it aggregates.
IUnknown &outermost(Control &control) noexcept;

template <typename... Interfaces> class PartOf : public Part, public Interfaces... {
public:
    explicit PartOf(Control &control) noexcept : control_(control) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override {
        return outermost(control_).QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return outermost(control_).AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return outermost(control_).Release(); }

    [[nodiscard]] void *interfaceOf(REFIID iid) noexcept override {
        void *found = nullptr;
        ((found == nullptr && answersTo<Interfaces>(iid)
              ? void(found = static_cast<Interfaces *>(this))
              : void()),
         ...);
        return found;
    }

protected:
    [[nodiscard]] Control &control() const noexcept { return control_; }

private:
    Control &control_;
};

/// Calling, events, storing, pages: what works without a window.
[[nodiscard]] Parts makeAutomationParts(Control &control);
/// The window, its activation and its painting. May give the table another face than the platform
/// face that it has at first; such a face derives from PlatformFace and is a part, or belongs to
/// one.
[[nodiscard]] Parts makeWindowParts(Control &control);

} // namespace tablio::com
