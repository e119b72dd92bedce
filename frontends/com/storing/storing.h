#pragma once

/// How a container saves the control and loads it again: in its own property bag, key by key as
/// `Tablio::WriteProperties` has them, or in a stream as the text of a `TextBag`.

#include "object/part.h"

#include <tablio/property_bag.h>

namespace tablio::com {

class Storing final : public PartOf<IPersistPropertyBag, IPersistStreamInit> {
public:
    using PartOf::PartOf;

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID *id) override;
    HRESULT STDMETHODCALLTYPE InitNew() override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;

    HRESULT STDMETHODCALLTYPE Load(IPropertyBag *bag, IErrorLog *log) override;
    /// Values that are the default are not written, also when all are asked for: what is not there
    /// reads as another value than what is.
    HRESULT STDMETHODCALLTYPE Save(IPropertyBag *bag, BOOL clearsDirty, BOOL savesAll) override;

    /// The length of the text in bytes, 32 bits, and the text.
    HRESULT STDMETHODCALLTYPE Load(IStream *stream) override;
    HRESULT STDMETHODCALLTYPE Save(IStream *stream, BOOL clearsDirty) override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER *size) override;

private:
    void load(const PropertyBag &bag);
    [[nodiscard]] std::string text() const;
};

} // namespace tablio::com
