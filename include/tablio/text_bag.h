#pragma once

/// A property store kept as plain text that people can read, compare and merge: ASCII only, one key
/// a line with its type, in the order in which the keys were written. It reads and writes no files.

#include <tablio/property_bag.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tablio {

/// Names consist of ASCII letters, digits, "_", "." and "-"; another name throws Error.
class TextBag final : public PropertyBag {
public:
    /// The store that text() wrote. Keys that nobody knows are kept. Throws Error, naming the line,
    /// for text that is no such store, names a key twice, or is of a later version.
    [[nodiscard]] static TextBag parse(std::string_view text);
    /// A first line with the version, then a line for each key; always ends a line.
    [[nodiscard]] std::string text() const;

    [[nodiscard]] Value readProperty(std::string_view name,
                                     const Value &defaultValue) const override;
    /// Objects and numbers that are not finite cannot be stored: TypeMismatch.
    void writeProperty(std::string_view name, const Value &value,
                       const Value &defaultValue) override;

    [[nodiscard]] bool contains(std::string_view name) const;
    /// The names in their order, as they were spelled when first written.
    [[nodiscard]] std::vector<std::string> names() const;

private:
    struct Entry {
        std::size_t order;
        std::string name;
        Value value;
    };

    void store(std::string_view name, Value value);
    [[nodiscard]] std::vector<const Entry *> inOrder() const;

    /// By the name in lower case.
    std::unordered_map<std::string, Entry> entries_;
    std::size_t nextOrder_ = 0;
};

} // namespace tablio
