#pragma once

/// What the fuzz targets share. A target turns any bytes into calls and says by `broken` what must
/// never be; the fuzzer looks for bytes that get there, or to a sanitizer's finding.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tablio::fuzz {

/// Reads choices from bytes. Past their end every choice is the first one.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] bool atEnd() const noexcept { return bytes_.empty(); }
    /// From 0 to count − 1; at most 256 of them.
    int below(int count) { return next() % count; }
    bool chance(int oneIn) { return below(oneIn) == oneIn - 1; }
    /// Any number; the ones at which something ends are frequent.
    std::int32_t number();
    /// Mostly a small one, as rows and columns are.
    int index(int usual) { return chance(32) ? number() : below(usual) - (chance(16) ? 1 : 0); }
    std::string text(int longest);
    template <typename Item, std::size_t count>
    const Item &pick(const std::array<Item, count> &items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(count)))];
    }
    std::string_view rest() { return std::exchange(bytes_, {}); }

private:
    int next();

    std::string_view bytes_;
};

/// Ends the program with this message.
[[noreturn]] void broken(const std::string &what);
inline void expect(bool holds, const std::string &what) {
    if (!holds)
        broken(what);
}

// The targets.
void input(Bytes &bytes);
void stored(Bytes &bytes);
void dispatch(Bytes &bytes);
void numbers(Bytes &bytes);
void dates(Bytes &bytes);
void pages(Bytes &bytes);
void scenario(Bytes &bytes);
void faces(Bytes &bytes);

} // namespace tablio::fuzz
