#include "state/host_link.h"

#include <tablio/errors.h>

namespace tablio {

void throwBeyond16Bits(int number, std::string_view what) {
    throw OverflowError(std::string(what) + ": " + std::to_string(number) +
                        " does not fit 16 bits");
}

void HostLink::close() noexcept {
    closed_ = true;
    host_ = nullptr;
    face_ = &noFace_;
}

void HostLink::propertyChangedInside(MemberNumber number) {
    if (isQuiet_)
        return;
    const auto outermost = outside();
    report();
    face_->propertyChanged(number);
}

} // namespace tablio
