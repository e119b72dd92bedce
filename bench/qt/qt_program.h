#pragma once

/// What the peers that are Qt widgets have in common: the application, painting, typing and the
/// start. Besides what `works.h` asks, such a peer answers
///
///     window()                   the window that is shown
///     edit(row, col)             puts the cursor there, ready for keys
///     setString(row, col, text)  writes a cell with a text that Qt holds already
///
/// Everything is painted before a function here returns, on Qt's offscreen platform, by the same
/// software renderer that a real window uses.

#include "program.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <QStyleFactory>
#include <QWidget>

namespace tablio::bench {

/// Counts the widgets that are painted.
class PaintWatch : public QObject {
public:
    PaintWatch() { QCoreApplication::instance()->installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

inline void handleEvents() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

inline QScrollBar &verticalBar(QWidget &window) {
    for (QScrollBar *bar : window.findChildren<QScrollBar *>()) {
        if (bar->orientation() == Qt::Vertical && bar->isVisible())
            return *bar;
    }
    std::fprintf(stderr, "the table has no vertical scroll bar\n");
    std::exit(1);
}

/// A host that has QStrings already, from a query for example. An item keeps the string itself and
/// pays nothing for its text; the core takes a copy as UTF-8.
template <typename Peer> void fillStrings(Size size, const Repeats &repeats) {
    const CellTexts texts(size);
    QList<QString> strings;
    for (int row = 0; row < size.rows; ++row) {
        for (int col = 0; col < size.cols; ++col) {
            const std::string_view text = texts.text(row, col);
            strings.append(QString::fromLatin1(text.data(), text.size()));
        }
    }
    onNewPeer<Peer>("fill from QStrings", size, repeats, [&](Peer &peer) {
        auto next = strings.cbegin();
        peer.bulk(true);
        for (int row = 0; row < size.rows; ++row) {
            for (int col = 0; col < size.cols; ++col)
                peer.setString(row, col, *next++);
        }
        peer.bulk(false);
    });
}

template <typename Peer> class QtWorks {
public:
    QtWorks(Size size, const Repeats &repeats)
        : size_(size), repeats_(repeats), texts_(size), peer_(size, Kind::Full) {
        peer_.show();
        fillFull(peer_, size_, texts_);
        peer_.paintStripes();
        handleEvents();
    }

    void run() {
        frames();
        scrolling();
        changedCell();
        typing();
    }

private:
    /// Times a work and makes sure that it painted something.
    template <typename Work> void painted(const char *what, Samples &samples, const Work &work) {
        const int before = watch_.paints;
        samples.time(work);
        if (watch_.paints == before) {
            std::fprintf(stderr, "%s: nothing was painted\n", what);
            std::exit(1);
        }
    }

    /// Part by part, since a window that is updated spares children which cover it.
    void frames() {
        const QList<QWidget *> parts = peer_.window().template findChildren<QWidget *>();
        repeats_.measure({"full frame"}, size_, [&](std::vector<Samples> &samples) {
            painted("full frame", samples[0], [&] {
                peer_.window().update();
                for (QWidget *part : parts)
                    part->update();
                handleEvents();
            });
        });
    }

    void scrolling() {
        QScrollBar &bar = verticalBar(peer_.window());
        const auto to = [&bar](int row) {
            bar.setValue(row);
            handleEvents();
        };
        repeats_.measure({"scroll by a row", "scroll by a page", "scroll to the end"}, size_,
                         [&](std::vector<Samples> &samples) {
                             to(bar.minimum());
                             painted("scroll by a row", samples[0], [&] { to(bar.minimum() + 1); });
                             painted("scroll by a page", samples[1],
                                     [&] { to(bar.minimum() + 1 + bar.pageStep()); });
                             painted("scroll to the end", samples[2], [&] { to(bar.maximum()); });
                         });
        to(bar.minimum());
    }

    void changedCell() {
        int count = 0;
        repeats_.measure({"one changed cell"}, size_, [&](std::vector<Samples> &samples) {
            ++count;
            painted("one changed cell", samples[0], [&] {
                peer_.set(5, 4, texts_.text(count % size_.rows, 4));
                handleEvents();
            });
        });
    }

    void typing() {
        int row = 0;
        repeats_.measure(
            {"key to pixel", "Enter to pixel", "arrow to pixel"}, size_,
            [&](std::vector<Samples> &samples) {
                row = (row + 1) % 15;
                peer_.edit(row, keyCol);
                handleEvents();
                for (const int digit : {Qt::Key_2, Qt::Key_7, Qt::Key_1, Qt::Key_8})
                    painted("key", samples[0], [&] { press(digit, QString(QChar(digit))); });
                painted("Enter", samples[1], [&] { press(Qt::Key_Return, QStringLiteral("\r")); });
                for (const int arrow : {Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up})
                    painted("arrow", samples[2], [&] { press(arrow); });
            });
    }

    static void press(int code, const QString &text = {}) {
        QWidget *owner = QApplication::focusWidget();
        if (owner == nullptr) {
            std::fprintf(stderr, "nobody has the keyboard\n");
            std::exit(1);
        }
        QKeyEvent down(QEvent::KeyPress, code, Qt::NoModifier, text);
        QCoreApplication::sendEvent(owner, &down);
        handleEvents();
    }

    Size size_;
    Repeats repeats_;
    CellTexts texts_;
    Peer peer_;
    PaintWatch watch_;
};

/// What no frame can do without: giving each pixel a colour once.
inline void fillingPixels(Size size, const Repeats &repeats) {
    QImage image(windowWidth, windowHeight, QImage::Format_RGB32);
    repeats.measure(
        "floor: fill the pixels", size, [] {}, [&] { image.fill(Qt::white); });
}

/// Prints the milliseconds from a moment of the system's steady clock, in nanoseconds, to the first
/// frame of a table of 1,000 rows.
template <typename Peer> void printStart(long long from) {
    const Size size{1000, 20};
    Peer peer(size, Kind::Plain);
    fillTexts(peer, size, CellTexts(size));
    PaintWatch watch;
    peer.show();
    while (watch.paints == 0)
        handleEvents();
    const auto now =
        std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch());
    std::printf("start to first frame,%d,%d,%.2f\n", size.rows, size.cols,
                static_cast<double>(now.count() - from) / 1e6);
}

template <typename Peer>
int runQtProgram(
    int count, char **arguments, MoreWorks more = [](Size, const Repeats &) {}) {
    QLocale::setDefault(QLocale::c());
    QApplication application(count, arguments);
    const std::vector<std::string> rest(arguments + 1, arguments + count);
    if (rest.size() == 2 && rest[0] == "start") {
        printStart<Peer>(std::stoll(rest[1]));
        return 0;
    }
    static MoreWorks peersOwn = more;
    return runProgram<Peer>(rest, [](Size size, const Repeats &repeats) {
        fillStrings<Peer>(size, repeats);
        // A smoke table is too small to scroll.
        const Size painted{std::max(size.rows, 100), size.cols};
        QtWorks<Peer>(painted, repeats).run();
        fillingPixels(painted, repeats);
        peersOwn(size, repeats);
    });
}

} // namespace tablio::bench
