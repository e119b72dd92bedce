/// The few calls of the platform that the control's automation makes, in their simplest form, so
/// that its tests run on Linux under sanitizers. Headers come with Wine; nothing of Wine runs.
/// Windows and property pages are not there.

#include "automation/variants.h"
#include "object/platform_face.h"
#include "object/text.h"
#include "pages/property_page_object.h"

#include <olectl.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

using tablio::com::ComObject;
using tablio::com::ComPtr;
using tablio::com::narrow;
using tablio::com::WideText;

namespace {

/// A length in bytes stands before the text, as the platform has it.
BSTR newText(const OLECHAR *text, std::size_t length) {
    const std::size_t bytes = length * sizeof(OLECHAR);
    auto *const memory = static_cast<char *>(std::malloc(4 + bytes + sizeof(OLECHAR)));
    const auto prefix = static_cast<std::uint32_t>(bytes);
    std::memcpy(memory, &prefix, 4);
    if (text != nullptr)
        std::memcpy(memory + 4, text, bytes);
    std::memset(memory + 4 + bytes, 0, sizeof(OLECHAR));
    return reinterpret_cast<BSTR>(memory + 4);
}

/// The platform's font object: its values, and who wants to hear of changes.
class FontObject final
    : public ComObject<IFont, IDispatch, IConnectionPointContainer, IConnectionPoint> {
public:
    explicit FontObject(const FONTDESC &font)
        : name_(font.lpstrName), size_(font.cySize),
          weight_(font.sWeight), flags_{font.fItalic, font.fUnderline, font.fStrikethrough} {}

    HRESULT STDMETHODCALLTYPE get_Name(BSTR *name) override {
        *name = SysAllocString(name_.c_str());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_Name(BSTR name) override { return set(name_, WideText(name)); }
    HRESULT STDMETHODCALLTYPE get_Size(CY *size) override { return get(size, size_); }
    HRESULT STDMETHODCALLTYPE put_Size(CY size) override { return set(size_, size); }
    HRESULT STDMETHODCALLTYPE get_Bold(BOOL *bold) override {
        return get(bold, weight_ > 500 ? TRUE : FALSE);
    }
    HRESULT STDMETHODCALLTYPE put_Bold(BOOL bold) override {
        return set(weight_, static_cast<SHORT>(bold != FALSE ? FW_BOLD : FW_NORMAL));
    }
    HRESULT STDMETHODCALLTYPE get_Italic(BOOL *on) override { return get(on, flags_[0]); }
    HRESULT STDMETHODCALLTYPE put_Italic(BOOL on) override { return set(flags_[0], on); }
    HRESULT STDMETHODCALLTYPE get_Underline(BOOL *on) override { return get(on, flags_[1]); }
    HRESULT STDMETHODCALLTYPE put_Underline(BOOL on) override { return set(flags_[1], on); }
    HRESULT STDMETHODCALLTYPE get_Strikethrough(BOOL *on) override { return get(on, flags_[2]); }
    HRESULT STDMETHODCALLTYPE put_Strikethrough(BOOL on) override { return set(flags_[2], on); }
    HRESULT STDMETHODCALLTYPE get_Weight(SHORT *weight) override { return get(weight, weight_); }
    HRESULT STDMETHODCALLTYPE put_Weight(SHORT weight) override { return set(weight_, weight); }
    HRESULT STDMETHODCALLTYPE get_Charset(SHORT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Charset(SHORT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_hFont(HFONT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IFont **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsEqual(IFont *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetRatio(LONG, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryTextMetrics(TEXTMETRICW *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddRefHfont(HFONT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ReleaseHfont(HFONT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHdc(HDC) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, OLECHAR **, UINT, LCID, DISPID *) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS *, VARIANT *,
                                     EXCEPINFO *, UINT *) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints **) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID, IConnectionPoint **point) override {
        return QueryInterface(IID_IConnectionPoint, reinterpret_cast<void **>(point));
    }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer **) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown *sink, DWORD *cookie) override {
        *cookie = ++lastCookie_;
        sinks_[lastCookie_] = ComPtr<IPropertyNotifySink>::of(sink);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
        return sinks_.erase(cookie) != 0 ? S_OK : CONNECT_E_NOCONNECTION;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections **) override { return E_NOTIMPL; }

private:
    template <typename T> static HRESULT get(T *to, T value) {
        *to = value;
        return S_OK;
    }
    template <typename T> HRESULT set(T &member, const T &value) {
        member = value;
        const auto sinks = sinks_;
        for (const auto &[cookie, sink] : sinks)
            sink->OnChanged(DISPID_UNKNOWN);
        return S_OK;
    }

    WideText name_;
    CY size_;
    SHORT weight_;
    BOOL flags_[3];
    std::map<DWORD, ComPtr<IPropertyNotifySink>> sinks_;
    DWORD lastCookie_ = 0;
};

std::string plain(double number) {
    char text[40];
    std::snprintf(text, sizeof(text), "%.19Lg", static_cast<long double>(number));
    std::snprintf(text, sizeof(text), "%.15g", number);
    return text;
}

std::string amount(long long units) {
    std::string text =
        std::to_string(units / 10000) + "." + std::to_string(10000 + units % 10000).substr(1);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

std::string textOf(const VARIANT &variant) {
    switch (V_VT(&variant)) {
    case VT_BSTR:
        return narrow(tablio::com::viewOf(V_BSTR(&variant)));
    case VT_BOOL:
        return V_BOOL(&variant) != VARIANT_FALSE ? "True" : "False";
    case VT_I1:
        return std::to_string(int{V_I1(&variant)});
    case VT_UI1:
        return std::to_string(int{V_UI1(&variant)});
    case VT_I2:
        return std::to_string(V_I2(&variant));
    case VT_I4:
        return std::to_string(V_I4(&variant));
    case VT_I8:
        return std::to_string(V_I8(&variant));
    case VT_UI8:
        return std::to_string(V_UI8(&variant));
    case VT_CY:
        return amount(V_CY(&variant).int64);
    case VT_R8:
        return plain(V_R8(&variant));
    case VT_DATE:
        return "day " + plain(V_DATE(&variant));
    default:
        return {};
    }
}

} // namespace

extern "C" {

BSTR WINAPI SysAllocStringLen(const OLECHAR *text, UINT length) { return newText(text, length); }
BSTR WINAPI SysAllocString(const OLECHAR *text) {
    return text == nullptr ? nullptr : newText(text, std::char_traits<OLECHAR>::length(text));
}
void WINAPI SysFreeString(BSTR text) {
    if (text != nullptr)
        std::free(reinterpret_cast<char *>(text) - 4);
}
UINT WINAPI SysStringLen(BSTR text) {
    std::uint32_t bytes = 0;
    if (text != nullptr)
        std::memcpy(&bytes, reinterpret_cast<char *>(text) - 4, 4);
    return bytes / sizeof(OLECHAR);
}

void WINAPI VariantInit(VARIANT *variant) { std::memset(variant, 0, sizeof(*variant)); }
HRESULT WINAPI VariantClear(VARIANT *variant) {
    if (V_VT(variant) == VT_BSTR)
        SysFreeString(V_BSTR(variant));
    if ((V_VT(variant) == VT_DISPATCH || V_VT(variant) == VT_UNKNOWN) && V_UNKNOWN(variant))
        V_UNKNOWN(variant)->Release();
    VariantInit(variant);
    return S_OK;
}
HRESULT WINAPI VariantCopy(VARIANT *to, const VARIANT *from) {
    if (to == from)
        return S_OK;
    VariantClear(to);
    *to = *from;
    if (V_VT(from) == VT_BSTR)
        V_BSTR(to) = newText(V_BSTR(from), SysStringLen(V_BSTR(from)));
    if ((V_VT(from) == VT_DISPATCH || V_VT(from) == VT_UNKNOWN) && V_UNKNOWN(from))
        V_UNKNOWN(from)->AddRef();
    return S_OK;
}
HRESULT WINAPI VariantCopyInd(VARIANT *to, const VARIANT *from) { return VariantCopy(to, from); }
HRESULT WINAPI VariantChangeTypeEx(VARIANT *to, const VARIANT *from, LCID, USHORT, VARTYPE type) {
    const std::string text = textOf(*from);
    const VARTYPE given = V_VT(from);
    if (given == VT_NULL || given == VT_DISPATCH)
        return DISP_E_TYPEMISMATCH;
    VariantClear(to);
    V_VT(to) = type;
    const double number = std::strtod(text.c_str(), nullptr);
    if (type == VT_BSTR)
        V_BSTR(to) = tablio::com::newBstr(text);
    else if (type == VT_CY)
        V_CY(to).int64 = std::llround(number * 10000);
    else
        V_R8(to) = type == VT_DATE ? 46349 : number; // whatever day it is
    return S_OK;
}
INT WINAPI SystemTimeToVariantTime(SYSTEMTIME *, double *) { return FALSE; }

HRESULT WINAPI OleCreateFontIndirect(FONTDESC *font, REFIID iid, void **object) {
    return ComPtr<FontObject>::taken(new FontObject(*font))->QueryInterface(iid, object);
}
HRESULT WINAPI OleInitialize(void *) { return S_OK; }
void WINAPI OleUninitialize() {}
void WINAPI OutputDebugStringA(LPCSTR) {}
SHORT WINAPI GetKeyState(INT) { return 0; }
HWND WINAPI GetAncestor(HWND, UINT) { return nullptr; }
LRESULT WINAPI SendMessageW(HWND, UINT, WPARAM, LPARAM) { return 0; }
DWORD WINAPI GetModuleFileNameW(HMODULE, LPWSTR, DWORD) { return 0; }
HRESULT WINAPI LoadTypeLibEx(LPCOLESTR, REGKIND, ITypeLib **) { return TYPE_E_CANTLOADLIBRARY; }
INT WINAPI MultiByteToWideChar(UINT, DWORD, LPCSTR text, INT length, LPWSTR wide, INT room) {
    INT count = 0;
    for (INT place = 0; place < length && count < room; ++place) {
        // Two bytes at most: more is in no test.
        auto unit = static_cast<unsigned char>(text[place]);
        wide[count++] =
            unit < 0x80 ? unit : static_cast<WCHAR>(((unit & 0x1F) << 6) | (text[++place] & 0x3F));
    }
    return count;
}

} // extern "C"

IMAGE_DOS_HEADER __ImageBase;

namespace tablio::com {

std::string PlatformFace::clipboardText() { return {}; }
void PlatformFace::setClipboardText(std::string_view) {}
NumberFormat PlatformFace::numberFormat() const { return {}; }
char32_t PlatformFace::toUpper(char32_t character) const { return Face::toUpper(character); }
char32_t PlatformFace::toLower(char32_t character) const { return Face::toLower(character); }
Date PlatformFace::today() const { return {2026, 11, 23}; }
DateOrder PlatformFace::dateOrder() const { return DateOrder::DayMonthYear; }

Parts makeWindowParts(Control &) { return {}; }
HRESULT PagesList::GetPages(CAUUID *) { return E_NOTIMPL; }
HRESULT createGeneralPage(IUnknown *, REFIID, void **) noexcept { return E_NOTIMPL; }
HRESULT createColumnsPage(IUnknown *, REFIID, void **) noexcept { return E_NOTIMPL; }
HRESULT createEntryPage(IUnknown *, REFIID, void **) noexcept { return E_NOTIMPL; }

} // namespace tablio::com
