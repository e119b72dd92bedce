#pragma once

/// VARIANTs as the control's values and back. What a host hands over is converted as a compiled
/// host would have done it: amounts and dates that are given for a text become the user's own text.
/// It knows nothing of members or of the control; objects are told apart by whom it is given.

#include "object/com_object.h"

#include <tablio/members.h>

#include <memory>

namespace tablio::com {

/// Owns the value in a VARIANT.
class Variant {
public:
    Variant() noexcept { VariantInit(&value_); }
    ~Variant() { VariantClear(&value_); }
    Variant(const Variant &) = delete;
    Variant &operator=(const Variant &) = delete;

    [[nodiscard]] VARIANT &get() noexcept { return value_; }
    [[nodiscard]] const VARIANT &get() const noexcept { return value_; }
    [[nodiscard]] VARIANT *out() noexcept {
        VariantClear(&value_);
        return &value_;
    }

private:
    VARIANT value_;
};

/// The innermost value behind references to VARIANTs.
[[nodiscard]] const VARIANT &innermost(const VARIANT &variant) noexcept;
/// The object in a VARIANT, also by reference; null for none, and for a value that is no object.
[[nodiscard]] IUnknown *objectIn(const VARIANT &variant) noexcept;

/// What a host gives for something of this type. Throws TypeMismatch for Null, arrays, errors and
/// objects that have no value.
[[nodiscard]] Value valueOf(const VARIANT &variant, MemberType wanted);
/// Writes a value over what the VARIANT holds. Throws std::bad_alloc.
void setVariant(VARIANT &variant, const Value &value);

} // namespace tablio::com
