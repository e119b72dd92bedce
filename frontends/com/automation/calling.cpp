#include "automation/calling.h"

#include "object/control.h"
#include "server/guid.h"

namespace tablio::com {

Calling::Calling(Control &control)
    : Automation(members(), membersId, control), font_(control.table()) {}

void *Calling::interfaceOf(REFIID iid) noexcept {
    return PartOf::interfaceOf(iid == membersId ? IID_IDispatch : iid);
}

void Calling::carryOut(const Member &member, const Invocation &invocation, VARIANT &result) {
    if (invocation.put() != nullptr) {
        put(member, invocation);
    } else if (member.type == MemberType::Font && invocation.arguments().empty()) {
        V_DISPATCH(&result) = ComPtr<IDispatch>::of(font_.object().get()).release();
        V_VT(&result) = VT_DISPATCH;
    } else {
        setVariant(result, Dispatch(control().table()).call(member.number, invocation.arguments()));
    }
}

void Calling::put(const Member &member, const Invocation &invocation) {
    if (member.type == MemberType::Font && invocation.isReference())
        if (const auto font = ComPtr<IFont>::of(objectIn(*invocation.put())))
            return font_.share(*font.get());
    const Values &index = invocation.arguments();
    Value value;
    try {
        value = valueOf(*invocation.put(), member.type);
    } catch (const TypeMismatch &error) {
        throw TypeMismatch(error.what(), static_cast<int>(member.arguments.size()));
    }
    Dispatch(control().table()).put(member.number, value, index);
}

} // namespace tablio::com
