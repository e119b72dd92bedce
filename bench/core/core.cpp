/// The core alone, without a face: what a table costs that nobody sees, and what a key costs before
/// anything is painted.

#include "program.h"
#include "tablio_table.h"

#include <tablio/tablio.h>

namespace {

using namespace tablio::bench;
using tablio::Dealt;
namespace Key = tablio::Key;

struct OwnedGrid {
    tablio::Tablio grid;
};

class TablioCore : private OwnedGrid, public TablioTable {
public:
    TablioCore(Size size, Kind kind) : TablioTable(grid, size, kind) {}

    void show() { grid.input().resized(windowWidth * 15, windowHeight * 15); }
};

void key(tablio::Input &input, tablio::KeyCode code, char32_t character) {
    if (input.keyDown(code, tablio::Shift::None) == Dealt::No && character != 0)
        input.keyPress(character);
}

/// Four digits into a cell of the key column and of the number column, Enter, and arrow keys, all
/// over the table.
void typing(Size size, const Repeats &repeats) {
    TablioCore peer(size, Kind::Full);
    peer.show();
    fillFull(peer, size, CellTexts(size));
    tablio::Tablio &grid = peer.control();
    grid.input().focusEntered();
    int cell = 0;
    repeats.measure({"key in the core"}, size, [&](std::vector<Samples> &samples) {
        const auto timed = [&](tablio::KeyCode code, char32_t character) {
            samples[0].time([&] { key(grid.input(), code, character); });
        };
        for (int step = 0; step < 20; ++step, ++cell) {
            grid.CellFocus(1 + cell * 997 % size.rows, cell % 2 == 0 ? keyCol : numberCol);
            for (const char32_t digit : {U'2', U'7', U'1', U'8'})
                timed(static_cast<tablio::KeyCode>(digit), digit);
            timed(Key::Enter, U'\r');
            timed(Key::Down, 0);
            timed(Key::Up, 0);
        }
    });
}

/// What no table can do without: copying each text once.
void copyingTexts(Size size, const Repeats &repeats) {
    const CellTexts texts(size);
    std::vector<char> copy;
    repeats.measure(
        "floor: copy the texts", size, [&] { std::vector<char>().swap(copy); },
        [&] {
            copy.resize(static_cast<std::size_t>(size.rows) * static_cast<std::size_t>(size.cols) *
                        16);
            char *to = copy.data();
            for (int row = 0; row < size.rows; ++row) {
                for (int col = 0; col < size.cols; ++col, to += 16) {
                    const std::string_view text = texts.text(row, col);
                    std::copy(text.begin(), text.end(), to);
                }
            }
            keep(copy.data());
        });
}

} // namespace

int main(int count, char **arguments) {
    return runProgram<TablioCore>({arguments + 1, arguments + count},
                                  [](Size size, const Repeats &repeats) {
                                      typing(size, repeats);
                                      ownWorks<TablioCore>(size, repeats);
                                      copyingTexts(size, repeats);
                                  });
}
