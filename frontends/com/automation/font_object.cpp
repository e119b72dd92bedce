#include "automation/font_object.h"

#include "object/text.h"

#include <tablio/errors.h>
#include <tablio/tablio.h>

#include <olectl.h>

#include <cmath>
#include <utility>

namespace tablio::com {

namespace {

/// Where neither the font nor the face says anything.
constexpr const char *plainFamily = "MS Sans Serif";
constexpr float plainSize = 8.25F;

CY pointsOf(float size) noexcept {
    CY points{};
    points.int64 = std::llround(static_cast<double>(size) * 10000);
    return points;
}

std::int16_t weightOf(const tablio::Font &font) noexcept {
    if (font.weight != 0)
        return font.weight;
    return font.bold ? FW_BOLD : FW_NORMAL;
}

void write(IFont &object, const tablio::Font &font) {
    if (!font.name.empty())
        object.put_Name(Bstr(font.name).get());
    if (font.size > 0)
        object.put_Size(pointsOf(font.size));
    object.put_Weight(weightOf(font));
    object.put_Italic(font.italic ? TRUE : FALSE);
    object.put_Underline(font.underline ? TRUE : FALSE);
    object.put_Strikethrough(font.strikethrough ? TRUE : FALSE);
}

} // namespace

tablio::Font fontOf(IFont &object) {
    tablio::Font font;
    Bstr name;
    CY size{};
    BOOL flag = FALSE;
    SHORT weight = 0;
    if (SUCCEEDED(object.get_Name(name.out())))
        font.name = name.text();
    if (SUCCEEDED(object.get_Size(&size)))
        font.size = static_cast<float>(static_cast<double>(size.int64) / 10000);
    if (SUCCEEDED(object.get_Weight(&weight)))
        font.weight = weight;
    font.bold = font.weight > 500;
    // The two weights that a bold flag stands for by itself.
    if (font.weight == FW_NORMAL || font.weight == FW_BOLD)
        font.weight = 0;
    font.italic = SUCCEEDED(object.get_Italic(&flag)) && flag != FALSE;
    font.underline = SUCCEEDED(object.get_Underline(&flag)) && flag != FALSE;
    font.strikethrough = SUCCEEDED(object.get_Strikethrough(&flag)) && flag != FALSE;
    return font;
}

ComPtr<IFont> newFont(const tablio::Font &font, const tablio::Font &fallback) {
    const auto &name = !font.name.empty() ? font.name : fallback.name;
    const float size = font.size > 0 ? font.size : fallback.size;
    WideText family = wide(name.empty() ? plainFamily : name);
    FONTDESC description{};
    description.cbSizeofstruct = sizeof(description);
    description.lpstrName = family.data();
    description.cySize = pointsOf(size > 0 ? size : plainSize);
    description.sWeight = weightOf(font);
    description.sCharset = DEFAULT_CHARSET;
    description.fItalic = font.italic ? TRUE : FALSE;
    description.fUnderline = font.underline ? TRUE : FALSE;
    description.fStrikethrough = font.strikethrough ? TRUE : FALSE;
    ComPtr<IFont> object;
    if (FAILED(OleCreateFontIndirect(&description, IID_IFont,
                                     reinterpret_cast<void **>(object.out()))))
        throw Error("the platform has made no font object");
    return object;
}

/// Hears of changes; the host's object may hold it longer than the table lives.
class LiveFont::Listener final : public ComObject<IPropertyNotifySink> {
public:
    explicit Listener(LiveFont &owner) noexcept : owner_(&owner) {}
    void forget() noexcept { owner_ = nullptr; }

    HRESULT STDMETHODCALLTYPE OnChanged(DISPID /*number*/) override {
        try {
            if (owner_ != nullptr)
                owner_->changed();
        } catch (...) {
            return E_FAIL;
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID /*number*/) override { return S_OK; }

private:
    LiveFont *owner_;
};

LiveFont::LiveFont(tablio::Tablio &table) noexcept : table_(table) {}

LiveFont::~LiveFont() { stopListening(); }

ComPtr<IFont> LiveFont::object() {
    const tablio::Font font = table_.Font();
    if (!object_) {
        const Face *face = table_.face();
        listenTo(newFont(font, face != nullptr ? face->defaultFont() : tablio::Font{}));
        known_ = font;
    } else if (font != known_) {
        isWriting_ = true;
        write(*object_.get(), font);
        isWriting_ = false;
        known_ = font;
    }
    return object_;
}

void LiveFont::share(IFont &object) {
    stopListening();
    listenTo(ComPtr<IFont>(&object));
    changed();
}

void LiveFont::listenTo(ComPtr<IFont> object) {
    object_ = std::move(object);
    listener_ = ComPtr<Listener>::taken(new Listener(*this));
    const auto container = ComPtr<IConnectionPointContainer>::of(object_.get());
    ComPtr<IConnectionPoint> point;
    if (container &&
        SUCCEEDED(container->FindConnectionPoint(IID_IPropertyNotifySink, point.out())))
        point->Advise(listener_.get(), &cookie_);
}

void LiveFont::stopListening() noexcept {
    if (!object_)
        return;
    const auto container = ComPtr<IConnectionPointContainer>::of(object_.get());
    ComPtr<IConnectionPoint> point;
    if (container &&
        SUCCEEDED(container->FindConnectionPoint(IID_IPropertyNotifySink, point.out())))
        point->Unadvise(cookie_);
    listener_->forget();
    listener_.reset();
    object_.reset();
}

void LiveFont::changed() {
    if (isWriting_)
        return;
    known_ = fontOf(*object_.get());
    table_.setFont(known_);
}

} // namespace tablio::com
