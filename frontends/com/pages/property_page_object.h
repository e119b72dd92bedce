#pragma once

/// The property pages General, Columns and Entry as the platform's property frame shows them, and
/// how the control says that it has them. The rules are those of the page models.

#include "object/part.h"

namespace tablio::com {

/// Makes a page, as IClassFactory::CreateInstance does.
HRESULT createGeneralPage(IUnknown *outer, REFIID iid, void **object) noexcept;
HRESULT createColumnsPage(IUnknown *outer, REFIID iid, void **object) noexcept;
HRESULT createEntryPage(IUnknown *outer, REFIID iid, void **object) noexcept;

class PagesList final : public PartOf<ISpecifyPropertyPages> {
public:
    using PartOf::PartOf;
    HRESULT STDMETHODCALLTYPE GetPages(CAUUID *pages) override;
};

} // namespace tablio::com
