/// The steps that begin with "expect".

#include "support/scenario_members.h"
#include "support/scenario_picture.h"
#include "support/scenario_stage.h"

#include <algorithm>
#include <span>
#include <utility>

namespace tablio::scenario {

namespace {

std::string textOf(CellAddress cell) {
    return std::to_string(cell.row) + " " + std::to_string(cell.col);
}

std::string textOf(const Rect &rect) {
    return std::to_string(rect.left) + " " + std::to_string(rect.top) + " " +
           std::to_string(rect.width) + " " + std::to_string(rect.height);
}

std::string listed(std::span<const std::string> lines) {
    if (lines.empty())
        return " nothing";
    std::string result;
    for (const std::string &line : lines)
        result += "\n      " + line;
    return result;
}

void expectCell(Stage &stage, Words &words, const Line &line) {
    const CellAddress cell = words.cell();
    do {
        if (words.take("shows")) {
            stage.check(line, "shown", quoted(words.text()),
                        quoted(stage.state().grid.table.TextMatrix(cell.row, cell.col)));
        } else {
            words.require("reads");
            stage.check(line, "read", quoted(words.text()),
                        quoted(stage.core().TextMatrix(cell.row, cell.col)));
        }
    } while (!words.atEnd());
}

void expectCursor(Stage &stage, Words &words, const Line &line) {
    words.require("at");
    const CellAddress expected = words.cell();
    stage.check(line, "cursor", textOf(expected), textOf(stage.state().grid.current()));
}

void expectEditor(Stage &stage, Words &words, const Line &line) {
    const EditorView editor = editorOf(stage.state());
    if (words.take("closed")) {
        if (editor.widget != nullptr)
            stage.fail(line, "the editor is open and shows " + quoted(pictureOf(editor)));
        return;
    }
    if (editor.widget == nullptr) {
        stage.fail(line, "no editor is open");
        return;
    }
    do {
        if (words.take("shows")) {
            stage.check(line, "editor", quoted(words.text()), quoted(pictureOf(editor)));
        } else if (words.take("over")) {
            words.require("cell");
            const CellAddress cell = words.cell();
            stage.check(line, "place", textOf(stage.state().grid.view.cellRect(cell.row, cell.col)),
                        textOf(editor.frame->place()));
        } else if (words.take("tag")) {
            stage.check(line, "Tag", quoted(words.text()), quoted(editor.widget->Tag()));
        } else if (words.take("max")) {
            stage.check(line, "MaxLength", std::to_string(words.number("a length")),
                        std::to_string(editor.maxLength));
        } else {
            words.require("align");
            stage.check(line, "alignment", words.next("left or right").text,
                        editor.isRightAligned ? "right" : "left");
        }
    } while (!words.atEnd());
}

void expectFocus(Stage &stage, Words &words, const Line &line) {
    words.require("on");
    const std::string expected = words.next("a widget or \"nobody\"").text;
    const std::optional<WidgetId> owner = stage.state().focus.owner();
    stage.check(line, "focus", expected, owner ? shown(*owner) : "nobody");
}

void compareLists(Stage &stage, const Line &line, std::span<const std::string> expected,
                  std::span<const std::string> found) {
    const auto [atExpected, atFound] = std::ranges::mismatch(expected, found);
    if (atExpected == expected.end() && atFound == found.end())
        return;
    const std::string wanted = atExpected == expected.end() ? "nothing more" : *atExpected;
    const std::string got = atFound == found.end() ? "nothing more" : *atFound;
    stage.fail(line, "number " + std::to_string(atExpected - expected.begin() + 1) + ": expected " +
                         wanted + ", found " + got + "; all that was found:" + listed(found));
}

/// All that was raised since the last such step, or what is named behind "of" of it.
std::vector<std::string> takeEvents(Stage &stage, Words &words) {
    Tokens only;
    if (words.take("of"))
        only = words.rest();
    for (const Token &event : only)
        ScenarioHost::checkEvent(event.text);
    std::vector<std::string> found;
    for (const ScenarioHost::Entry &entry : stage.host.takeEvents()) {
        const auto isEvent = [&](const Token &event) { return event.is(entry.event); };
        if (only.empty() || std::ranges::any_of(only, isEvent))
            found.push_back(entry.text);
    }
    return found;
}

void expectEvents(Stage &stage, Words &words, const Line &line) {
    std::vector<std::string> expected;
    for (const Line &event : line.block)
        expected.push_back(event.text);
    if (expected.empty())
        throw ScriptError("the events should stand below, or the step be \"expect no events\"");
    compareLists(stage, line, expected, takeEvents(stage, words));
}

void expectNotices(Stage &stage, Words &words, const Line &line) {
    std::vector<std::string> expected;
    for (const Token &name : words.rest())
        expected.push_back(name.text);
    compareLists(stage, line, expected, std::exchange(stage.face.notices, {}));
}

void expectWarning(Stage &stage, Words &words, const Line &line) {
    const std::vector<std::string> expected{words.text()};
    compareLists(stage, line, expected, std::exchange(stage.face.warnings, {}));
}

void expectNo(Stage &stage, Words &words, const Line &line) {
    if (words.take("events")) {
        compareLists(stage, line, {}, takeEvents(stage, words));
    } else if (words.take("notices")) {
        compareLists(stage, line, {}, std::exchange(stage.face.notices, {}));
    } else if (words.take("warning")) {
        compareLists(stage, line, {}, std::exchange(stage.face.warnings, {}));
    } else {
        words.require("menu");
        if (std::exchange(stage.face.popUp, std::nullopt))
            stage.fail(line, "the menu has popped up");
    }
}

void expectKeyPreview(Stage &stage, Words &words, const Line &line) {
    words.require("preview");
    const std::optional<bool> found = stage.face.hostKeyPreview;
    stage.check(line, "key preview", words.next("True or False").text,
                !found   ? "never set"
                : *found ? "True"
                         : "False");
}

const TableMenu::Entry &menuEntry(const TableMenu &menu, MenuEntry entry) {
    switch (entry) {
    case MenuEntry::mnuMarkRow:
        return menu.mnuMarkRow;
    case MenuEntry::mnuAddRow:
        return menu.mnuAddRow;
    case MenuEntry::mnuInsertRow:
        return menu.mnuInsertRow;
    case MenuEntry::mnuRemoveRow:
        return menu.mnuRemoveRow;
    default:
        return menu.mnuTableClear;
    }
}

void expectMenu(Stage &stage, Words &words, const Line &line) {
    if (words.take("at")) {
        const int x = words.number("a position");
        const int y = words.number("a position");
        const auto found = std::exchange(stage.face.popUp, std::nullopt);
        stage.check(line, "menu", textOf(CellAddress{x, y}),
                    found ? textOf(CellAddress{found->first, found->second}) : "no menu");
        return;
    }
    const TableMenu::Entry &entry =
        menuEntry(stage.state().menu, words.next<MenuEntry>("a menu entry"));
    do {
        const std::string expected = words.next("a state").text;
        if (expected == "enabled" || expected == "disabled")
            stage.check(line, "menu", expected, entry.enabled ? "enabled" : "disabled");
        else if (expected == "checked" || expected == "unchecked")
            stage.check(line, "menu", expected, entry.checked ? "checked" : "unchecked");
        else
            throw ScriptError("a menu entry is enabled or disabled, checked or unchecked");
    } while (!words.atEnd());
}

void expectTable(Stage &stage, Words & /*words*/, const Line &line) {
    std::vector<std::vector<std::string>> expected;
    for (const Line &row : line.block)
        expected.push_back(cellsOf(row.text));
    const std::vector<std::vector<std::string>> found = pictureOfTable(stage.state());
    if (expected != found)
        stage.fail(line, "expected:" + drawn(expected) + "\n    found:" + drawn(found));
}

void expectClipboard(Stage &stage, Words &words, const Line &line) {
    const std::string expected = words.text();
    stage.check(line, "clipboard", quoted(expected), quoted(stage.face.clipboardText()));
}

void expectControl(Stage &stage, Words &words, const Line &line) {
    words.require("destroyed");
    if (stage.driver.core() != nullptr)
        stage.fail(line, "the control is still there");
}

/// "cell ROW COL", as its rectangle.
Rect cellNamed(Stage &stage, Words &words) {
    words.require("cell");
    const CellAddress cell = words.cell();
    return stage.state().grid.view.cellRect(cell.row, cell.col);
}

void expectWidget(Stage &stage, Words &words, const Line &line) {
    const Widget &widget = widgetOf(stage.state(), words.next<WidgetId>("a widget"));
    do {
        if (words.take("at")) {
            Rect expected;
            expected.left = words.number("left");
            expected.top = words.number("top");
            expected.width = words.number("width");
            expected.height = words.number("height");
            stage.check(line, "place", textOf(expected), textOf(widget.place()));
        } else if (words.take("below")) {
            stage.check(line, "top", std::to_string(cellNamed(stage, words).bottom()),
                        std::to_string(widget.Top()));
        } else if (words.take("above")) {
            stage.check(line, "bottom", std::to_string(cellNamed(stage, words).top),
                        std::to_string(widget.place().bottom()));
        } else if (words.take("inside")) {
            words.require("the");
            words.require("control");
            const GridView &view = stage.state().grid.view;
            const Rect &place = widget.place();
            stage.check(line, "inside", "True",
                        place.left >= 0 && place.top >= 0 && place.right() <= view.Width() &&
                                place.bottom() <= view.Height()
                            ? "True"
                            : "False");
        } else {
            const std::string expected = words.next("\"at\", \"visible\" or \"hidden\"").text;
            if (expected != "visible" && expected != "hidden")
                throw ScriptError("a widget is visible or hidden, or stands at a place");
            stage.check(line, "widget", expected, widget.Visible() ? "visible" : "hidden");
        }
    } while (!words.atEnd());
}

void expectMember(Stage &stage, const std::string &name, Words &words, const Line &line) {
    const Tokens arguments = words.upTo("is");
    const auto [expected, found] = readMember(stage.core(), name, arguments, words.next("a value"));
    stage.check(line, name, expected, found);
}

using Expectation = void (*)(Stage &, Words &, const Line &);

constexpr std::pair<std::string_view, Expectation> expectations[] = {
    {"cell", expectCell},       {"cursor", expectCursor}, {"editor", expectEditor},
    {"focus", expectFocus},     {"events", expectEvents}, {"notices", expectNotices},
    {"warning", expectWarning}, {"no", expectNo},         {"key", expectKeyPreview},
    {"menu", expectMenu},       {"table", expectTable},   {"clipboard", expectClipboard},
    {"control", expectControl}, {"widget", expectWidget},
};

} // namespace

void runExpectation(Stage &stage, Words &words, const Line &line) {
    const Token what = words.next("what is expected");
    if (!line.block.empty() && !what.is("events") && !what.is("table"))
        throw ScriptError("the lines below this step are indented too far");
    for (const auto &[name, expectation] : expectations) {
        if (what.is(name)) {
            expectation(stage, words, line);
            return;
        }
    }
    expectMember(stage, what.text, words, line);
}

} // namespace tablio::scenario
