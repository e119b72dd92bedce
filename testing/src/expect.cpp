/// The steps that begin with "expect".

#include "members.h"
#include "stage.h"

#include "model/text/utf16.h"

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

/// "cell ROW COL", as its rectangle.
Rect cellNamed(Stage &stage, Words &words) {
    words.require("cell");
    return stage.screen().cellRect(words.cell());
}

void expectCell(Stage &stage, Words &words, const Line &line) {
    const CellAddress cell = words.cell();
    do {
        if (words.take("shows")) {
            stage.check(line, "shown", inQuotes(words.text()),
                        inQuotes(stage.screen().facts(cell).text));
        } else {
            words.require("reads");
            const Value read = stage.driver.readMember("TextMatrix", {cell.row, cell.col});
            stage.check(line, "read", inQuotes(words.text()), inQuotes(read.toText()));
        }
    } while (!words.atEnd());
}

/// The text with | for the caret or [ ] around the selection.
std::string pictureOf(const ScreenEditor &editor) {
    std::string text(editor.text);
    const auto [first, last] = std::minmax(editor.anchor, editor.caret);
    const std::size_t from = utf16::byteOffset(text, first);
    const std::size_t to = utf16::byteOffset(text, last);
    if (from == to)
        return text.insert(from, "|");
    return text.insert(to, "]").insert(from, "[");
}

/// Of the editor that is open.
std::string_view tagOf(const Screen &screen) {
    for (const WidgetId id : {WidgetId::txtEdit, WidgetId::cboEdit, WidgetId::txtDateEdit}) {
        if (const ScreenWidget box = screen.widget(id); box.isVisible)
            return box.tag;
    }
    return {};
}

void expectEditor(Stage &stage, Words &words, const Line &line) {
    const std::optional<ScreenEditor> editor = stage.screen().editor();
    if (words.take("closed")) {
        if (editor)
            stage.fail(line, "the editor is open and shows " + inQuotes(pictureOf(*editor)));
        return;
    }
    if (!editor) {
        stage.fail(line, "no editor is open");
        static_cast<void>(words.rest());
        return;
    }
    do {
        if (words.take("shows")) {
            stage.check(line, "editor", inQuotes(words.text()), inQuotes(pictureOf(*editor)));
        } else if (words.take("over")) {
            stage.check(line, "place", textOf(cellNamed(stage, words)), textOf(editor->frame));
        } else if (words.take("tag")) {
            stage.check(line, "Tag", inQuotes(words.text()), inQuotes(tagOf(stage.screen())));
        } else if (words.take("max")) {
            stage.check(line, "MaxLength", std::to_string(words.number("a length")),
                        std::to_string(editor->maxLength));
        } else {
            words.require("align");
            stage.check(line, "alignment", words.next("left or right").text,
                        editor->alignsRight ? "right" : "left");
        }
    } while (!words.atEnd());
}

void compareLists(Stage &stage, const Line &line, std::span<const std::string> expected,
                  std::span<const std::string> found) {
    const auto [atExpected, atFound] =
        std::mismatch(expected.begin(), expected.end(), found.begin(), found.end());
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
        if (only.empty() || std::any_of(only.begin(), only.end(), isEvent))
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
    compareLists(stage, line, expected, std::exchange(stage.driver.face.notices, {}));
}

void expectWarning(Stage &stage, Words &words, const Line &line) {
    const std::vector<std::string> expected{words.text()};
    compareLists(stage, line, expected, std::exchange(stage.driver.face.warnings, {}));
}

void expectNo(Stage &stage, Words &words, const Line &line) {
    if (words.take("events")) {
        compareLists(stage, line, {}, takeEvents(stage, words));
    } else if (words.take("notices")) {
        compareLists(stage, line, {}, std::exchange(stage.driver.face.notices, {}));
    } else if (words.take("warning")) {
        compareLists(stage, line, {}, std::exchange(stage.driver.face.warnings, {}));
    } else {
        words.require("menu");
        if (std::exchange(stage.driver.face.popUp, std::nullopt))
            stage.fail(line, "the menu has popped up");
    }
}

void expectMenu(Stage &stage, Words &words, const Line &line) {
    if (words.take("at")) {
        const std::string expected = textOf(words.cell());
        const auto found = std::exchange(stage.driver.face.popUp, std::nullopt);
        stage.check(line, "menu", expected,
                    found ? textOf(CellAddress{found->first, found->second}) : "no menu");
        return;
    }
    const auto wanted = words.next<MenuEntry>("a menu entry");
    const ScreenMenuEntry entry = stage.screen().menu().at(static_cast<std::size_t>(wanted));
    do {
        const std::string expected = words.next("a state").text;
        const char *const enabled = entry.isEnabled ? "enabled" : "disabled";
        const char *const checked = entry.isChecked ? "checked" : "unchecked";
        stage.check(line, "menu", expected, expected.ends_with("checked") ? checked : enabled);
    } while (!words.atEnd());
}

using Picture = std::vector<std::vector<std::string>>;

/// The rows of cells as they are shown, header first, the cursor's cell in [ ].
Picture pictureOf(Stage &stage) {
    Picture rows(static_cast<std::size_t>(stage.core().Rows()));
    for (CellAddress cell; std::vector<std::string> & row : rows) {
        for (cell.col = 0; cell.col < stage.core().Cols(); ++cell.col) {
            const std::string text(stage.screen().facts(cell).text);
            row.push_back(cell == stage.screen().currentCell() ? "[" + text + "]" : text);
        }
        ++cell.row;
    }
    return rows;
}

/// Rows of cells as scenarios write them.
std::string drawn(const Picture &rows) {
    std::string result;
    for (const std::vector<std::string> &row : rows) {
        result += "\n      |";
        for (const std::string &cell : row)
            result += " " + cell + " |";
    }
    return result;
}

void expectTable(Stage &stage, Words & /*words*/, const Line &line) {
    Picture expected;
    for (const Line &row : line.block)
        expected.push_back(cellsOf(row.text));
    const Picture found = pictureOf(stage);
    if (expected != found)
        stage.fail(line, "expected:" + drawn(expected) + "\n    found:" + drawn(found));
}

void expectWidget(Stage &stage, Words &words, const Line &line) {
    const ScreenWidget widget = stage.screen().widget(words.next<WidgetId>("a widget"));
    const Rect &place = widget.place;
    do {
        if (words.take("at")) {
            std::string expected = words.next("left").text;
            for (const char *const part : {"top", "width", "height"})
                expected += " " + words.next(part).text;
            stage.check(line, "place", expected, textOf(place));
        } else if (words.take("below")) {
            stage.check(line, "top", std::to_string(cellNamed(stage, words).bottom()),
                        std::to_string(place.top));
        } else if (words.take("above")) {
            stage.check(line, "bottom", std::to_string(cellNamed(stage, words).top),
                        std::to_string(place.bottom()));
        } else if (words.take("inside")) {
            words.require("the");
            words.require("control");
            const Rect area = stage.screen().widget(WidgetId::Grid).place;
            const bool isInside = place.left >= 0 && place.top >= 0 &&
                                  place.right() <= area.right() && place.bottom() <= area.bottom();
            stage.check(line, "inside", "True", isInside ? "True" : "False");
        } else {
            stage.check(line, "widget", words.next("\"at\", \"visible\" or \"hidden\"").text,
                        widget.isVisible ? "visible" : "hidden");
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
    {"cursor", "at",
     [](Stage &stage) {
         const std::optional<CellAddress> cell = stage.screen().currentCell();
         return cell ? textOf(*cell) : std::string("nowhere");
     }},
    {"focus", "on",
     [](Stage &stage) {
         const std::optional<WidgetId> owner = stage.screen().focusOwner();
         return owner ? shown(*owner) : std::string("nobody");
     }},
    {"key", "preview",
     [](Stage &stage) {
         const std::optional<bool> preview = stage.driver.face.hostKeyPreview;
         return std::string(!preview ? "never set" : *preview ? "True" : "False");
     }},
    {"clipboard", "", [](Stage &stage) { return inQuotes(stage.driver.face.clipboardText()); }},
    {"control", "",
     [](Stage &stage) {
         return std::string(stage.driver.core() != nullptr ? "still there" : "destroyed");
     }},
};

bool expectFact(Stage &stage, const std::string &name, Words &words, const Line &line) {
    const Fact *const fact = findBy(facts, &Fact::name, name);
    if (fact == nullptr)
        return false;
    if (!fact->word.empty())
        words.require(fact->word);
    std::string expected;
    for (const Token &token : words.rest())
        expected +=
            (expected.empty() ? "" : " ") + (token.quoted ? inQuotes(token.text) : token.text);
    stage.check(line, name, expected, fact->found(stage));
    return true;
}

void expectMember(Stage &stage, const std::string &name, Words &words, const Line &line) {
    const Tokens arguments = words.upTo("is");
    const auto [expected, found] = readMember(stage.driver, name, arguments, words.next("a value"));
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
    using Entry = std::pair<std::string_view, Expectation>;
    if (const Entry *const entry = findBy(expectations, &Entry::first, what.text))
        entry->second(stage, words, line);
    else if (!expectFact(stage, what.text, words, line))
        expectMember(stage, what.text, words, line);
}

} // namespace tablio::scenario
