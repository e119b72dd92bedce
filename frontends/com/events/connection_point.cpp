#include "events/connection_point.h"

#include "events/enumerator.h"
#include "object/entry.h"

#include <olectl.h>

#include <algorithm>

namespace tablio::com {

bool ConnectionPoint::has(DWORD cookie) const noexcept {
    return std::any_of(connections_.begin(), connections_.end(),
                       [cookie](const Connection &one) { return one.cookie == cookie; });
}

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void **object) {
    if (object == nullptr)
        return E_POINTER;
    const bool isKnown = iid == IID_IUnknown || iid == IID_IConnectionPoint;
    *object = isKnown ? static_cast<IConnectionPoint *>(this) : nullptr;
    if (!isKnown)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID *iid) {
    if (iid == nullptr)
        return E_POINTER;
    *iid = iid_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer **container) {
    return outermost(control_).QueryInterface(IID_IConnectionPointContainer,
                                              reinterpret_cast<void **>(container));
}

HRESULT ConnectionPoint::Advise(IUnknown *sink, DWORD *cookie) {
    if (sink == nullptr || cookie == nullptr)
        return E_POINTER;
    *cookie = 0;
    return entry(control_, [&]() -> HRESULT {
        ComPtr<IUnknown> found;
        const auto ask = [&](REFIID iid) {
            return SUCCEEDED(sink->QueryInterface(iid, reinterpret_cast<void **>(found.out())));
        };
        if (!ask(iid_) && (iid_ == IID_IPropertyNotifySink || !ask(IID_IDispatch)))
            return CONNECT_E_CANNOTCONNECT;
        connections_.push_back({++lastCookie_, std::move(found)});
        *cookie = lastCookie_;
        return S_OK;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    return entry(control_, [&]() -> HRESULT {
        const auto found =
            std::find_if(connections_.begin(), connections_.end(),
                         [cookie](const Connection &one) { return one.cookie == cookie; });
        if (found == connections_.end())
            return CONNECT_E_NOCONNECTION;
        // Letting go of the sink may call back into this list.
        const ComPtr<IUnknown> sink = std::move(found->sink);
        connections_.erase(found);
        return S_OK;
    });
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections **all) {
    if (all == nullptr)
        return E_POINTER;
    return entry(control_, [&] {
        std::vector<CONNECTDATA> items;
        for (const Connection &one : connections_)
            items.push_back({one.sink.get(), one.cookie});
        *all = new Enumerator<IEnumConnections, CONNECTDATA>(std::move(items));
    });
}

} // namespace tablio::com
