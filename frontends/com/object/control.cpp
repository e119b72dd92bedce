#include "object/control.h"

#include "object/entry.h"

#include <iterator>
#include <utility>

namespace tablio::com {

namespace {

/// An interface of our own, which is the control itself and counts no reference.
constexpr IID controlId{
    0x2D5BD5E8, 0x9E0C, 0x4A6E, {0x92, 0x57, 0x5B, 0x19, 0x0D, 0x3F, 0xC8, 0x61}};

} // namespace

Control *Control::of(IUnknown &object) noexcept {
    void *control = nullptr;
    return SUCCEEDED(object.QueryInterface(controlId, &control)) ? static_cast<Control *>(control)
                                                                 : nullptr;
}

IUnknown &outermost(Control &control) noexcept { return control.outer(); }

HRESULT Control::create(IUnknown *outer, REFIID iid, void **object) noexcept {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (outer != nullptr && iid != IID_IUnknown)
        return CLASS_E_NOAGGREGATION;
    try {
        auto *control = new Control(outer);
        const HRESULT code = control->QueryInterface(iid, object);
        control->Release();
        return code;
    } catch (...) {
        return codeOfException();
    }
}

Control::Control(IUnknown *outer) : outer_(outer != nullptr ? outer : this), face_(*this) {
    table_.setFace(&face_);
    parts_ = makeAutomationParts(*this);
    Parts window = makeWindowParts(*this);
    std::move(window.begin(), window.end(), std::back_inserter(parts_));
}

Control::~Control() {
    // Parts that let go of a host may be called once more; they must not delete this again.
    references_ = 1;
    table_.setHost(nullptr);
    // In the opposite order: the window's parts use the others.
    while (!parts_.empty())
        parts_.pop_back();
    table_.setFace(nullptr);
}

HRESULT Control::QueryInterface(REFIID iid, void **object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (iid == controlId) {
        *object = this;
        return S_OK;
    }
    if (iid == IID_IUnknown) {
        *object = static_cast<IUnknown *>(this);
        AddRef();
        return S_OK;
    }
    for (const auto &part : parts_) {
        if (void *found = part->interfaceOf(iid)) {
            *object = found;
            outer_->AddRef();
            return S_OK;
        }
    }
    return E_NOINTERFACE;
}

ULONG Control::AddRef() { return ++references_; }

ULONG Control::Release() {
    const ULONG left = --references_;
    if (left == 0)
        delete this;
    return left;
}

void Control::propertyChanged(MemberNumber number) {
    isDirty_ = true;
    for (const auto &part : parts_)
        part->propertyChanged(number);
}

} // namespace tablio::com
