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
    notices_ = nullptr;
    notes_.clear();
    witness_ = nullptr;
    face_ = &noFace_;
}

void HostLink::tellNotes() {
    // What a handler changes is told when those before it are.
    const Temporarily telling(isTelling_, true);
    const auto outermost = outside();
    while (!notes_.empty()) {
        for (const Note &note : std::exchange(notes_, {})) {
            if (notices_ == nullptr)
                return;
            switch (note.kind) {
            case Note::Kind::CellChanged:
                notices_->CellChanged(note.first, note.second);
                break;
            case Note::Kind::RowsInserted:
                notices_->RowsInserted(note.first, note.second);
                break;
            case Note::Kind::RowsRemoved:
                notices_->RowsRemoved(note.first, note.second);
                break;
            case Note::Kind::TableCleared:
                notices_->TableCleared();
                break;
            case Note::Kind::TableReset:
                notices_->TableReset();
                break;
            }
        }
    }
}

void HostLink::checkThread() {
    // Not every toolchain of ours has std::thread; each thread has an address of its own for this.
    static thread_local const char here = 0;
    if (thread_ == nullptr)
        thread_ = &here;
    if (thread_ != &here)
        throw Error("Tablio belongs to the thread of the user interface, and another one calls it");
}

void HostLink::propertyChangedInside(MemberNumber number) {
    if (isQuiet_)
        return;
    const auto outermost = outside();
    report();
    face_->propertyChanged(number);
}

} // namespace tablio
