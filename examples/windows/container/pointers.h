#pragma once

/// Owned references to COM objects and owned values, as small as a sample needs them.

#include <windows.h>

#include <ole2.h>

#include <memory>

struct ReleaseReference {
    void operator()(IUnknown *object) const noexcept { object->Release(); }
};
template <typename Interface> using Owned = std::unique_ptr<Interface, ReleaseReference>;

/// Another interface of an object; null where it has none.
template <typename Interface> Owned<Interface> interfaceOf(IUnknown *object) {
    void *found = nullptr;
    if (object != nullptr)
        object->QueryInterface(__uuidof(Interface), &found);
    return Owned<Interface>(static_cast<Interface *>(found));
}

/// A VARIANT that is cleared.
struct OwnedVariant : VARIANT {
    OwnedVariant() { VariantInit(this); }
    ~OwnedVariant() { VariantClear(this); }
    OwnedVariant(const OwnedVariant &) = delete;
    OwnedVariant &operator=(const OwnedVariant &) = delete;
};
