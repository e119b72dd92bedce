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

void HostLink::takeFocus() {
    const auto outermost = outside();
    face_->takeFocus();
}

void HostLink::letPendingEventsRun() {
    const auto outermost = outside();
    report();
    face_->letPendingEventsRun();
}

void HostLink::propertyChangedInside(MemberNumber number) {
    if (isQuiet_)
        return;
    const auto outermost = outside();
    report();
    face_->propertyChanged(number);
}

std::string HostLink::clipboardText() {
    return clipboard_ != nullptr ? clipboard_->value_or(std::string()) : face_->clipboardText();
}

void HostLink::setClipboardText(std::string_view text) {
    copied_ = text;
    if (clipboard_ != nullptr)
        clipboard_->emplace(text);
    else
        face_->setClipboardText(text);
}

} // namespace tablio
