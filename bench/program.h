#pragma once

/// The command line that all benchmark programs share:
///
///     PROGRAM works ROWS COLS [WORK]      times every work at this size, or that one alone
///     PROGRAM memory ROWS COLS plain      bytes that one cell takes of the process
///     PROGRAM memory ROWS COLS striped    the same with every second row coloured
///     PROGRAM smoke                       everything once, small

#include "works.h"

namespace tablio::bench {

template <typename Peer> void printMemory(Size size, bool striped) {
    const CellTexts texts(size);
    // A small table first: what the toolkit loads once belongs to no cell.
    Peer peer({2, size.cols}, Kind::Plain);
    peer.show();
    fillTexts(peer, {2, size.cols}, texts);
    if (striped)
        peer.paintStripes();
    const long before = residentBytes();
    peer.resize(size);
    fillTexts(peer, size, texts);
    if (striped)
        peer.paintStripes();
    const double bytes = static_cast<double>(residentBytes() - before);
    std::printf("%s,%d,%d,%.2f\n", striped ? "bytes a cell striped" : "bytes a cell", size.rows,
                size.cols, bytes / size.rows / size.cols);
}

/// Works that only some peers have, such as painting.
using MoreWorks = void (*)(Size, const Repeats &);

template <typename Peer> int runProgram(const std::vector<std::string> &arguments, MoreWorks more) {
    const std::string what = arguments.empty() ? "" : arguments[0];
    if (what == "smoke") {
        const Size size{40, 5};
        Works<Peer>(size, {true, ""}).run();
        more(size, {true, ""});
        printMemory<Peer>(size, true);
        return 0;
    }
    if (arguments.size() < 3) {
        std::fprintf(stderr,
                     "usage: works ROWS COLS [WORK] | memory ROWS COLS plain|striped | smoke\n");
        return 2;
    }
    const Size size{std::stoi(arguments[1]), std::stoi(arguments[2])};
    if (what == "works") {
        keepFreedMemory();
        const Repeats repeats{false, arguments.size() > 3 ? arguments[3] : ""};
        Works<Peer>(size, repeats).run();
        more(size, repeats);
    } else {
        printMemory<Peer>(size, arguments.size() > 3 && arguments[3] == "striped");
    }
    return 0;
}

} // namespace tablio::bench
