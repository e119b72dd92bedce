#pragma once

/// What crosses between the page and the control: numbers behind one another, and texts behind one
/// another, whose lengths are among the numbers. A value is three of them: its type, a number and a
/// text. `element/native.ts` writes and reads the same.

#include <tablio/dispatch.h>
#include <tablio/pixels.h>

#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace tablio::web {

/// To the page, which reads it before it calls anything else: there is one.
class Message {
public:
    Message();
    template <typename... Things> Message &add(const Things &...things) {
        (addOne(things), ...);
        return *this;
    }
    /// Where numbers, their count, texts and their length are.
    [[nodiscard]] const void *done() const;

private:
    template <typename Thing> void addOne(const Thing &thing) {
        if constexpr (std::is_convertible_v<Thing, std::string_view>)
            addText(thing);
        else if constexpr (std::is_same_v<Thing, Value>)
            addValue(thing);
        else if constexpr (std::is_same_v<Thing, PixelRect>)
            add(thing.left, thing.top, thing.width, thing.height);
        else if constexpr (std::is_same_v<Thing, Colour>)
            addNumber(thing.value);
        else
            addNumber(static_cast<double>(thing));
    }
    static void addNumber(double number);
    /// Its length counts UTF-16 units.
    void addText(std::string_view text);
    void addValue(const Value &value);
};

/// From the page: what it has put into the room, the lengths of texts in bytes. It is read before
/// the host hears anything, whose calls use the room, too.
class Given {
public:
    explicit Given(std::size_t count);
    [[nodiscard]] double number() noexcept { return *numbers_++; }
    template <typename Number> [[nodiscard]] Number next() noexcept {
        return static_cast<Number>(number());
    }
    [[nodiscard]] std::string text();
    [[nodiscard]] Value value();

private:
    const double *numbers_;
    const char *texts_;
};

} // namespace tablio::web
