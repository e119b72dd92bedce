#pragma once

/// The property pages of a control without any widget, played by the names of their controls and of
/// the members of the control that they edit. What belongs to one page alone, a test reaches
/// through `pages`.

#include <tablio/members.h>
#include <tablio/pages/property_pages.h>
#include <tablio/tablio.h>
#include <tablio/text_bag.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace tablio {

class PropertyPagesTest : public testing::Test, public Face, public PageListener {
protected:
    PropertyPagesTest() {
        table.setFace(this);
        table.InitProperties();
        play("Cols=5; Rows=10; WordWrap=False; GridPopUpMenu=True");
    }
    ~PropertyPagesTest() override { table.setFace(nullptr); }
    void propertyChanged(MemberNumber number) override {
        notices.append(number == Number::All ? "all" : findMember(number).name).append(" ");
    }
    void focusMoved(const PageControl &control) override { focus = control.name(); }

    void reopen() { pages = std::make_unique<PropertyPages>(table, *this); }

    /// Plays steps with "; " between them. "txtRows=7" types, chooses or spins; "chkWordWrap"
    /// clicks or presses; "Rows=7" and "ColWidth1=7" write a member of the control. "leave txtRows"
    /// takes the keyboard away, "load", "show" and "apply" with "general" or "columns" are the
    /// page's own, "apply" and "cancel" alone and "press" with a button are the dialog's; "reopen"
    /// makes new pages, "fill" columns, and "forget" what was told. "txtRows txtCols==7 3" expects
    /// what each of the names holds.
    void play(const std::string &steps) {
        std::size_t from = 0;
        while (from < steps.size()) {
            const std::size_t end = std::min(steps.find("; ", from), steps.size());
            step(steps.substr(from, end - from));
            from = end + 2;
        }
    }
    /// Plays the steps once a row, with the row's texts in the places of %1, %2 and so on.
    void playEach(const std::string &steps, const std::vector<std::vector<std::string>> &rows) {
        for (const std::vector<std::string> &row : rows) {
            std::string filled;
            for (std::size_t at = 0; at < steps.size(); ++at)
                filled += steps[at] == '%' ? row.at(static_cast<std::size_t>(steps[++at] - '1'))
                                           : std::string(1, steps[at]);
            SCOPED_TRACE(filled);
            play(filled);
        }
    }
    void step(const std::string &step) {
        SCOPED_TRACE(step);
        const std::size_t sign = step.find('=');
        const std::string name = step.substr(0, sign);
        if (sign == std::string::npos)
            act(name);
        else if (step.compare(sign, 2, "==") == 0)
            EXPECT_EQ(held(name), step.substr(sign + 2));
        else
            write(name, step.substr(sign + 1));
    }

    /// What controls and members hold; a list its item's number, with a * its items, a button
    /// nothing. "(off)" is behind what is disabled. "changed" is which pages are marked so, "told"
    /// what was written, "focus" where the page put the keyboard, "column1" all of a column.
    std::string held(const std::string &names) {
        const std::size_t blank = names.find(' ');
        if (blank != std::string::npos)
            return held(names.substr(0, blank)) + " " + held(names.substr(blank + 1));
        if (names == "changed")
            return std::string(pages->general.Changed() ? "general" : "") +
                   (pages->columns.Changed() ? "columns" : "");
        if (names == "row")
            return row();
        if (names == "told" || names == "focus")
            return names == "told" ? notices : focus;
        if (names.starts_with("column"))
            return column(names.back());
        PageControl *control = find(names.substr(0, names.find('*')));
        if (control == nullptr)
            return Dispatch(table).get(memberOf(names), indexOf(names)).toText();
        std::string text;
        if (names.back() == '*')
            for (const std::string &item : static_cast<PageList *>(control)->items())
                text += (text.empty() ? "" : ",") + item;
        else if (control->kind() == PageControlKind::TextBox)
            text = static_cast<PageTextBox *>(control)->Text();
        else if (control->kind() == PageControlKind::CheckBox)
            text = std::to_string(static_cast<PageCheckBox *>(control)->Value());
        else if (control->kind() == PageControlKind::List)
            text = std::to_string(static_cast<PageList *>(control)->ListIndex());
        else if (control->kind() == PageControlKind::Spinner)
            text = std::to_string(static_cast<PageSpinner *>(control)->Value());
        return text + (control->Enabled() ? "" : "(off)");
    }

    /// The caption of each column, and what its first cell holds: value, tag, and "!" for a colour.
    std::string row() {
        std::string all;
        for (int col = 0; col < table.Cols(); ++col) {
            const auto tag = std::get<std::string>(table.CellTag()->Text(1, col));
            all += table.ColTextHeader(col) + ":" + table.TextMatrix(1, col) +
                   (tag.empty() ? "" : "#" + tag) +
                   (table.CellBackColor(1, col) == Colour{255} ? "!" : "") + " ";
        }
        return all;
    }
    /// All settings of a column.
    std::string column(char col) {
        std::string names;
        for (const char *name :
             {"ColTextHeader", "ColStyle", "ColEditType", "ColDataType", "ColCalcStyle",
              "ColFormat", "ColMaxLength", "ColWidth", "ColDataAlignment", "ColHeaderAlignment"})
            names += (names.empty() ? "" : " ") + (std::string(name) + col);
        return held(names);
    }
    /// Four decimal columns that differ in every setting that can differ.
    void fillColumns() {
        table.setCols(4);
        for (int col = 0; col < 4; ++col) {
            table.SetColProperty(col, std::string(1, static_cast<char>('A' + col)), 1000 + col,
                                 static_cast<TColumnStyle>(col % 3), TColumnType::ColumnDecimal,
                                 static_cast<TColumnAlignment>(7 - col % 3 * 3),
                                 static_cast<TColumnAlignment>(1 + col % 3 * 3), 10 + col,
                                 "0." + std::string(static_cast<std::size_t>(col) + 1, '0'));
            table.setColDataType(col, static_cast<TDataType>(2 - col % 3));
            table.setColCalcStyle(col, static_cast<TCalcStyle>(col % 2));
        }
    }

    Tablio table;
    std::string notices;
    std::string focus;
    std::unique_ptr<PropertyPages> pages = std::make_unique<PropertyPages>(table, *this);

private:
    static std::string memberOf(const std::string &name) {
        return name.substr(0, name.find_first_of("0123456789"));
    }
    static Values indexOf(const std::string &name) {
        Values index;
        for (const char digit : name.substr(memberOf(name).size()))
            index.push_back(digit - '0');
        return index;
    }
    PageControl *find(const std::string &name) {
        for (PropertyPage *page : {static_cast<PropertyPage *>(&pages->general),
                                   static_cast<PropertyPage *>(&pages->columns),
                                   static_cast<PropertyPage *>(&pages->entry)}) {
            const auto found =
                std::ranges::find(page->controls(), name, [](auto *c) { return c->name(); });
            if (found != page->controls().end())
                return *found;
        }
        return nullptr;
    }
    void act(const std::string &words) {
        const std::size_t blank = std::min(words.find(' '), words.size() - 1);
        const std::string object = words.substr(blank + 1);
        PropertyPage *page = &pages->columns;
        if (object == "general")
            page = &pages->general;
        else if (object == "entry")
            page = &pages->entry;
        PageControl *control = find(words);
        if (words == "apply")
            pages->apply();
        else if (words == "cancel")
            pages->takeBack();
        else if (words == "reopen")
            reopen();
        else if (words == "fill")
            fillColumns();
        else if (words == "forget")
            notices.clear();
        else if (words.starts_with("load "))
            page->SelectionChanged();
        else if (words.starts_with("show "))
            pages->show(*page);
        else if (words.starts_with("apply "))
            page->ApplyChanges();
        else if (words.starts_with("press "))
            pages->pressed(static_cast<PageButton &>(*find(object)));
        else if (words.starts_with("leave "))
            page->lostFocus(static_cast<PageTextBox &>(*find(object)));
        else if (control != nullptr && control->kind() == PageControlKind::CheckBox)
            page->clicked(static_cast<PageCheckBox &>(*control));
        else if (control != nullptr && control->kind() == PageControlKind::Button)
            page->pressed(static_cast<PageButton &>(*control));
        else
            ADD_FAILURE() << "no such step";
    }
    void write(const std::string &name, const std::string &value) {
        PageControl *control = find(name);
        if (control == nullptr)
            Dispatch(table).put(memberOf(name), value, indexOf(name));
        else if (control->kind() == PageControlKind::TextBox)
            pages->general.typed(static_cast<PageTextBox &>(*control), value);
        else if (control->kind() == PageControlKind::List)
            pages->columns.chosen(static_cast<PageList &>(*control), std::stoi(value));
        else
            pages->general.spun(static_cast<PageSpinner &>(*control), std::stoi(value));
    }
};

} // namespace tablio
