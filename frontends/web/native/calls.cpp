/// The page's calls of members, by their numbers, and of whole blocks of cells and settings.

#include "grid.h"
#include "slots.h"

#include <tablio/text_bag.h>

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

/// Writes the texts in the room, which fill rows of so many cells and end with a 0 each. False, and
/// nothing is written, where there is another number of texts.
[[clang::export_name("setCells")]] bool setCells(int number, int row, int col, int rows, int cols,
                                                 std::size_t length) {
    return with(number, [&](Grid &grid) {
        Tablio &table = grid.table();
        // Copied, because the room is used by what handlers do.
        const std::string texts(roomFor(0), length);
        if (std::count(texts.begin(), texts.end(), '\0') != rows * cols)
            return false;
        if (rows > 0 && cols > 0)
            static_cast<void>(table.TextMatrix(row + rows - 1, col + cols - 1));
        const char *text = texts.data();
        for (int cell = 0; cell < rows * cols; ++cell) {
            const std::string_view one(text);
            text += one.size() + 1;
            grid.table().setTextMatrix(row + cell / cols, col + cell % cols, one);
        }
        return true;
    });
}

/// What the cells read, each ended by a 0.
[[clang::export_name("cells")]] const Reply *cells(int number, int row, int col, int rows,
                                                   int cols) {
    return with(number, [&](Grid &grid) {
        std::string all;
        for (int cell = 0; cell < rows * cols; ++cell)
            (all += grid.table().TextMatrix(row + cell / cols, col + cell % cols)) += '\0';
        return ReplyWriter().addText(all).done();
    });
}

[[clang::export_name("saveSettings")]] const Reply *saveSettings(int number) {
    return with(number, [](Grid &grid) {
        TextBag bag;
        grid.table().saveSettings(bag);
        return ReplyWriter().addText(bag.text()).done();
    });
}

[[clang::export_name("loadSettings")]] void loadSettings(int number, std::size_t length) {
    with(number, [&](Grid &grid) {
        grid.table().loadSettings(TextBag::parse({roomFor(0), length}));
    });
}

} // namespace tablio::web
