#include "automation/variants.h"

#include "automation/font_object.h"
#include "automation/matrix_object.h"
#include "object/text.h"

#include <tablio/errors.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace tablio::com {

namespace {

[[noreturn]] void refuse(const char *what) { throw TypeMismatch(what); }

/// The value itself lies where the union begins; a reference has its address there.
template <typename T> T read(const VARIANT &variant) noexcept {
    const void *const place =
        (V_VT(&variant) & VT_BYREF) != 0 ? V_BYREF(&variant) : &V_BYREF(&variant);
    T value{};
    std::memcpy(&value, place, sizeof(value));
    return value;
}

/// A whole number in the least type that holds it and that scripts count in.
template <typename T> Value whole(T number) {
    if (std::in_range<std::int16_t>(number) && sizeof(T) <= 2)
        return static_cast<std::int16_t>(number);
    if (std::in_range<std::int32_t>(number))
        return static_cast<std::int32_t>(number);
    return static_cast<double>(number);
}

/// As it is written with the digits that a Single has, not as its binary neighbour.
double widened(float number) {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%.7g", number);
    return std::strtod(digits.data(), nullptr);
}

/// What the platform makes of it for this user.
Value converted(const VARIANT &variant, VARTYPE type) {
    Variant result;
    // The cast is for a parameter that is only read.
    const HRESULT code = VariantChangeTypeEx(&result.get(), const_cast<VARIANT *>(&variant),
                                             LOCALE_USER_DEFAULT, 0, type);
    if (code == DISP_E_OVERFLOW)
        throw OverflowError("a number is too great");
    if (FAILED(code))
        refuse("a value of this type cannot be converted");
    if (type == VT_BSTR)
        return narrow(viewOf(V_BSTR(&result.get())));
    return V_R8(&result.get());
}

Value valueOfObject(IUnknown *object, MemberType wanted) {
    if (object == nullptr)
        return {};
    if (const auto font = ComPtr<IFont>::of(object))
        return fontOf(*font.get());
    if (std::shared_ptr<TMatrix> matrix = matrixOf(*object))
        return matrix;
    const auto dispatch = ComPtr<IDispatch>::of(object);
    Variant result;
    DISPPARAMS none{};
    if (!dispatch ||
        FAILED(dispatch->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                &none, result.out(), nullptr, nullptr)))
        refuse("an object that has no value");
    if (objectIn(result.get()) != nullptr)
        refuse("an object whose value is an object");
    return valueOf(result.get(), wanted);
}

} // namespace

const VARIANT &innermost(const VARIANT &variant) noexcept {
    const VARIANT *found = &variant;
    while (V_VT(found) == (VT_VARIANT | VT_BYREF))
        found = V_VARIANTREF(found);
    return *found;
}

IUnknown *objectIn(const VARIANT &variant) noexcept {
    const VARIANT &inner = innermost(variant);
    const VARTYPE type = V_VT(&inner) & ~VT_BYREF;
    return type == VT_DISPATCH || type == VT_UNKNOWN ? read<IUnknown *>(inner) : nullptr;
}

Value valueOf(const VARIANT &variant, MemberType wanted) {
    const VARIANT &inner = innermost(variant);
    const bool isForText = wanted == MemberType::String;
    switch (V_VT(&inner) & ~VT_BYREF) {
    case VT_EMPTY:
        return {};
    case VT_BOOL:
        return read<VARIANT_BOOL>(inner) != VARIANT_FALSE;
    case VT_I1:
        return whole(read<signed char>(inner));
    case VT_UI1:
        return whole(read<unsigned char>(inner));
    case VT_I2:
        return whole(read<std::int16_t>(inner));
    case VT_UI2:
        return whole(read<std::uint16_t>(inner));
    case VT_I4:
    case VT_INT:
        return whole(read<std::int32_t>(inner));
    case VT_UI4:
    case VT_UINT:
        return whole(read<std::uint32_t>(inner));
    case VT_I8:
        return isForText ? converted(inner, VT_BSTR) : whole(read<std::int64_t>(inner));
    case VT_UI8:
        return isForText ? converted(inner, VT_BSTR) : whole(read<std::uint64_t>(inner));
    case VT_R4:
        return widened(read<float>(inner));
    case VT_R8:
        return read<double>(inner);
    case VT_CY:
    case VT_DECIMAL:
    case VT_DATE:
        return converted(inner, isForText ? VT_BSTR : VT_R8);
    case VT_BSTR:
        return narrow(viewOf(read<BSTR>(inner)));
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return valueOfObject(read<IUnknown *>(inner), wanted);
    case VT_ERROR:
        if (read<SCODE>(inner) == DISP_E_PARAMNOTFOUND)
            return Value::missing();
        refuse("an error is no value");
    case VT_NULL:
        refuse("Null is no value");
    default:
        refuse("a value of a type that nothing here takes");
    }
}

void setVariant(VARIANT &variant, const Value &value) {
    VariantClear(&variant);
    switch (value.type()) {
    case Value::Type::Boolean:
        V_BOOL(&variant) = value.toBoolean() ? VARIANT_TRUE : VARIANT_FALSE;
        V_VT(&variant) = VT_BOOL;
        break;
    case Value::Type::Integer:
        V_I2(&variant) = value.toInteger();
        V_VT(&variant) = VT_I2;
        break;
    case Value::Type::Long:
        V_I4(&variant) = value.toLong();
        V_VT(&variant) = VT_I4;
        break;
    case Value::Type::Double:
        V_R8(&variant) = value.toDouble();
        V_VT(&variant) = VT_R8;
        break;
    case Value::Type::String:
        V_BSTR(&variant) = newBstr(value.toText());
        V_VT(&variant) = VT_BSTR;
        break;
    case Value::Type::Font:
        V_DISPATCH(&variant) = ComPtr<IDispatch>::of(newFont(value.toFont()).get()).release();
        V_VT(&variant) = VT_DISPATCH;
        break;
    case Value::Type::Object:
        V_DISPATCH(&variant) = matrixObject(value.toObject()).release();
        V_VT(&variant) = VT_DISPATCH;
        break;
    case Value::Type::Missing:
        V_ERROR(&variant) = DISP_E_PARAMNOTFOUND;
        V_VT(&variant) = VT_ERROR;
        break;
    case Value::Type::Empty:
        break;
    }
}

} // namespace tablio::com
