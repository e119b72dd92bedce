#pragma once

/// One connection point of the control: the sinks that hosts have connected to it. It lives with
/// the control and counts references for it.

#include "object/part.h"

#include <vector>

namespace tablio::com {

/// A sink and the number under which a host disconnects it.
struct Connection {
    DWORD cookie;
    ComPtr<IUnknown> sink;
};

class ConnectionPoint final : public IConnectionPoint {
public:
    /// Sinks answer this interface; the one of events may answer IDispatch alone.
    ConnectionPoint(Control &control, const IID &iid) noexcept : control_(control), iid_(iid) {}
    virtual ~ConnectionPoint() = default;
    ConnectionPoint(const ConnectionPoint &) = delete;
    ConnectionPoint &operator=(const ConnectionPoint &) = delete;

    [[nodiscard]] const IID &iid() const noexcept { return iid_; }
    [[nodiscard]] bool isEmpty() const noexcept { return connections_.empty(); }
    [[nodiscard]] bool has(DWORD cookie) const noexcept;
    /// Those of now, for a caller during whose calls others may come and go.
    [[nodiscard]] std::vector<Connection> connections() const { return connections_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return outermost(control_).AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return outermost(control_).Release(); }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID *iid) override;
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer **container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown *sink, DWORD *cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections **all) override;

private:
    Control &control_;
    IID iid_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

} // namespace tablio::com
