#pragma once

/// What all benchmark programs share: a clock, samples with their median, memory of this process,
/// and the lines that `scripts/bench` reads. It knows no toolkit and none of the peers.

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tablio::bench {

using Clock = std::chrono::steady_clock;

/// Data rows and columns; a header row comes on top where the peer's header is a row.
struct Size {
    int rows = 0;
    int cols = 0;
};

/// The time that this thread has worked. Unlike the clock on the wall it stands still while another
/// program has the processor.
[[nodiscard]] inline double workedMicroseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

/// One piece of work, measured several times, in microseconds.
class Samples {
public:
    template <typename Work> void time(const Work &work) {
        const Clock::time_point start = Clock::now();
        const double workedBefore = workedMicroseconds();
        work();
        worked_.push_back(workedMicroseconds() - workedBefore);
        passed_.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }

    /// A line of CSV: work, rows, columns, median by the clock; 99th percentile and longest in time
    /// worked, in which a turn of another program does not count; how many.
    void print(std::string_view work, Size size) {
        if (passed_.empty())
            return;
        std::sort(passed_.begin(), passed_.end());
        std::sort(worked_.begin(), worked_.end());
        std::printf("%.*s,%d,%d,%.2f,%.2f,%.2f,%zu\n", static_cast<int>(work.size()), work.data(),
                    size.rows, size.cols, share(passed_, 0.5), share(worked_, 0.99), worked_.back(),
                    passed_.size());
        std::fflush(stdout);
    }

private:
    [[nodiscard]] static double share(const std::vector<double> &sorted, double part) {
        return sorted[static_cast<std::size_t>(part * static_cast<double>(sorted.size() - 1))];
    }

    std::vector<double> passed_;
    std::vector<double> worked_;
};

/// Which works are done, and how often each is repeated. A smoke run does everything once: it shows
/// that the program still works, and says nothing of speed.
struct Repeats {
    bool smoke = false;
    /// The one work that is wanted, for a profiler; empty for all.
    std::string only;

    /// Calls the round once to warm up, then again and again with the samples it is to add to.
    template <typename Round>
    void measure(const std::vector<std::string> &works, Size size, const Round &round) const {
        constexpr int most = 100;
        constexpr int least = 5;
        constexpr auto longEnough = std::chrono::milliseconds(300);
        constexpr auto tooLong = std::chrono::seconds(5);
        if (!only.empty() && std::find(works.begin(), works.end(), only) == works.end())
            return;
        std::vector<Samples> samples(works.size());
        if (!smoke) {
            round(samples);
            samples.assign(works.size(), {});
        }
        const Clock::time_point start = Clock::now();
        for (int count = 1; count <= (smoke ? 1 : most); ++count) {
            round(samples);
            const Clock::duration passed = Clock::now() - start;
            if ((count >= least && passed > longEnough) || passed > tooLong)
                break;
        }
        for (std::size_t i = 0; i < works.size(); ++i)
            samples[i].print(works[i], size);
    }

    /// Prepares and does a single work; only the work is timed.
    template <typename Prepare, typename Work>
    void measure(const std::string &work, Size size, const Prepare &prepare,
                 const Work &timed) const {
        measure({work}, size, [&](std::vector<Samples> &samples) {
            prepare();
            samples.front().time(timed);
        });
    }
};

/// Keeps a result that nobody reads from being optimised away.
template <typename T> void keep(const T &value) { asm volatile("" : : "g"(&value) : "memory"); }

/// What is written into cells, made beforehand as if it came from a file: a table of different
/// texts and one of numbers.
class CellTexts {
public:
    explicit CellTexts(Size size) : cols_(static_cast<std::size_t>(size.cols)) {
        const auto cells = static_cast<std::size_t>(size.rows) * cols_;
        texts_.reserve(cells * textLength);
        numbers_.reserve(cells * numberLength);
        for (int row = 0; row < size.rows; ++row) {
            for (int col = 0; col < size.cols; ++col) {
                appendDigits(texts_.append(1, 'A'), 2, col);
                appendDigits(texts_.append(1, '-'), 5, row);
                appendDigits(numbers_, 6, 100000 + (row * 37 + col * 101) % 900000);
                appendDigits(numbers_.append(1, '.'), 3, row);
            }
        }
    }

    /// A letter, the column, a dash and the row: nine bytes, as article numbers are.
    [[nodiscard]] std::string_view text(int row, int col) const {
        return std::string_view(texts_).substr(cell(row, col) * textLength, textLength);
    }
    /// A number with three decimals.
    [[nodiscard]] std::string_view number(int row, int col) const {
        return std::string_view(numbers_).substr(cell(row, col) * numberLength, numberLength);
    }

private:
    static constexpr std::size_t textLength = 9;
    static constexpr std::size_t numberLength = 10;

    static void appendDigits(std::string &to, std::size_t count, int value) {
        const std::string digits = std::to_string(value);
        to.append(count - std::min(count, digits.size()), '0');
        to.append(digits, digits.size() - std::min(count, digits.size()));
    }
    [[nodiscard]] std::size_t cell(int row, int col) const {
        return static_cast<std::size_t>(row) * cols_ + static_cast<std::size_t>(col);
    }

    std::size_t cols_;
    std::string texts_;
    std::string numbers_;
};

/// What was freed stays with the program, as in one that has run for a while. Otherwise chance,
/// such as what happens to stand at the heap's end, decides whether a table pays for new pages.
inline void keepFreedMemory() {
    constexpr int never = 1 << 30;
    constexpr int mostThatItTakes = 1 << 25;
    mallopt(M_TRIM_THRESHOLD, never);
    mallopt(M_MMAP_THRESHOLD, mostThatItTakes);
}

/// Memory of this process that is in use, after what is free has been given back.
[[nodiscard]] inline long residentBytes() {
    malloc_trim(0);
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0;
    statm >> total >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

} // namespace tablio::bench
