#pragma once

/// Values that some of many rows or columns have, by their number, such as a height or a tag. Lines
/// that come and go take those behind them along without each being visited: the values stand in
/// pieces of some hundred, and a piece is moved as a whole. Numbers may be negative.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace tablio {

template <typename T> class SparseLines {
public:
    [[nodiscard]] bool isEmpty() const noexcept { return pieces_.empty(); }
    [[nodiscard]] std::size_t size() const noexcept {
        std::size_t count = 0;
        for (const Piece &piece : pieces_)
            count += piece.entries.size();
        return count;
    }

    /// Null where the line has none.
    [[nodiscard]] const T *find(int line) const noexcept {
        const Piece *const piece = pieceOf(line);
        if (piece == nullptr)
            return nullptr;
        const auto entry = piece->find(line);
        return entry != piece->entries.end() && entry->first == line - piece->shift ? &entry->second
                                                                                    : nullptr;
    }
    void set(int line, T value) {
        if (pieces_.empty()) {
            pieces_.emplace_back().entries.emplace_back(line, std::move(value));
            return;
        }
        Piece &piece = pieces_[indexOf(line)];
        piece.sum.reset();
        const auto entry = piece.find(line);
        if (entry != piece.entries.end() && entry->first == line - piece.shift)
            entry->second = std::move(value);
        else
            piece.entries.emplace(entry, line - piece.shift, std::move(value));
        if (piece.entries.size() > mostInPiece)
            split(indexOf(line), piece.entries.size() / 2);
    }
    /// Answers the value that the line had.
    std::optional<T> take(int line) {
        if (find(line) == nullptr)
            return std::nullopt;
        const std::size_t index = indexOf(line);
        Piece &piece = pieces_[index];
        const auto entry = piece.find(line);
        std::optional<T> taken(std::move(entry->second));
        piece.entries.erase(entry);
        piece.sum.reset();
        if (piece.entries.empty())
            pieces_.erase(at(index));
        return taken;
    }
    /// The lines from this one on have another number now, by that many more or fewer. Those whose
    /// places they take must have none.
    void shift(int line, int by) {
        if (pieces_.empty())
            return;
        std::size_t index = indexOf(line);
        Piece &piece = pieces_[index];
        const auto entry = piece.find(line);
        if (entry != piece.entries.end() && entry != piece.entries.begin()) {
            for (auto moved = entry; moved != piece.entries.end(); ++moved)
                moved->first += by;
        } else if (entry == piece.entries.begin()) {
            piece.shift += by;
        }
        for (++index; index < pieces_.size(); ++index)
            pieces_[index].shift += by;
    }
    /// The lines from this one on have none any more.
    void cut(int line) {
        if (pieces_.empty())
            return;
        const std::size_t index = indexOf(line);
        Piece &piece = pieces_[index];
        piece.entries.erase(piece.find(line), piece.entries.end());
        piece.sum.reset();
        pieces_.erase(at(index + (piece.entries.empty() ? 0 : 1)), pieces_.end());
    }
    /// In the order of the lines, from this one on, while the visitor answers True.
    template <typename Visit> void visit(int from, Visit visit) const {
        if (pieces_.empty())
            return;
        for (std::size_t index = indexOf(from); index < pieces_.size(); ++index) {
            const Piece &piece = pieces_[index];
            for (auto entry = piece.find(from); entry != piece.entries.end(); ++entry) {
                if (!visit(entry->first + piece.shift, entry->second))
                    return;
            }
        }
    }
    /// What an amount of each value before this line sums up to. Sums of whole pieces are kept:
    /// when the amounts are others, forgetSums() says so.
    template <typename Amount> [[nodiscard]] std::int64_t sumBefore(int line, Amount amount) const {
        std::int64_t sum = 0;
        const auto add = [&](auto entry, auto end) {
            for (; entry != end; ++entry)
                sum += amount(entry->second);
        };
        const std::size_t last = pieces_.empty() ? 0 : indexOf(line);
        for (std::size_t index = 0; index < last; ++index) {
            const Piece &piece = pieces_[index];
            if (!piece.sum) {
                const std::int64_t before = std::exchange(sum, 0);
                add(piece.entries.begin(), piece.entries.end());
                piece.sum = std::exchange(sum, before);
            }
            sum += *piece.sum;
        }
        if (!pieces_.empty())
            add(pieces_[last].entries.begin(), pieces_[last].find(line));
        return sum;
    }
    void forgetSums() const {
        for (const Piece &piece : pieces_)
            piece.sum.reset();
    }

private:
    static constexpr std::size_t mostInPiece = 256;

    template <typename Entries> [[nodiscard]] static auto found(Entries &entries, int wanted) {
        return std::lower_bound(entries.begin(), entries.end(), wanted,
                                [](const auto &entry, int number) { return entry.first < number; });
    }

    /// Never empty but for a moment. A line's number is the entry's with the shift.
    struct Piece {
        std::vector<std::pair<int, T>> entries;
        int shift = 0;
        mutable std::optional<std::int64_t> sum;

        /// The entry of the line or, where it has none, of the next one that has.
        [[nodiscard]] auto find(int line) { return found(entries, line - shift); }
        [[nodiscard]] auto find(int line) const { return found(entries, line - shift); }
    };

    /// The piece that has the line, or would have it; 0 also where there is no piece.
    [[nodiscard]] std::size_t indexOf(int line) const noexcept {
        const auto behind = std::upper_bound(
            pieces_.begin(), pieces_.end(), line, [](int wanted, const Piece &piece) {
                return wanted < piece.entries.front().first + piece.shift;
            });
        return behind == pieces_.begin() ? 0
                                         : static_cast<std::size_t>(behind - pieces_.begin()) - 1;
    }
    [[nodiscard]] const Piece *pieceOf(int line) const noexcept {
        return pieces_.empty() ? nullptr : &pieces_[indexOf(line)];
    }
    [[nodiscard]] auto at(std::size_t index) {
        return pieces_.begin() + static_cast<std::ptrdiff_t>(index);
    }
    void split(std::size_t index, std::size_t from) {
        Piece half;
        half.shift = pieces_[index].shift;
        auto &entries = pieces_[index].entries;
        const auto middle = entries.begin() + static_cast<std::ptrdiff_t>(from);
        half.entries.assign(std::make_move_iterator(middle),
                            std::make_move_iterator(entries.end()));
        entries.erase(middle, entries.end());
        pieces_.insert(at(index + 1), std::move(half));
    }

    std::vector<Piece> pieces_;
};

} // namespace tablio
