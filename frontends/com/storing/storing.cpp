#include "storing/storing.h"

#include "automation/variants.h"
#include "object/control.h"
#include "object/entry.h"
#include "object/text.h"
#include "server/guid.h"

#include <tablio/errors.h>
#include <tablio/text_bag.h>

#include <cstdint>

namespace tablio::com {

namespace {

/// A container's bag as the control sees it.
class ContainerBag final : public PropertyBag {
public:
    explicit ContainerBag(IPropertyBag &bag, IErrorLog *log = nullptr) noexcept
        : bag_(bag), log_(log) {}

    [[nodiscard]] Value readProperty(std::string_view name,
                                     const Value &defaultValue) const override {
        Variant variant;
        if (defaultValue.type() == Value::Type::Font)
            V_VT(&variant.get()) = VT_UNKNOWN; // a bag must know that it is to make an object
        const HRESULT code = bag_.Read(wide(name).c_str(), &variant.get(), log_);
        if (FAILED(code) || V_VT(&variant.get()) == VT_EMPTY)
            return defaultValue;
        return valueOf(variant.get(), MemberType::Any);
    }
    void writeProperty(std::string_view name, const Value &value,
                       const Value &defaultValue) override {
        if (comparesEqual(value, defaultValue))
            return;
        Variant variant;
        setVariant(variant.get(), value);
        if (FAILED(bag_.Write(wide(name).c_str(), &variant.get())))
            throw Error("the container has not stored " + std::string(name));
    }

private:
    IPropertyBag &bag_;
    IErrorLog *log_;
};

void readAll(IStream &stream, void *bytes, std::uint32_t count) {
    ULONG read = 0;
    if (FAILED(stream.Read(bytes, count, &read)) || read != count)
        throw Error("the stream ends before the control's settings do");
}

void writeAll(IStream &stream, const void *bytes, std::uint32_t count) {
    ULONG written = 0;
    if (FAILED(stream.Write(bytes, count, &written)) || written != count)
        throw Error("the stream has no room for the control's settings");
}

/// Nobody's settings are longer: a bad length must not take all memory.
constexpr std::uint32_t mostBytes = 64U << 20U;

} // namespace

HRESULT Storing::GetClassID(CLSID *id) {
    if (id == nullptr)
        return E_POINTER;
    *id = tablioClassId;
    return S_OK;
}

HRESULT Storing::InitNew() {
    return entry(control(), [this] { control().table().InitProperties(); });
}

HRESULT Storing::IsDirty() { return control().isDirty() ? S_OK : S_FALSE; }

void Storing::load(const PropertyBag &bag) {
    control().table().ReadProperties(bag);
    control().setDirty(false);
}

HRESULT Storing::Load(IPropertyBag *bag, IErrorLog *log) {
    if (bag == nullptr)
        return E_POINTER;
    return entry(control(), [&] { load(ContainerBag(*bag, log)); });
}

HRESULT Storing::Save(IPropertyBag *bag, BOOL clearsDirty, BOOL /*savesAll*/) {
    if (bag == nullptr)
        return E_POINTER;
    return entry(control(), [&] {
        ContainerBag into(*bag);
        control().table().WriteProperties(into);
        if (clearsDirty != FALSE)
            control().setDirty(false);
    });
}

std::string Storing::text() const {
    TextBag bag;
    control().table().WriteProperties(bag);
    return bag.text();
}

HRESULT Storing::Load(IStream *stream) {
    if (stream == nullptr)
        return E_POINTER;
    return entry(control(), [&] {
        std::uint32_t size = 0;
        readAll(*stream, &size, sizeof(size));
        if (size > mostBytes)
            throw Error("the stream holds no settings of this control");
        std::string text(size, '\0');
        readAll(*stream, text.data(), size);
        load(TextBag::parse(text));
    });
}

HRESULT Storing::Save(IStream *stream, BOOL clearsDirty) {
    if (stream == nullptr)
        return E_POINTER;
    return entry(control(), [&] {
        const std::string settings = text();
        const auto size = static_cast<std::uint32_t>(settings.size());
        writeAll(*stream, &size, sizeof(size));
        writeAll(*stream, settings.data(), size);
        if (clearsDirty != FALSE)
            control().setDirty(false);
    });
}

HRESULT Storing::GetSizeMax(ULARGE_INTEGER *size) {
    if (size == nullptr)
        return E_POINTER;
    return entry(control(), [&] { size->QuadPart = sizeof(std::uint32_t) + text().size(); });
}

} // namespace tablio::com
