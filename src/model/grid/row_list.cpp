#include "model/grid/row_list.h"

#include <iterator>
#include <utility>

namespace tablio {

std::size_t RowList::findPiece(int row) const noexcept {
    const auto behind = std::upper_bound(starts_.begin(), starts_.end() - 1, row);
    return static_cast<std::size_t>(behind - starts_.begin()) - 1;
}

void RowList::count(std::size_t from) {
    starts_.resize(pieces_.size() + 1);
    for (std::size_t piece = from; piece < pieces_.size(); ++piece)
        starts_[piece + 1] = starts_[piece] + static_cast<int>(pieces_[piece].size());
    last_ = std::min(last_, pieces_.size() - 1);
}

void RowList::resize(int count) {
    if (count < size()) {
        const std::size_t piece = count > 0 ? findPiece(count - 1) : 0;
        pieces_.resize(piece + 1);
        pieces_.back().resize(static_cast<std::size_t>(count - starts_[piece]));
    }
    const std::size_t changed = pieces_.size() - 1;
    for (int missing = count - std::min(count, size()); missing > 0;) {
        if (pieces_.back().size() >= pieceSize)
            pieces_.emplace_back();
        Piece &piece = pieces_.back();
        const std::size_t added =
            std::min(pieceSize - piece.size(), static_cast<std::size_t>(missing));
        piece.resize(piece.size() + added);
        missing -= static_cast<int>(added);
    }
    this->count(changed);
}

void RowList::insert(int row) {
    if (row == size())
        return resize(row + 1);
    std::size_t piece = findPiece(row);
    const std::size_t changed = piece;
    auto at = static_cast<std::size_t>(row - starts_[piece]);
    if (pieces_[piece].size() >= pieceSize) {
        Piece &full = pieces_[piece];
        const auto middle = full.begin() + static_cast<std::ptrdiff_t>(full.size() / 2);
        Piece half(std::make_move_iterator(middle), std::make_move_iterator(full.end()));
        full.erase(middle, full.end());
        if (at > full.size()) {
            at -= full.size();
            ++piece;
        }
        pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(changed) + 1, std::move(half));
    }
    Piece &rows = pieces_[piece];
    rows.emplace(rows.begin() + static_cast<std::ptrdiff_t>(at));
    count(changed);
}

void RowList::erase(int row) {
    const std::size_t piece = findPiece(row);
    Piece &rows = pieces_[piece];
    rows.erase(rows.begin() + (row - starts_[piece]));
    // Pieces that have become small go together, so that there are never many.
    if (piece + 1 < pieces_.size() && rows.size() + pieces_[piece + 1].size() <= pieceSize / 2) {
        Piece &next = pieces_[piece + 1];
        rows.insert(rows.end(), std::make_move_iterator(next.begin()),
                    std::make_move_iterator(next.end()));
        pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(piece) + 1);
    }
    count(piece);
}

} // namespace tablio
