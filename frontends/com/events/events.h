#pragma once

/// How a host hears of the control: events through the event interface, whose arguments a sink may
/// change, and notices about properties. A sink may call anything, come and go, release the control
/// or fail; the last of these comes out of the call that raised the event.

#include "events/connection_point.h"
#include "object/part.h"

#include <tablio/dispatch.h>

namespace tablio::com {

class Events final : public PartOf<IConnectionPointContainer, IProvideClassInfo2>,
                     private EventSink {
public:
    explicit Events(Control &control);

    void propertyChanged(long number) override;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints **points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint **point) override;
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo **info) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID *guid) override;

private:
    void event(MemberNumber number, std::span<Value> arguments) override;

    std::unique_ptr<HostEvents> relay_;
    ConnectionPoint events_;
    ConnectionPoint notices_;
};

} // namespace tablio::com
