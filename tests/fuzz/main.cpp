/// Runs a fuzz target: under libFuzzer for as long as it is told, elsewhere over the corpus and a
/// number of random inputs that are the same each time.
///
///   tablio_fuzz TARGET [RUNS [FILE…]]      e.g. tablio_fuzz input 2000

#include "fuzz.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <utility>

namespace tablio::fuzz {

int Bytes::next() {
    if (bytes_.empty())
        return 0;
    const int byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
}

std::int32_t Bytes::number() {
    constexpr std::array<std::int32_t, 15> ends{0,
                                                1,
                                                -1,
                                                2,
                                                15,
                                                255,
                                                32766,
                                                32767,
                                                32768,
                                                -32768,
                                                -32769,
                                                65536,
                                                1000001,
                                                std::numeric_limits<int>::max(),
                                                std::numeric_limits<int>::min()};
    if (chance(2))
        return pick(ends);
    std::uint32_t number = 0;
    for (int byte = 0; byte < 4; ++byte)
        number = number << 8 | static_cast<unsigned>(next());
    return static_cast<std::int32_t>(number);
}

std::string Bytes::text(int longest) {
    std::string text(bytes_.substr(0, static_cast<std::size_t>(below(longest + 1))));
    bytes_.remove_prefix(text.size());
    return text;
}

void broken(const std::string &what) {
    std::fprintf(stderr, "broken: %s\n", what.c_str());
    std::abort();
}

namespace {

using Target = void (*)(Bytes &);

Target target(std::string_view name) {
    constexpr std::array<std::pair<std::string_view, Target>, 8> targets{{{"input", input},
                                                                          {"stored", stored},
                                                                          {"dispatch", dispatch},
                                                                          {"numbers", numbers},
                                                                          {"dates", dates},
                                                                          {"pages", pages},
                                                                          {"scenario", scenario},
                                                                          {"faces", faces}}};
    for (const auto &[known, function] : targets) {
        if (known == name)
            return function;
    }
    std::fprintf(stderr, "no such fuzz target: %s\n", std::string(name).c_str());
    std::exit(2);
}

Target chosen = nullptr;

void run(std::string_view data) {
    Bytes bytes(data);
    chosen(bytes);
}

[[maybe_unused]] void runFile(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    run(std::string(std::istreambuf_iterator<char>(file), {}));
}

[[maybe_unused]] void runRandom(unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(random() % 700, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(random());
    run(bytes);
}

} // namespace
} // namespace tablio::fuzz

#ifdef TABLIO_LIBFUZZER

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    if (*argc < 2)
        tablio::fuzz::broken("name a target");
    tablio::fuzz::chosen = tablio::fuzz::target((*argv)[1]);
    // libFuzzer takes what is left for its own.
    (*argv)[1] = (*argv)[0];
    ++*argv;
    --*argc;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    tablio::fuzz::run({reinterpret_cast<const char *>(data), size});
    return 0;
}

#else

int main(int argc, char **argv) {
    using namespace tablio::fuzz;
    chosen = target(argc > 1 ? argv[1] : "");
    const unsigned runs = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1000;
    for (unsigned seed = 0; seed < runs; ++seed) {
        try {
            runRandom(seed);
        } catch (const std::exception &error) {
            broken("seed " + std::to_string(seed) + " throws " + error.what());
        }
    }
    for (int file = 3; file < argc; ++file)
        runFile(argv[file]);
    std::printf("%s: %u inputs and %d files, nothing broken\n", argv[1], runs,
                std::max(0, argc - 3));
    return 0;
}

#endif
