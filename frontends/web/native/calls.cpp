/// The page's calls of members, by their numbers, and of whole blocks of cells and settings.

#include "grid.h"

#include <tablio/text_bag.h>

#include <algorithm>
#include <vector>

namespace tablio::web {

enum class How : int { Call, Read, Write };

/// The values are in the room; one that is written stands behind its indexes.
[[clang::export_name("access")]] const void *access(int number, int member, How how,
                                                    std::size_t count) {
    return with(number, [&](Grid &grid) {
        Dispatch dispatch(grid.table());
        Given given(3 * count);
        Values arguments;
        while (arguments.size() < count)
            arguments.push_back(given.value());
        Value result;
        if (how == How::Write) {
            const Value value = std::move(arguments.back());
            arguments.pop_back();
            dispatch.put(member, value, arguments);
        } else {
            result = how == How::Read ? dispatch.get(member, arguments)
                                      : dispatch.call(member, arguments);
        }
        return Message().add(result).done();
    });
}

/// Writes the texts in the room, so many a row, each of which ends with a 0.
[[clang::export_name("setTexts")]] void setTexts(int number, int row, int col, int cols) {
    with(number, [&](Grid &grid) {
        const std::string all = Given(1).text();
        std::vector<std::string_view> texts;
        texts.reserve(static_cast<std::size_t>(std::count(all.begin(), all.end(), '\0')));
        for (std::size_t at = 0; at < all.size(); at += texts.back().size() + 1)
            texts.emplace_back(all.c_str() + at);
        grid.table().setTexts(row, col, cols, texts);
    });
}

/// What the cells read, each ended by a 0.
[[clang::export_name("texts")]] const void *texts(int number, int row, int col, int rows,
                                                  int cols) {
    return replied(number, [&](Grid &grid, Message &message) {
        std::string all;
        for (int cell = 0; cell < rows * cols; ++cell)
            (all += grid.table().TextMatrix(row + cell / cols, col + cell % cols)) += '\0';
        message.add(all);
    });
}

[[clang::export_name("saveSettings")]] const void *saveSettings(int number) {
    return replied(number, [](Grid &grid, Message &message) {
        TextBag bag;
        grid.table().saveSettings(bag);
        message.add(bag.text());
    });
}

[[clang::export_name("loadSettings")]] void loadSettings(int number) {
    with(number, [](Grid &grid) { grid.table().loadSettings(TextBag::parse(Given(1).text())); });
}

} // namespace tablio::web
