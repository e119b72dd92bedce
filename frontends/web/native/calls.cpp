/// The page's calls of members, by their numbers, and of whole blocks of cells and settings.

#include "grid.h"

#include <tablio/text_bag.h>
#include <tablio/tmatrix.h>

#include <algorithm>

namespace tablio::web {

/// Calls a method (0), reads a property (1) or writes one (2), whose value stands behind its
/// indexes. The answer is in the room.
[[clang::export_name("access")]] const void *access(int number, int member, int how, int count) {
    return with(number, [&](Grid &grid) {
        Dispatch dispatch(grid.table());
        Values arguments = takeValues(count);
        Value result;
        if (how == 2) {
            const Value value = std::move(arguments.back());
            arguments.pop_back();
            dispatch.put(member, value, arguments);
        } else {
            result = how == 1 ? dispatch.get(member, arguments) : dispatch.call(member, arguments);
        }
        return putValues({&result, 1});
    });
}

/// What hangs on a cell; a text that is no value of ours reads as "".
[[clang::export_name("tag")]] const void *tag(int number, int row, int col) {
    return with(number, [&](Grid &grid) {
        const Value value = std::visit(
            [](const auto &held) -> Value {
                if constexpr (std::is_convertible_v<decltype(held), Value>)
                    return held;
                return "";
            },
            grid.table().CellTag()->Text(row, col));
        return putValues({&value, 1});
    });
}

[[clang::export_name("setTag")]] void setTag(int number, int row, int col) {
    with(number, [&](Grid &grid) {
        const Value value = takeValues(1).front();
        MatrixValue held = value.toText();
        if (value.type() == Value::Type::Boolean)
            held = value.toBoolean();
        else if (value.type() == Value::Type::Long)
            held = value.toLong();
        else if (value.type() == Value::Type::Double)
            held = value.toDouble();
        grid.table().CellTag()->setText(row, col, std::move(held));
    });
}

/// Writes the texts in the room, so many a row, each of which ends with a 0.
[[clang::export_name("setTexts")]] void setTexts(int number, int row, int col, int cols,
                                                 std::size_t length) {
    with(number, [&](Grid &grid) {
        // Copied, because the room is used by what handlers do.
        const std::string all(roomFor(0), length);
        std::vector<std::string_view> texts;
        texts.reserve(static_cast<std::size_t>(std::count(all.begin(), all.end(), '\0')));
        for (std::size_t at = 0; at < length; at += texts.back().size() + 1)
            texts.emplace_back(all.c_str() + at);
        grid.table().setTexts(row, col, cols, texts);
    });
}

/// What the cells read, each ended by a 0.
[[clang::export_name("texts")]] const void *texts(int number, int row, int col, int rows,
                                                  int cols) {
    return replied(number, [&](Grid &grid, Reply &reply) {
        std::string all;
        for (int cell = 0; cell < rows * cols; ++cell)
            (all += grid.table().TextMatrix(row + cell / cols, col + cell % cols)) += '\0';
        reply.addText(all);
    });
}

[[clang::export_name("saveSettings")]] const void *saveSettings(int number) {
    return replied(number, [](Grid &grid, Reply &reply) {
        TextBag bag;
        grid.table().saveSettings(bag);
        reply.addText(bag.text());
    });
}

[[clang::export_name("loadSettings")]] void loadSettings(int number, std::size_t length) {
    with(number, [&](Grid &grid) {
        grid.table().loadSettings(TextBag::parse({roomFor(0), length}));
    });
}

} // namespace tablio::web
