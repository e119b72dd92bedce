#pragma once

/// What every COM class of the control shares: which identifiers an interface answers to, an owning
/// pointer, and the base of the small objects that stand alone (enumerators, matrices, pages). The
/// control itself is put together of parts; see part.h.

#include "server/module.h"

#include <ocidl.h>
#include <ole2.h>

#include <utility>

namespace tablio::com {

/// Whether a pointer to this interface is also one to the interface of that identifier. What is
/// derived from another interface than IUnknown has a line below.
template <typename Interface> bool answersTo(REFIID iid) noexcept {
    return iid == __uuidof(Interface);
}
template <typename Interface, typename Base> bool answersTo(REFIID iid) noexcept {
    return iid == __uuidof(Interface) || iid == __uuidof(Base);
}
template <> inline bool answersTo<IPersistStreamInit>(REFIID iid) noexcept {
    return answersTo<IPersistStreamInit, IPersist>(iid);
}
template <> inline bool answersTo<IPersistPropertyBag>(REFIID iid) noexcept {
    return answersTo<IPersistPropertyBag, IPersist>(iid);
}
template <> inline bool answersTo<IProvideClassInfo2>(REFIID iid) noexcept {
    return answersTo<IProvideClassInfo2, IProvideClassInfo>(iid);
}
template <> inline bool answersTo<IOleInPlaceObject>(REFIID iid) noexcept {
    return answersTo<IOleInPlaceObject, IOleWindow>(iid);
}
template <> inline bool answersTo<IOleInPlaceActiveObject>(REFIID iid) noexcept {
    return answersTo<IOleInPlaceActiveObject, IOleWindow>(iid);
}
template <> inline bool answersTo<IViewObject2>(REFIID iid) noexcept {
    return answersTo<IViewObject2, IViewObject>(iid);
}

/// Owns one reference, or none.
template <typename Interface> class ComPtr {
public:
    ComPtr() noexcept = default;
    /// Shares: takes a reference of its own.
    explicit ComPtr(Interface *object) noexcept : object_(object) {
        if (object_ != nullptr)
            object_->AddRef();
    }
    ComPtr(const ComPtr &other) noexcept : ComPtr(other.object_) {}
    ComPtr(ComPtr &&other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr &operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() { reset(); }

    /// Takes over the reference that a new object, or an answer, comes with.
    [[nodiscard]] static ComPtr taken(Interface *object) noexcept {
        ComPtr result;
        result.object_ = object;
        return result;
    }
    /// The interface of another object; null where it has none.
    template <typename Other> [[nodiscard]] static ComPtr of(Other *object) noexcept {
        ComPtr result;
        if (object != nullptr)
            object->QueryInterface(__uuidof(Interface), reinterpret_cast<void **>(&result.object_));
        return result;
    }

    [[nodiscard]] Interface *get() const noexcept { return object_; }
    Interface *operator->() const noexcept { return object_; }
    Interface &operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    [[nodiscard]] Interface **out() noexcept {
        reset();
        return &object_;
    }
    /// Hands the reference on.
    [[nodiscard]] Interface *release() noexcept { return std::exchange(object_, nullptr); }
    void reset() noexcept {
        if (Interface *object = std::exchange(object_, nullptr))
            object->Release();
    }

private:
    Interface *object_ = nullptr;
};

/// An object with these interfaces that begins with one reference and deletes itself with the last.
template <typename First, typename... Others> class ComObject : public First, public Others... {
public:
    ComObject() noexcept = default;
    ComObject(const ComObject &) = delete;
    ComObject &operator=(const ComObject &) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (iid == IID_IUnknown || answersTo<First>(iid))
            *object = static_cast<First *>(this);
        else
            ((answersTo<Others>(iid) ? void(*object = static_cast<Others *>(this)) : void()), ...);
        if (*object == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~ComObject() = default;

private:
    ULONG references_ = 1;
    KeepsModule keepsModule_;
};

} // namespace tablio::com
