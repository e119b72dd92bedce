#include "pages/property_page_object.h"

#include "object/control.h"
#include "object/entry.h"
#include "object/text.h"
#include "pages/page_window.h"
#include "server/guid.h"

#include <array>
#include <cstring>
#include <optional>

namespace tablio::com {

namespace {

enum class PageKind { General, Columns, Entry };

constexpr std::array<const char *, 3> titles{"General", "Columns", "Entry"};

PropertyPage &pageOf(PropertyPages &pages, PageKind kind) noexcept {
    if (kind == PageKind::General)
        return pages.general;
    return kind == PageKind::Columns ? static_cast<PropertyPage &>(pages.columns) : pages.entry;
}

/// What the runtime frees.
template <typename T> T *allocated(std::size_t count) {
    auto *const memory = static_cast<T *>(CoTaskMemAlloc(count * sizeof(T)));
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

class PageObject final : public ComObject<IPropertyPage>, private PageListener {
public:
    explicit PageObject(PageKind kind) noexcept : kind_(kind) {}
    ~PageObject() override { letGo(); }

    HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite *site) override {
        site_ = ComPtr<IPropertyPageSite>(site);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT place, BOOL /*isModal*/) override {
        if (place == nullptr)
            return E_POINTER;
        return entry(*this, [&]() -> HRESULT {
            if (!pages_)
                return E_UNEXPECTED; // for no control
            window_.emplace(*this, *pages_, page());
            if (!window_->createIn(parent, *place))
                return E_FAIL;
            pages_->show(page());
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE Deactivate() override {
        return entry(*this, [this] {
            if (window_)
                window_->settle();
            window_.reset();
        });
    }
    HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO *info) override {
        if (info == nullptr)
            return E_POINTER;
        return entry(*this, [&] {
            // How large it is depends on no control.
            tablio::Tablio nobody;
            PropertyPages pages(nobody, *this);
            const WideText title = wide(titles.at(static_cast<std::size_t>(kind_)));
            *info = {};
            info->cb = sizeof(*info);
            info->size = PageWindow::sizeOf(pageOf(pages, kind_));
            info->pszTitle = allocated<OLECHAR>(title.size() + 1);
            std::memcpy(info->pszTitle, title.c_str(), (title.size() + 1) * sizeof(OLECHAR));
        });
    }
    HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown **objects) override {
        if (count > 0 && objects == nullptr)
            return E_POINTER;
        return entry(*this, [&]() -> HRESULT {
            letGo();
            if (count == 0)
                return S_OK;
            // The first of the selected controls; others are never touched.
            Control *const control = Control::of(*objects[0]);
            if (control == nullptr)
                return E_INVALIDARG;
            object_ = ComPtr<IUnknown>(objects[0]);
            PageListener &listener = *this;
            pages_.emplace(control->table(), listener);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE Show(UINT how) override {
        if (!window_)
            return E_UNEXPECTED;
        ShowWindow(window_->handle(), static_cast<int>(how));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Move(LPCRECT place) override {
        if (place == nullptr)
            return E_POINTER;
        if (!window_)
            return E_UNEXPECTED;
        MoveWindow(window_->handle(), place->left, place->top, place->right - place->left,
                   place->bottom - place->top, TRUE);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE IsPageDirty() override {
        return pages_ && (page().Changed() || hasActed_) ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Apply() override {
        return entry(*this, [this]() -> HRESULT {
            if (!pages_)
                return E_UNEXPECTED;
            if (window_)
                window_->settle();
            pages_->apply();
            hasActed_ = false;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE Help(LPCOLESTR /*directory*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG *message) override {
        if (message == nullptr)
            return E_POINTER;
        return entry(*this,
                     [&] { return window_ && window_->takesKey(*message) ? S_OK : S_FALSE; });
    }

private:
    [[nodiscard]] PropertyPage &page() noexcept { return pageOf(*pages_, kind_); }

    /// What was done at once and never applied is taken back, as by Cancel.
    void letGo() {
        window_.reset();
        if (pages_ && std::exchange(hasActed_, false))
            pages_->takeBack();
        pages_.reset();
        object_.reset();
    }

    void controlChanged(const PageControl &control) override {
        if (window_)
            window_->mirror(control);
    }
    void focusMoved(const PageControl &control) override {
        if (window_)
            window_->giveKeyboard(control);
    }
    void changedFlagSet(const PropertyPage & /*page*/) override { tellSite(); }
    void settingsChanged() override {
        hasActed_ = true;
        tellSite();
    }
    void tellSite() const {
        if (site_)
            site_->OnStatusChange(PROPPAGESTATUS_DIRTY | PROPPAGESTATUS_VALIDATE);
    }

    PageKind kind_;
    ComPtr<IPropertyPageSite> site_;
    ComPtr<IUnknown> object_;
    std::optional<PropertyPages> pages_;
    std::optional<PageWindow> window_;
    /// The table has other settings than when this last applied.
    bool hasActed_ = false;
};

HRESULT createPage(PageKind kind, IUnknown *outer, REFIID iid, void **object) noexcept {
    if (outer != nullptr)
        return CLASS_E_NOAGGREGATION;
    const auto page = ComPtr<PageObject>::taken(new (std::nothrow) PageObject(kind));
    return page ? page->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

} // namespace

HRESULT createGeneralPage(IUnknown *outer, REFIID iid, void **object) noexcept {
    return createPage(PageKind::General, outer, iid, object);
}
HRESULT createColumnsPage(IUnknown *outer, REFIID iid, void **object) noexcept {
    return createPage(PageKind::Columns, outer, iid, object);
}
HRESULT createEntryPage(IUnknown *outer, REFIID iid, void **object) noexcept {
    return createPage(PageKind::Entry, outer, iid, object);
}

HRESULT PagesList::GetPages(CAUUID *pages) {
    if (pages == nullptr)
        return E_POINTER;
    return entry(control(), [&] {
        constexpr std::array ids{generalPageId, columnsPageId, entryPageId};
        pages->cElems = static_cast<ULONG>(ids.size());
        pages->pElems = allocated<GUID>(ids.size());
        std::memcpy(pages->pElems, ids.data(), sizeof(ids));
    });
}

} // namespace tablio::com
