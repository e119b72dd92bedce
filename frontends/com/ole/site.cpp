#include "ole/site.h"

#include "automation/font_object.h"
#include "automation/variants.h"

#include <olectl.h>

namespace tablio::com {

namespace {

/// Whether the container has such a property, now in the variant.
bool read(const ComPtr<IDispatch> &container, DISPID number, VARTYPE type, Variant &value) {
    DISPPARAMS none{};
    return container &&
           SUCCEEDED(container->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                       &none, value.out(), nullptr, nullptr)) &&
           SUCCEEDED(VariantChangeType(&value.get(), &value.get(), 0, type));
}

} // namespace

void Site::set(IOleClientSite *site) {
    client_ = ComPtr<IOleClientSite>(site);
    readAmbients();
}

void Site::readAmbients() {
    const auto container = as<IDispatch>();
    Variant value;
    locale_ = read(container, DISPID_AMBIENT_LOCALEID, VT_I4, value)
                  ? static_cast<LCID>(V_I4(&value.get()))
                  : LOCALE_USER_DEFAULT;
    isDesigned_ = read(container, DISPID_AMBIENT_USERMODE, VT_BOOL, value) &&
                  V_BOOL(&value.get()) == VARIANT_FALSE;
    font_.reset();
    if (read(container, DISPID_AMBIENT_FONT, VT_UNKNOWN, value)) {
        if (const auto font = ComPtr<IFont>::of(V_UNKNOWN(&value.get())))
            font_ = fontOf(*font.get());
    }
    colours_.reset();
    Variant text;
    if (read(container, DISPID_AMBIENT_BACKCOLOR, VT_I4, value) &&
        read(container, DISPID_AMBIENT_FORECOLOR, VT_I4, text)) {
        const auto literal = [](const Variant &colour) {
            COLORREF result = 0;
            OleTranslateColor(static_cast<OLE_COLOR>(V_I4(&colour.get())), nullptr, &result);
            return Colour{result};
        };
        colours_ = {literal(value), literal(text)};
    }
}

} // namespace tablio::com
