#include "model/grid/text_row.h"

#include <utility>

namespace tablio {

const CompactText *TextRow::findMore(int col) const noexcept {
    const int block = col / blockSize - 1;
    if (block < 0 || static_cast<std::size_t>(block) >= more_->size())
        return nullptr;
    const Block &found = (*more_)[static_cast<std::size_t>(block)];
    return found ? &found[static_cast<std::size_t>(col % blockSize)] : nullptr;
}

CompactText &TextRow::make(int col, int cols) {
    if (col < blockSize) {
        // Who writes one cell of a row usually writes them all.
        const int size = std::min(blockSize, std::max(cols, col + 1));
        Block made = std::make_unique<CompactText[]>(static_cast<std::size_t>(size));
        for (int kept = 0; kept < firstSize_; ++kept)
            made[static_cast<std::size_t>(kept)] =
                std::move(first_[static_cast<std::size_t>(kept)]);
        first_ = std::move(made);
        firstSize_ = size;
        return first_[static_cast<std::size_t>(col)];
    }
    if (!more_)
        more_ = std::make_unique<std::vector<Block>>();
    const auto block = static_cast<std::size_t>(col / blockSize - 1);
    if (block >= more_->size())
        more_->resize(block + 1);
    Block &made = (*more_)[block];
    if (!made)
        made = std::make_unique<CompactText[]>(blockSize);
    return made[static_cast<std::size_t>(col % blockSize)];
}

int TextRow::end() const noexcept {
    return more_ ? blockSize * (1 + static_cast<int>(more_->size())) : firstSize_;
}

void TextRow::move(int from, int to) {
    const CompactText *const source = find(from);
    if (source != nullptr && !source->empty()) {
        CompactText &target = made(to, to + 1);
        target = std::move(*find(from)); // Making room may have moved it.
    } else if (CompactText *const target = find(to)) {
        *target = CompactText();
    }
}

void TextRow::wipe() noexcept {
    for (int col = 0; col < firstSize_; ++col)
        first_[static_cast<std::size_t>(col)].wipe();
    more_.reset();
}

void TextRow::cut(int count) {
    for (int col = count; col < end(); ++col) {
        if (CompactText *const text = find(col))
            *text = CompactText();
    }
}

void TextRow::insert(int col) {
    for (int to = end(); to > col; --to)
        move(to - 1, to);
    if (CompactText *const text = find(col))
        *text = CompactText();
}

void TextRow::erase(int col) {
    const int last = end() - 1;
    for (int to = col; to < last; ++to)
        move(to + 1, to);
    if (CompactText *const text = col <= last ? find(last) : nullptr)
        *text = CompactText();
}

} // namespace tablio
