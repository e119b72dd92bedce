#pragma once

/// The text of one cell in sixteen bytes. A table holds hundreds of thousands of short texts, so
/// up to fifteen bytes stand in the object itself and only longer ones go to the heap. The cell
/// store uses it; nobody else needs to.

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace tablio {

class CompactText {
public:
    CompactText() noexcept { bytes_.back() = static_cast<char>(inlineCapacity); }
    explicit CompactText(std::string_view text) : CompactText() { assign(text); }
    CompactText(CompactText &&other) noexcept : bytes_(other.bytes_) { other.forget(); }
    CompactText &operator=(CompactText &&other) noexcept {
        std::swap(bytes_, other.bytes_);
        return *this;
    }
    CompactText(const CompactText &other) : CompactText(other.view()) {}
    CompactText &operator=(const CompactText &other) {
        if (this != &other)
            assign(other.view());
        return *this;
    }
    ~CompactText() { wipe(); }

    /// Takes a copy of the text, which may be a part of this object's own.
    void assign(std::string_view text) {
        const char *const old = isLong() ? longText().data : nullptr;
        // Written in place: a short text that is put together elsewhere and then moved here as a
        // whole waits for its own bytes, which costs more than all the rest.
        if (text.size() <= inlineCapacity) {
            copyShort(bytes_.data(), text.data(), text.size());
            bytes_.back() = static_cast<char>(inlineCapacity - text.size());
        } else {
            char *const copy = new char[text.size()];
            std::memcpy(copy, text.data(), text.size());
            const auto size = static_cast<std::uint32_t>(text.size());
            std::memcpy(bytes_.data(), &copy, sizeof copy);
            std::memcpy(bytes_.data() + sizeof copy, &size, sizeof size);
            bytes_.back() = longMark;
        }
        delete[] old;
    }

    /// Makes it as if nothing had been written.
    void wipe() noexcept {
        if (isLong())
            delete[] longText().data;
        forget();
    }

    [[nodiscard]] std::string_view view() const noexcept {
        if (bytes_.back() < blankMark)
            return {bytes_.data(), inlineCapacity - static_cast<std::size_t>(bytes_.back())};
        if (!isLong())
            return {};
        const LongText held = longText();
        return {held.data, held.size};
    }
    /// Nothing was written here. A blank that was written reads the same and is not empty.
    [[nodiscard]] bool empty() const noexcept {
        return bytes_.back() == static_cast<char>(inlineCapacity);
    }
    /// Writes a blank that covers what would show in an empty place.
    void assignBlank() {
        assign({});
        bytes_.back() = blankMark;
    }

private:
    static constexpr std::size_t inlineCapacity = 15;
    static constexpr char longMark = 0x7f;
    static constexpr char blankMark = 0x7e;

    struct LongText {
        char *data;
        std::uint32_t size;
    };

    /// Up to fifteen bytes, in pieces that may overlap: most texts are too short for a call.
    static void copyShort(char *to, const char *from, std::size_t size) {
        const auto copyEnds = [&](auto first, auto last) {
            std::memcpy(&first, from, sizeof first);
            std::memcpy(&last, from + size - sizeof last, sizeof last);
            std::memcpy(to, &first, sizeof first);
            std::memcpy(to + size - sizeof last, &last, sizeof last);
        };
        if (size >= sizeof(std::uint64_t))
            copyEnds(std::uint64_t{}, std::uint64_t{});
        else if (size >= sizeof(std::uint32_t))
            copyEnds(std::uint32_t{}, std::uint32_t{});
        else if (size > 0)
            std::memmove(to, from, size);
    }
    [[nodiscard]] bool isLong() const noexcept { return bytes_.back() == longMark; }
    [[nodiscard]] LongText longText() const noexcept {
        LongText held{};
        std::memcpy(&held.data, bytes_.data(), sizeof held.data);
        std::memcpy(&held.size, bytes_.data() + sizeof held.data, sizeof held.size);
        return held;
    }
    void forget() noexcept { bytes_.back() = static_cast<char>(inlineCapacity); }

    /// The last byte counts the inline bytes that are free (a full text ends the object with 0),
    /// or marks a written blank, or a pointer and a length in the bytes before it.
    alignas(8) std::array<char, inlineCapacity + 1> bytes_{};
};

static_assert(sizeof(CompactText) == 16);

} // namespace tablio
