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

/// What hangs on a cell, in the room; `write` takes it from there.
[[clang::export_name("tag")]] const void *tag(int number, int row, int col, bool write) {
    return with(number, [&](Grid &grid) {
        const auto tags = grid.table().CellTag();
        Value value;
        if (write) {
            value = takeValues(1).front();
            if (value.type() == Value::Type::Boolean)
                tags->setText(row, col, value.toBoolean());
            else if (value.type() == Value::Type::Long)
                tags->setText(row, col, value.toLong());
            else if (value.type() == Value::Type::Double)
                tags->setText(row, col, value.toDouble());
            else
                tags->setText(row, col, value.toText());
        } else {
            const MatrixValue held = tags->Text(row, col);
            if (const auto *const text = std::get_if<std::string>(&held))
                value = *text;
            else if (const auto *const truth = std::get_if<bool>(&held))
                value = *truth;
            else if (const auto *const whole = std::get_if<std::int32_t>(&held))
                value = *whole;
            else if (const auto *const real = std::get_if<double>(&held))
                value = *real;
        }
        return putValues({&value, 1});
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
[[clang::export_name("texts")]] const Reply *texts(int number, int row, int col, int rows,
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
