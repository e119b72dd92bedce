#pragma once

/// The control's IDispatch: what a host calls by number or by name goes to the table's `Dispatch`.
/// Only the `Font` property is more here than a value: it is an object that the host may change.

#include "automation/font_object.h"
#include "automation/invocation.h"
#include "object/part.h"

namespace tablio::com {

class Calling final : public Automation<PartOf<IDispatch>> {
public:
    explicit Calling(Control &control);

    [[nodiscard]] void *interfaceOf(REFIID iid) noexcept override;

private:
    void carryOut(const Member &member, const Invocation &invocation, VARIANT &result) override;
    void put(const Member &member, const Invocation &invocation);

    LiveFont font_;
};

} // namespace tablio::com
