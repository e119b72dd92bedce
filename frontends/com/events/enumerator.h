#pragma once

/// The platform's enumerators over a list of items of which each keeps an object: connections and
/// connection points.

#include "object/com_object.h"

#include <algorithm>
#include <vector>

namespace tablio::com {

/// The object that an item keeps.
inline IUnknown *objectOf(const CONNECTDATA &item) noexcept { return item.pUnk; }
inline IUnknown *objectOf(IConnectionPoint *item) noexcept { return item; }

template <typename Interface, typename Item> class Enumerator final : public ComObject<Interface> {
public:
    /// Takes a reference of its own to each.
    explicit Enumerator(std::vector<Item> items, std::size_t next = 0)
        : items_(std::move(items)), next_(next) {
        for (const Item &item : items_)
            objectOf(item)->AddRef();
    }
    ~Enumerator() override {
        for (const Item &item : items_)
            objectOf(item)->Release();
    }

    HRESULT STDMETHODCALLTYPE Next(ULONG count, Item *items, ULONG *fetched) override {
        if (items == nullptr || (fetched == nullptr && count != 1))
            return E_POINTER;
        const std::size_t given = std::min<std::size_t>(count, items_.size() - next_);
        for (std::size_t place = 0; place < given; ++place) {
            items[place] = items_[next_++];
            objectOf(items[place])->AddRef();
        }
        if (fetched != nullptr)
            *fetched = static_cast<ULONG>(given);
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const std::size_t left = items_.size() - next_;
        next_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        next_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface **clone) override {
        if (clone == nullptr)
            return E_POINTER;
        try {
            *clone = new Enumerator(items_, next_);
        } catch (...) {
            return E_OUTOFMEMORY;
        }
        return S_OK;
    }

private:
    std::vector<Item> items_;
    std::size_t next_;
};

} // namespace tablio::com
