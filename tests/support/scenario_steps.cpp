/// The steps that do something. What a scenario expects stands in scenario_expect.cpp.

#include "support/scenario_members.h"
#include "support/scenario_picture.h"
#include "support/scenario_stage.h"

#include "widgets/utf16.h"

#include <functional>
#include <optional>
#include <utility>

namespace tablio::scenario {

namespace {

// ---- the control and its surroundings ----------------------------------------

using ColumnWord = void (*)(Tablio &, int, Words &);

const std::pair<std::string_view, ColumnWord> columnWords[] = {
    {"text", [](Tablio &c, int i, Words &) { c.setColEditType(i, TColumnType::ColumnString); }},
    {"decimal", [](Tablio &c, int i, Words &) { c.setColEditType(i, TColumnType::ColumnDecimal); }},
    {"integer", [](Tablio &c, int i, Words &) { c.setColEditType(i, TColumnType::ColumnInteger); }},
    {"date", [](Tablio &c, int i, Words &) { c.setColEditType(i, TColumnType::ColumnDate); }},
    {"combo", [](Tablio &c, int i, Words &) { c.setColEditType(i, TColumnType::ColumnCombo); }},
    {"lookup",
     [](Tablio &c, int i, Words &) { c.setColStyle(i, TColumnStyle::ColumnInputWithLookup); }},
    {"fixed", [](Tablio &c, int i, Words &) { c.setColStyle(i, TColumnStyle::ColumnFixed); }},
    {"numbered",
     [](Tablio &c, int i, Words &) { c.setColStyle(i, TColumnStyle::ColumnFixedWithAutoNumber); }},
    {"upper", [](Tablio &c, int i, Words &) { c.setColDataType(i, TDataType::UpperCase); }},
    {"lower", [](Tablio &c, int i, Words &) { c.setColDataType(i, TDataType::LowerCase); }},
    {"positive", [](Tablio &c, int i, Words &) { c.setColDataType(i, TDataType::Positive); }},
    {"negative", [](Tablio &c, int i, Words &) { c.setColDataType(i, TDataType::Negative); }},
    {"calc", [](Tablio &c, int i, Words &) { c.setColCalcStyle(i, TCalcStyle::CalcStyle); }},
    {"format", [](Tablio &c, int i, Words &words) { c.setColFormat(i, words.text()); }},
    {"width", [](Tablio &c, int i, Words &words) { c.setColWidth(i, words.number("a width")); }},
    {"max", [](Tablio &c, int i, Words &words) { c.setColMaxLength(i, words.number("a length")); }},
};

void setUpColumn(Tablio &core, int index, const Line &line) {
    Words words(tokensOf(line.text));
    core.setColTextHeader(index, words.text());
    while (!words.atEnd()) {
        const Token &word = words.next("a column's setting");
        bool found = false;
        for (const auto &[name, apply] : columnWords) {
            if (!word.is(name))
                continue;
            apply(core, index, words);
            found = true;
        }
        if (!found)
            throw ScriptError("line " + std::to_string(line.number) + ": a column has no setting " +
                              quoted(word.text));
    }
}

void columns(Stage &stage, Words &words, const Line &line) {
    words.end();
    Tablio &core = stage.core();
    core.setCols(static_cast<int>(line.block.size()));
    for (std::size_t index = 0; index < line.block.size(); ++index)
        setUpColumn(core, static_cast<int>(index), line.block[index]);
}

void show(Stage &stage, Words &words, const Line & /*line*/) {
    words.end();
    static_cast<void>(stage.core());
    stage.driver.show();
}

void destroy(Stage &stage, Words &words, const Line & /*line*/) {
    words.end();
    static_cast<void>(stage.core());
    stage.driver.destroy();
}

void resize(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("to");
    const int width = words.number("a width");
    const int height = words.number("a height");
    words.end();
    stage.driver.resize(width, height);
}

void focus(Stage &stage, Words &words, const Line & /*line*/) {
    if (words.take("enters"))
        stage.driver.enterFocus();
    else if (words.take("leaves"))
        stage.driver.leaveFocus();
    else
        throw ScriptError("the focus enters or leaves");
    words.end();
}

void locale(Stage &stage, Words &words, const Line & /*line*/) {
    NumberFormat &format = stage.face.locale;
    words.require("decimal");
    format.decimalSign = words.text();
    words.require("group");
    format.groupSign = words.text();
    words.end();
}

void today(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("is");
    stage.face.date = words.next<Date>("a date");
    words.end();
}

void clipboard(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("holds");
    stage.face.clipboard = words.text();
    words.end();
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
    const std::string text = words.text();
    words.end();
    for (const char32_t character : utf16::characters(text)) {
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
    words.end();
    for (; count > 0; --count) {
        static_cast<void>(stage.core());
        stage.driver.strike(stroke);
    }
}

void compose(Stage &stage, Words &words, const Line & /*line*/) {
    const std::string text = words.text();
    words.end();
    stage.driver.compose(text);
}

void enter(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("text");
    const std::string text = words.text();
    words.end();
    stage.driver.enterText(text);
}

void settle(Stage &stage, Words &words, const Line & /*line*/) {
    const auto editor = words.next<WidgetId>("an editor");
    words.require("on");
    const std::string text = words.text();
    words.require("caret");
    const int caret = words.number("a position");
    words.end();
    stage.driver.settle(editor, text, caret, 0);
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
    words.end();
    const GridView &view = stage.state().grid.view;
    const Rect rect = view.cellRect(cell.row, cell.col);
    const Point middle{rect.left + rect.width / 2, rect.top + rect.height / 2};
    if (view.hitTest(middle.x, middle.y) != cell || middle.x >= view.Width() ||
        middle.y >= view.Height())
        throw ScriptError("the cell is not in view");
    const Widget *frame = editorOf(stage.state()).frame;
    if (frame != nullptr && frame->place().contains(middle.x, middle.y))
        throw ScriptError("the editor lies over the cell");
    return middle;
}

void clickAt(Stage &stage, MouseButton button, Point point) {
    stage.driver.pressMouse(button, point.x, point.y);
    // Whoever destroys the control while the button is down never hears of its release.
    if (stage.driver.core() != nullptr)
        stage.driver.releaseMouse(button, point.x, point.y);
}

void click(Stage &stage, Words &words, const Line & /*line*/) {
    const Point point = pointOf(stage, words);
    words.end();
    clickAt(stage, MouseButton::Left, point);
}

void rightClick(Stage &stage, Words &words, const Line & /*line*/) {
    const Point point = pointOf(stage, words);
    words.end();
    clickAt(stage, MouseButton::Right, point);
}

void doubleClick(Stage &stage, Words &words, const Line & /*line*/) {
    const Point point = pointOf(stage, words);
    words.end();
    clickAt(stage, MouseButton::Left, point);
    if (stage.driver.core() != nullptr)
        stage.driver.doubleClick(point.x, point.y);
    if (stage.driver.core() != nullptr)
        stage.driver.releaseMouse(MouseButton::Left, point.x, point.y);
}

void drag(Stage &stage, Words &words, const Line & /*line*/) {
    words.require("border");
    words.require("of");
    words.require("column");
    const int col = words.number("a column");
    words.require("by");
    const Twips distance = words.number("a distance");
    words.end();
    const Rect header = stage.state().grid.view.cellRect(0, col);
    const Twips y = header.top + header.height / 2;
    stage.driver.pressMouse(MouseButton::Left, header.right(), y);
    stage.driver.moveMouse(header.right() + distance / 2, y);
    stage.driver.moveMouse(header.right() + distance, y);
    stage.driver.releaseMouse(MouseButton::Left, header.right() + distance, y);
}

void scroll(Stage &stage, Words &words, const Line & /*line*/) {
    const GridView &view = stage.state().grid.view;
    words.require("to");
    const bool isRow = words.take("row");
    if (!isRow)
        words.require("column");
    const int index = words.number("a row or column");
    words.end();
    stage.driver.scrollTo(isRow ? index : view.TopRow(), isRow ? view.LeftCol() : index);
}

void push(Stage &stage, Words &words, const Line & /*line*/) {
    const auto button = words.next<WidgetId>("a button");
    words.end();
    if (!widgetOf(stage.state(), button).Visible())
        throw ScriptError("the button is not to be seen");
    stage.driver.pushButton(button);
}

void choose(Stage &stage, Words &words, const Line & /*line*/) {
    if (words.take("item")) {
        const int index = words.number("the item's position");
        words.end();
        stage.driver.chooseItem(index);
        return;
    }
    const auto entry = words.next<MenuEntry>("a menu entry");
    words.end();
    stage.driver.chooseMenuEntry(entry);
}

void pick(Stage &stage, Words &words, const Line & /*line*/) {
    const auto day = words.next<Date>("a day");
    words.end();
    if (!stage.state().widgets.mvCalender.Visible())
        throw ScriptError("the calendar is not to be seen");
    stage.driver.pickDay(day);
}

// ---- the host ----------------------------------------------------------------

void call(Stage &stage, Words &words, const Line & /*line*/) {
    const std::string name = words.next("a method").text;
    run(memberNamed(name).call, name, stage.core(), words.rest());
}

void set(Stage &stage, Words &words, const Line & /*line*/) {
    const std::string name = words.next("a property").text;
    run(memberNamed(name).set, name, stage.core(), words.rest());
}

void addRule(Stage &stage, Words &words, const Line &line, bool once) {
    HostRule rule;
    rule.once = once;
    rule.event = words.next("an event").text;
    if (words.take("at"))
        rule.cell = words.cell();
    if (words.take("answer")) {
        std::string argument = words.next("an argument").text;
        rule.answer = {std::move(argument), words.next("a value")};
        words.end();
    } else if (words.take("throw")) {
        rule.error = words.text();
        words.end();
    } else {
        words.require("do");
        rule.steps = line.block;
        if (!words.atEnd()) {
            if (!rule.steps.empty())
                throw ScriptError("the steps stand behind \"do\" or below it");
            const std::size_t step = line.text.find(" do ");
            rule.steps = {{line.number, line.text.substr(step + 4), {}}};
        }
        if (rule.steps.empty())
            throw ScriptError("a step should follow");
    }
    stage.host.add(std::move(rule));
}

void when(Stage &stage, Words &words, const Line &line) { addRule(stage, words, line, false); }

void onceOnly(Stage &stage, Words &words, const Line &line) { addRule(stage, words, line, true); }

void forget(Stage &stage, Words &words, const Line & /*line*/) {
    if (words.take("answers")) {
        stage.host.forgetRules();
    } else if (words.take("events")) {
        static_cast<void>(stage.host.takeEvents());
    } else {
        words.require("notices");
        stage.face.notices.clear();
    }
    words.end();
}

// ---- dispatch ----------------------------------------------------------------

using Step = void (*)(Stage &, Words &, const Line &);

constexpr std::pair<std::string_view, Step> steps[] = {
    {"columns", columns},
    {"show", show},
    {"destroy", destroy},
    {"resize", resize},
    {"focus", focus},
    {"locale", locale},
    {"today", today},
    {"clipboard", clipboard},
    {"type", type},
    {"press", press},
    {"compose", compose},
    {"enter", enter},
    {"settle", settle},
    {"click", click},
    {"right-click", rightClick},
    {"double-click", doubleClick},
    {"drag", drag},
    {"scroll", scroll},
    {"push", push},
    {"choose", choose},
    {"pick", pick},
    {"call", call},
    {"set", set},
    {"when", when},
    {"once", onceOnly},
    {"forget", forget},
    {"expect", runExpectation},
};

/// Blocks belong to steps that say so; elsewhere an indented line is a mistake.
bool takesBlock(const Line &line, const Token &verb) {
    return verb.is("columns") || verb.is("expect") || line.text.ends_with(" do");
}

void runTokens(Stage &stage, Tokens tokens, const Line &line) {
    const Token verb = tokens.front();
    tokens.erase(tokens.begin());
    if (!line.block.empty() && !takesBlock(line, verb))
        throw ScriptError("the lines below this step are indented too far");
    for (const auto &[name, step] : steps) {
        if (verb.is(name)) {
            Words words(std::move(tokens));
            step(stage, words, line);
            return;
        }
    }
    throw ScriptError("there is no step " + quoted(verb.text));
}

/// The text behind "fails" at the end of a step; steps that prepare answers keep theirs.
std::optional<std::string> takeExpectedError(Tokens &tokens) {
    const std::size_t count = tokens.size();
    if (count < 3 || !tokens[count - 2].is("fails") || !tokens[count - 1].quoted ||
        tokens.front().is("when") || tokens.front().is("once"))
        return std::nullopt;
    std::string error = tokens.back().text;
    tokens.resize(count - 2);
    return error;
}

} // namespace

void runStep(Stage &stage, const Line &line) {
    Tokens tokens = tokensOf(line.text);
    const std::optional<std::string> error = takeExpectedError(tokens);
    if (!error) {
        runTokens(stage, std::move(tokens), line);
        return;
    }
    try {
        runTokens(stage, std::move(tokens), line);
    } catch (const ScriptError &) {
        throw;
    } catch (const std::exception &found) {
        if (std::string_view(found.what()).find(*error) == std::string_view::npos)
            stage.fail(line, "expected an error with " + quoted(*error) + ", found " +
                                 quoted(found.what()));
        return;
    }
    stage.fail(line, "expected an error with " + quoted(*error) + ", there was none");
}

} // namespace tablio::scenario
