/// The steps that do something. What a scenario expects stands in scenario_expect.cpp.

#include "inside.h"
#include "members.h"
#include "stage.h"

#include "model/text/utf16.h"

#include <optional>
#include <utility>

namespace tablio::scenario {

namespace {

// ---- the control -------------------------------------------------------------

struct ColumnWord {
    std::string_view word;
    std::string_view property;
    /// Without one the value stands behind the word.
    std::string_view value = {};
};

constexpr ColumnWord columnWords[] = {
    {"text", "ColEditType", "ColumnString"},
    {"decimal", "ColEditType", "ColumnDecimal"},
    {"integer", "ColEditType", "ColumnInteger"},
    {"date", "ColEditType", "ColumnDate"},
    {"combo", "ColEditType", "ColumnCombo"},
    {"lookup", "ColStyle", "ColumnInputWithLookup"},
    {"fixed", "ColStyle", "ColumnFixed"},
    {"numbered", "ColStyle", "ColumnFixedWithAutoNumber"},
    {"upper", "ColDataType", "UpperCase"},
    {"lower", "ColDataType", "LowerCase"},
    {"positive", "ColDataType", "Positive"},
    {"negative", "ColDataType", "Negative"},
    {"calc", "ColCalcStyle", "CalcStyle"},
    {"format", "ColFormat"},
    {"width", "ColWidth"},
    {"max", "ColMaxLength"},
};

void setUpColumn(Driver &driver, int index, const Line &line) {
    Words words(tokensOf(line.text));
    driver.setMember("ColTextHeader", {index}, words.text());
    while (!words.atEnd()) {
        const Token &word = words.next("a column's setting");
        const ColumnWord *const found = findBy(columnWords, &ColumnWord::word, word.text);
        if (found == nullptr)
            throw ScriptError("line " + std::to_string(line.number) + ": a column has no setting " +
                              quoted(word.text));
        const Token value =
            found->value.empty() ? words.next("a value") : Token{std::string(found->value)};
        setMember(driver, found->property, {{std::to_string(index)}, value});
    }
}

void columns(Stage &stage, Words & /*words*/, const Line &line) {
    const int count = static_cast<int>(line.block.size());
    stage.driver.setMember("Cols", {}, count);
    for (int index = 0; index < count; ++index)
        setUpColumn(stage.driver, index, line.block[static_cast<std::size_t>(index)]);
}

void resize(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("to");
    const int width = words.number("a width");
    stage.driver.resize(width, words.number("a height"));
}

void focus(Stage &stage, Words &words, const Line & /*line*/) {
    if (words.take("enters")) {
        stage.driver.enterFocus();
    } else {
        words.require("leaves");
        stage.driver.leaveFocus();
    }
}

void locale(Stage &stage, Words &words, const Line & /*line*/) {
    NumberFormat format;
    words.require("decimal");
    format.decimalSign = words.text();
    words.require("group");
    format.groupSign = words.text();
    stage.driver.setLocale(format);
}

// ---- the keyboard ------------------------------------------------------------

void typeCharacter(Stage &stage, char32_t character) {
    const KeyStroke stroke = keyStrokeFor(character);
    if (stroke.key != 0) {
        stage.driver.strike(stroke);
        return;
    }
    std::string text;
    utf16::append(text, character);
    stage.driver.enterText(text);
}

void type(Stage &stage, Words &words, const Line & /*line*/) {
    for (const char32_t character : utf16::characters(words.text())) {
        static_cast<void>(stage.core());
        typeCharacter(stage, character);
    }
}

void press(Stage &stage, Words &words, const Line & /*line*/) {
    const KeyStroke stroke = keyStrokeOf(words.next("a key").text);
    int count = 1;
    if (!words.atEnd()) {
        count = words.number("how often");
        words.require("times");
    }
    for (; count > 0; --count) {
        static_cast<void>(stage.core());
        stage.driver.strike(stroke);
    }
}

void settle(Stage &stage, Words &words, const Line & /*line*/) {
    const auto editor = words.next<WidgetId>("an editor");
    words.require("on");
    const std::string text = words.text();
    words.require("caret");
    stage.driver.settle(editor, text, words.number("a position"));
}

// ---- the mouse ---------------------------------------------------------------

struct Point {
    Twips x = 0;
    Twips y = 0;
};

/// "cell ROW COL", its middle, or "at X Y". A user can only point at what is to be seen.
Point pointOf(Stage &stage, Words &words) {
    if (words.take("at")) {
        const Twips x = words.number("a position");
        return {x, words.number("a position")};
    }
    words.require("cell");
    const CellAddress cell = words.cell();
    const Rect place = placeOf(stage.core(), cell);
    const Point middle{place.left + place.width / 2, place.top + place.height / 2};
    if (cellAt(stage.core(), middle.x, middle.y) != cell)
        throw ScriptError("the cell is not in view");
    const std::optional<OpenEditor> editor = editorOf(stage.core());
    if (editor && editor->place.contains(middle.x, middle.y))
        throw ScriptError("the editor lies over the cell");
    return middle;
}

void clickAt(Stage &stage, MouseButton button, Point point) {
    stage.driver.pressMouse(button, point.x, point.y);
    // Whoever destroys the control while the button is down never hears of its release.
    if (stage.driver.core() != nullptr)
        stage.driver.releaseMouse(button, point.x, point.y);
}

void doubleClick(Stage &stage, Words &words, const Line & /*line*/) {
    const Point point = pointOf(stage, words);
    clickAt(stage, MouseButton::Left, point);
    if (stage.driver.core() != nullptr)
        stage.driver.doubleClick(point.x, point.y);
    if (stage.driver.core() != nullptr)
        stage.driver.releaseMouse(MouseButton::Left, point.x, point.y);
}

void drag(Stage &stage, Words &words, const Line & /*line*/) {
    for (const char *const word : {"border", "of", "column"})
        words.require(word);
    const Rect header = placeOf(stage.core(), {0, words.number("a column")});
    words.require("by");
    const Twips distance = words.number("a distance");
    const Twips y = header.top + header.height / 2;
    stage.driver.pressMouse(MouseButton::Left, header.right(), y);
    stage.driver.moveMouse(header.right() + distance / 2, y);
    stage.driver.moveMouse(header.right() + distance, y);
    stage.driver.releaseMouse(MouseButton::Left, header.right() + distance, y);
}

void scroll(Stage &stage, Words &words, const Line & /*line*/) {
    const auto now = [&](std::string_view name) {
        return static_cast<int>(insideValue(stage.core(), name)->second.toLong());
    };
    words.require("to");
    const bool isRow = words.take("row");
    if (!isRow)
        words.require("column");
    const int index = words.number("a row or column");
    stage.driver.scrollTo(isRow ? index : now("TopRow"), isRow ? now("LeftCol") : index);
}

void push(Stage &stage, Words &words, const Line & /*line*/) {
    const auto button = words.next<WidgetId>("a button");
    if (!widgetOf(stage.core(), button).isVisible)
        throw ScriptError("the button is not to be seen");
    stage.driver.pushButton(button);
}

void choose(Stage &stage, Words &words, const Line & /*line*/) {
    if (words.take("item"))
        stage.driver.chooseItem(words.number("the item's position"));
    else
        stage.driver.chooseMenuEntry(words.next<MenuEntry>("a menu entry"));
}

void pick(Stage &stage, Words &words, const Line & /*line*/) {
    if (!widgetOf(stage.core(), WidgetId::mvCalender).isVisible)
        throw ScriptError("the calendar is not to be seen");
    stage.driver.pickDay(words.next<Date>("a day"));
}

// ---- the host ----------------------------------------------------------------

void addRule(Stage &stage, Words &words, const Line &line, bool once) {
    HostRule rule;
    rule.once = once;
    rule.event = words.next("an event").text;
    if (words.take("at"))
        rule.cell = words.cell();
    if (words.take("answer")) {
        std::string argument = words.next("an argument").text;
        rule.answer = {std::move(argument), words.next("a value")};
    } else if (words.take("throw")) {
        rule.error = words.text();
    } else {
        words.require("do");
        rule.steps = line.block;
        if (!words.atEnd()) {
            if (!rule.steps.empty())
                throw ScriptError("the steps stand behind \"do\" or below it");
            const std::size_t step = line.text.find(" do ");
            rule.steps = {{line.number, line.text.substr(step + 4), {}}};
            static_cast<void>(words.rest());
        }
        if (rule.steps.empty())
            throw ScriptError("a step should follow");
    }
    stage.host.add(std::move(rule));
}

void forget(Stage &stage, Words &words, const Line & /*line*/) {
    if (words.take("answers")) {
        stage.host.forgetRules();
    } else if (words.take("events")) {
        static_cast<void>(stage.host.takeEvents());
    } else {
        words.require("notices");
        stage.driver.face.notices.clear();
    }
}

// ---- dispatch ----------------------------------------------------------------

using Step = void (*)(Stage &, Words &, const Line &);

constexpr std::pair<std::string_view, Step> steps[] = {
    {"columns", columns},
    {"show", [](Stage &s, Words &, const Line &) { s.driver.show(); }},
    {"destroy", [](Stage &s, Words &, const Line &) { s.driver.destroy(); }},
    {"resize", resize},
    {"focus", focus},
    {"locale", locale},
    {"today",
     [](Stage &s, Words &words, const Line &) {
         words.require("is");
         s.driver.face.date = words.next<Date>("a date");
     }},
    {"clipboard",
     [](Stage &s, Words &words, const Line &) {
         words.require("holds");
         s.driver.setClipboard(words.text());
     }},
    {"type", type},
    {"press", press},
    {"compose", [](Stage &s, Words &words, const Line &) { s.driver.compose(words.text()); }},
    {"settle", settle},
    {"click", [](Stage &s, Words &words,
                 const Line &) { clickAt(s, MouseButton::Left, pointOf(s, words)); }},
    {"right-click", [](Stage &s, Words &words,
                       const Line &) { clickAt(s, MouseButton::Right, pointOf(s, words)); }},
    {"double-click", doubleClick},
    {"drag", drag},
    {"scroll", scroll},
    {"push", push},
    {"choose", choose},
    {"pick", pick},
    {"call",
     [](Stage &s, Words &words, const Line &) {
         const std::string name = words.next("a method").text;
         callMember(s.driver, name, words.rest());
     }},
    {"set",
     [](Stage &s, Words &words, const Line &) {
         const std::string name = words.next("a property").text;
         setMember(s.driver, name, words.rest());
     }},
    {"when", [](Stage &s, Words &words, const Line &line) { addRule(s, words, line, false); }},
    {"once", [](Stage &s, Words &words, const Line &line) { addRule(s, words, line, true); }},
    {"forget", forget},
    {"expect", runExpectation},
};

/// Blocks belong to steps that say so; elsewhere an indented line is a mistake.
bool takesBlock(const Line &line, const Token &verb) {
    return verb.is("columns") || verb.is("expect") || line.text.ends_with(" do") ||
           line.text.ends_with(" raises");
}

void runTokens(Stage &stage, Tokens tokens, const Line &line) {
    const Token verb = tokens.front();
    tokens.erase(tokens.begin());
    if (!line.block.empty() && !takesBlock(line, verb))
        throw ScriptError("the lines below this step are indented too far");
    const auto *const step = findBy(steps, &std::pair<std::string_view, Step>::first, verb.text);
    if (step == nullptr)
        throw ScriptError("there is no step " + quoted(verb.text));
    if (!verb.is("expect"))
        static_cast<void>(stage.core());
    Words words(std::move(tokens));
    step->second(stage, words, line);
    words.end();
}

/// Expectations may stand behind a step: `fails "…"`, what the editor `shows "…"`, where the cursor
/// `ends at ROW COL`, what the step `writes "…"` to the cell where the cursor stood, and that it
/// `raises` just the events below. Steps that prepare answers keep theirs.
bool takeBehind(Tokens &tokens, std::string_view word, std::size_t count, Tokens &behind) {
    const std::size_t size = tokens.size();
    if (size < count + 2 || !tokens[size - count - 1].is(word) || tokens.front().is("when") ||
        tokens.front().is("once") || (tokens.front().is("expect") && word != "fails"))
        return false;
    behind.assign(tokens.end() - static_cast<std::ptrdiff_t>(count), tokens.end());
    tokens.resize(size - count - 1);
    return true;
}

} // namespace

void runStep(Stage &stage, const Line &line) {
    Tokens tokens = tokensOf(line.text);
    Tokens behind;
    if (tokens.size() > 3 && tokens[0].is("at")) {
        static_cast<void>(stage.core());
        callMember(stage.driver, "CellFocus", {tokens[1], tokens[2]});
        tokens.erase(tokens.begin(), tokens.begin() + 3);
    }
    if (takeBehind(tokens, "fails", 1, behind)) {
        const std::string error = quoted(behind[0].text);
        try {
            runTokens(stage, std::move(tokens), line);
            stage.fail(line, "expected an error with " + error + ", there was none");
        } catch (const ScriptError &) {
            throw;
        } catch (const std::exception &found) {
            if (std::string_view(found.what()).find(behind[0].text) == std::string_view::npos)
                stage.fail(line,
                           "expected an error with " + error + ", found " + quoted(found.what()));
        }
        return;
    }
    if (takeBehind(tokens, "shows", 1, behind)) {
        behind.insert(behind.begin(), {{"editor"}, {"shows"}});
    } else if (takeBehind(tokens, "ends", 3, behind)) {
        behind.insert(behind.begin(), {"cursor"});
    } else if (takeBehind(tokens, "writes", 1, behind) || takeBehind(tokens, "writes", 3, behind)) {
        const CellAddress cell = cursorOf(stage.core());
        behind.insert(
            behind.begin(),
            {{"cell"}, {std::to_string(cell.row)}, {std::to_string(cell.col)}, {"shows"}});
    } else if (takeBehind(tokens, "raises", 0, behind)) {
        behind = {{"events"}};
        static_cast<void>(stage.host.takeEvents());
    }
    runTokens(stage, std::move(tokens), line);
    if (!behind.empty()) {
        Words words(std::move(behind));
        runExpectation(stage, words, line);
    }
}

} // namespace tablio::scenario
