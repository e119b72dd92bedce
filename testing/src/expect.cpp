/// The steps that begin with "expect".

#include "members.h"
#include "picture.h"
#include "stage.h"

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

void expectMenu(Stage &stage, Words &words, const Line &line) {
    if (words.take("at")) {
        const std::string expected = textOf(words.cell());
        const auto found = std::exchange(stage.face.popUp, std::nullopt);
        stage.check(line, "menu", expected,
                    found ? textOf(CellAddress{found->first, found->second}) : "no menu");
        return;
    }
    const TableMenu &menu = stage.state().menu;
    const std::pair<MenuEntry, const TableMenu::Entry &> entries[] = {
        {MenuEntry::mnuMarkRow, menu.mnuMarkRow},
        {MenuEntry::mnuAddRow, menu.mnuAddRow},
        {MenuEntry::mnuInsertRow, menu.mnuInsertRow},
        {MenuEntry::mnuRemoveRow, menu.mnuRemoveRow},
        {MenuEntry::mnuTableClear, menu.mnuTableClear}};
    const auto wanted = words.next<MenuEntry>("a menu entry");
    const TableMenu::Entry &entry =
        std::ranges::find(entries, wanted, [](const auto &each) { return each.first; })->second;
    do {
        const std::string expected = words.next("a state").text;
        const char *const enabled = entry.enabled ? "enabled" : "disabled";
        const char *const checked = entry.checked ? "checked" : "unchecked";
        stage.check(line, "menu", expected, expected.ends_with("checked") ? checked : enabled);
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
            std::string expected = words.next("left").text;
            for (const char *const part : {"top", "width", "height"})
                expected += " " + words.next(part).text;
            stage.check(line, "place", expected, textOf(widget.place()));
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
            stage.check(line, "widget", words.next("\"at\", \"visible\" or \"hidden\"").text,
                        widget.Visible() ? "visible" : "hidden");
        }
    } while (!words.atEnd());
}

/// What is one text: the word before it, and what it is.
struct Fact {
    std::string_view name;
    std::string_view word;
    std::string (*found)(Stage &);
};

constexpr Fact facts[] = {
    {"cursor", "at", [](Stage &stage) { return textOf(stage.state().grid.current()); }},
    {"focus", "on",
     [](Stage &stage) {
         const std::optional<WidgetId> owner = stage.state().focus.owner();
         return owner ? shown(*owner) : std::string("nobody");
     }},
    {"key", "preview",
     [](Stage &stage) {
         const std::optional<bool> preview = stage.face.hostKeyPreview;
         return std::string(!preview ? "never set" : *preview ? "True" : "False");
     }},
    {"clipboard", "", [](Stage &stage) { return quoted(stage.face.clipboardText()); }},
    {"control", "",
     [](Stage &stage) {
         return std::string(stage.driver.core() != nullptr ? "still there" : "destroyed");
     }},
};

bool expectFact(Stage &stage, const std::string &name, Words &words, const Line &line) {
    const auto *const fact = std::ranges::find(facts, name, &Fact::name);
    if (fact == std::end(facts))
        return false;
    if (!fact->word.empty())
        words.require(fact->word);
    std::string expected;
    for (const Token &token : words.rest())
        expected +=
            (expected.empty() ? "" : " ") + (token.quoted ? quoted(token.text) : token.text);
    stage.check(line, name, expected, fact->found(stage));
    return true;
}

void expectMember(Stage &stage, const std::string &name, Words &words, const Line &line) {
    const Tokens arguments = words.upTo("is");
    const auto [expected, found] = readMember(stage.core(), name, arguments, words.next("a value"));
    stage.check(line, name, expected, found);
}

using Expectation = void (*)(Stage &, Words &, const Line &);

constexpr std::pair<std::string_view, Expectation> expectations[] = {
    {"cell", expectCell},       {"editor", expectEditor},   {"events", expectEvents},
    {"notices", expectNotices}, {"warning", expectWarning}, {"no", expectNo},
    {"menu", expectMenu},       {"table", expectTable},     {"widget", expectWidget},
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
    if (!expectFact(stage, what.text, words, line))
        expectMember(stage, what.text, words, line);
}

} // namespace tablio::scenario
