#pragma once

/// The works that every peer does, in one place, so that all do the same. A peer is a small class
/// around its table that says how a thing is done there; rows and columns are counted from 0 and
/// are data rows only:
///
///     Peer(Size, Kind)                an empty table of that size, not yet shown
///     show()                          shows it in a window of 1,200 × 800 pixels
///     bulk(bool)                      painting off while many cells are written
///     set(row, col, text)             writes a cell
///     formatColumn(col)               the column shows numbers as 123,456.78
///     setNumber(row, col, text)       writes a number there and keeps the number as it was given
///     tag(row, col)                   hangs a value on a cell
///     paintStripes()                  gives every second row's cells a background
///     insertRow(row), removeRow(row)  the count of rows stays: the last one goes, or a blank comes
///     clear()                         empties all cells
///     appendRow()                     one more row, blank
///     placeOf(row, col)               where a cell stands, seen or not
///     duplicateOf(row)                another row with this row's key, −1 for none
///     dataCount()                     the number of the last row with a key
///
/// A peer that takes whole rows of texts has setRow(row, texts), too; the others are given them
/// cell by cell.
///
/// In a table of Kind::Full rows are numbered and striped, the second column is the key, the third
/// shows numbers and every tenth row carries a tag; all that moves with the rows. With us numbers
/// and stripes are texts and looks of cells, which a host can read. A peer does what is cheapest
/// with it: row headers and stripes that are painted by a row's place.

#include "harness.h"

#include <memory>
#include <string>

namespace tablio::bench {

enum class Kind { Plain, Full };

inline constexpr int windowWidth = 1200;
inline constexpr int windowHeight = 800;
inline constexpr int rowPixels = 24;
inline constexpr int colPixels = 80;
inline constexpr int keyCol = 1;
inline constexpr int numberCol = 2;
inline constexpr int tagEvery = 10;

template <typename Peer> void fillTexts(Peer &peer, Size size, const CellTexts &texts) {
    peer.bulk(true);
    for (int row = 0; row < size.rows; ++row) {
        for (int col = 0; col < size.cols; ++col)
            peer.set(row, col, texts.text(row, col));
    }
    peer.bulk(false);
}

template <typename Peer> void fillByRows(Peer &peer, Size size, const CellTexts &texts) {
    std::vector<std::string_view> row;
    peer.bulk(true);
    for (int index = 0; index < size.rows; ++index) {
        row.clear();
        for (int col = 0; col < size.cols; ++col)
            row.push_back(texts.text(index, col));
        if constexpr (requires { peer.setRow(index, row); }) {
            peer.setRow(index, row);
        } else {
            for (int col = 0; col < size.cols; ++col)
                peer.set(index, col, row[static_cast<std::size_t>(col)]);
        }
    }
    peer.bulk(false);
}

template <typename Peer> void fillFull(Peer &peer, Size size, const CellTexts &texts) {
    peer.bulk(true);
    for (int row = 0; row < size.rows; ++row) {
        for (int col = keyCol; col < size.cols; ++col) {
            if (col != numberCol)
                peer.set(row, col, texts.text(row, col));
        }
        peer.setNumber(row, numberCol, texts.number(row, numberCol));
        if (row % tagEvery == 0)
            peer.tag(row, keyCol);
    }
    peer.bulk(false);
}

/// Times a work on an empty table that is shown, a new one each time.
template <typename Peer, typename Work>
void onNewPeer(const std::string &name, Size size, const Repeats &repeats, const Work &work) {
    std::unique_ptr<Peer> peer;
    repeats.measure(
        name, size,
        [&] {
            peer.reset();
            peer = std::make_unique<Peer>(size, Kind::Plain);
            peer->show();
        },
        [&] { work(*peer); });
}

template <typename Peer> class Works {
public:
    Works(Size size, const Repeats &repeats) : size_(size), repeats_(repeats), texts_(size) {}

    void run() {
        fill();
        append();
        fillNumbers();
        rowOperations();
        clear();
    }

private:
    void fill() {
        onNewPeer<Peer>("fill", size_, repeats_,
                        [this](Peer &peer) { fillTexts(peer, size_, texts_); });
        onNewPeer<Peer>("fill by rows", size_, repeats_,
                        [this](Peer &peer) { fillByRows(peer, size_, texts_); });
    }

    /// From an empty table on.
    void append() {
        for (const Kind kind : {Kind::Full, Kind::Plain}) {
            std::unique_ptr<Peer> peer;
            repeats_.measure(
                kind == Kind::Full ? "append the rows" : "bare append the rows", size_,
                [&] {
                    peer.reset();
                    peer = std::make_unique<Peer>(size_, kind);
                    peer->resize({0, size_.cols});
                    peer->show();
                },
                [&] {
                    peer->bulk(true);
                    for (int row = 0; row < size_.rows; ++row)
                        peer->appendRow();
                    peer->bulk(false);
                });
        }
    }

    void fillNumbers() {
        onNewPeer<Peer>("fill numbers", size_, repeats_, [this](Peer &peer) {
            for (int col = 0; col < size_.cols; ++col)
                peer.formatColumn(col);
            peer.bulk(true);
            for (int row = 0; row < size_.rows; ++row) {
                for (int col = 0; col < size_.cols; ++col)
                    peer.setNumber(row, col, texts_.number(row, col));
            }
            peer.bulk(false);
        });
    }

    /// Rows go and come at the same place in turn, so that the table stays as it is.
    void rowOperations() {
        for (const Kind kind : {Kind::Full, Kind::Plain}) {
            Peer peer(size_, kind);
            peer.show();
            if (kind == Kind::Full)
                fillFull(peer, size_, texts_);
            else
                fillTexts(peer, size_, texts_);
            const std::string bare = kind == Kind::Full ? "" : "bare ";
            const std::pair<const char *, int> places[] = {
                {"top", 0}, {"middle", size_.rows / 2}, {"end", size_.rows - 2}};
            for (const auto &[place, row] : places) {
                repeats_.measure({bare + "remove at " + place, bare + "insert at " + place}, size_,
                                 [&, at = row](std::vector<Samples> &samples) {
                                     samples[0].time([&] { peer.removeRow(at); });
                                     samples[1].time([&] { peer.insertRow(at); });
                                 });
            }
            if (kind == Kind::Plain)
                continue;
            repeats_.measure(
                "places of 1000 far cells", size_, [] {},
                [&] {
                    for (int look = 0; look < 1000; ++look)
                        keep(peer.placeOf(size_.rows - 1 - look % size_.rows, size_.cols - 1));
                });
            repeats_.measure(
                "find duplicate", size_, [] {}, [&] { keep(peer.duplicateOf(size_.rows - 1)); });
            repeats_.measure(
                "count data", size_, [] {}, [&] { keep(peer.dataCount()); });
        }
    }

    void clear() {
        for (const Kind kind : {Kind::Plain, Kind::Full}) {
            Peer peer(size_, kind);
            peer.show();
            repeats_.measure(
                kind == Kind::Plain ? "clear" : "clear numbered and striped", size_,
                [&] {
                    if (kind == Kind::Plain)
                        fillTexts(peer, size_, texts_);
                    else
                        fillFull(peer, size_, texts_);
                },
                [&] { peer.clear(); });
        }
    }

    Size size_;
    Repeats repeats_;
    CellTexts texts_;
};

} // namespace tablio::bench
