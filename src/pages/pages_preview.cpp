/// The preview of the property pages: another control that looks as the edited one would, with a
/// few rows of samples.

#include <tablio/pages/property_pages.h>
#include <tablio/text_bag.h>

#include "control/call.h"
#include "control/inside.h"
#include "model/text/utf16.h"

#include <algorithm>

namespace tablio {

namespace {

/// A sample of text in the case and the length that the column has.
std::string sampleText(const Tablio &sample, int col, std::string_view words, const Face &face) {
    const TDataType type = sample.ColDataType(col);
    std::string text;
    for (const char32_t character : utf16::characters(words))
        utf16::append(text, type == TDataType::UpperCase   ? face.toUpper(character)
                            : type == TDataType::LowerCase ? face.toLower(character)
                                                           : character);
    const int most = sample.ColMaxLength(col);
    return most > 0 ? text.substr(0, utf16::byteOffset(text, most)) : text;
}

std::string sampleValue(const Tablio &sample, int col, const SampleWords &words, const Face &face) {
    const std::string sign = sample.ColDataType(col) == TDataType::Negative ? "-" : "";
    switch (sample.ColEditType(col)) {
    case TColumnType::ColumnDecimal:
        return sign + "1234" + face.numberFormat().decimalSign + "56";
    case TColumnType::ColumnInteger:
        return sign + "1234";
    case TColumnType::ColumnDate:
        return "31/12/2030";
    case TColumnType::ColumnCombo:
        return words.choice;
    default:
        return sampleText(sample, col, words.text, face);
    }
}

} // namespace

void PropertyPages::preview(Tablio &sample, const SampleWords &words) const {
    const Call control(Inside::shared(sample));
    TextBag bag;
    control_.saveSettings(bag);
    const int first = std::max(control_.FixedRows(), 1);
    bag.writeProperty("Rows", first + sampleRows, 2);
    sample.loadSettings(bag);
    // Settings know nothing of columns that went, but these come back with a greater count.
    control->state.columns.copy(Inside::of(control_).state.columns);

    PageListener nobody;
    PropertyPages shown(sample, nobody);
    shown.general.copyFrom(general);
    shown.columns.copyFrom(columns);
    shown.entry.copyFrom(entry);
    shown.generalIsLoaded_ = generalIsLoaded_;
    shown.columnsIsLoaded_ = columnsIsLoaded_;
    if (shown.general.Changed())
        shown.general.txtRows.setText(std::to_string(first + sampleRows));
    shown.write();

    const Face &face = control->state.link.face();
    for (int col = 0; col < sample.Cols(); ++col) {
        const bool isTicks = sample.CheckBoxes() != 0 && col == sample.Cols() - 1;
        for (int row = first; row < std::min(first + sampleRows - 1, sample.Rows()); ++row) {
            if (isTicks)
                sample.Check(row, row == first);
            else if (sample.ColStyle(col) != TColumnStyle::ColumnFixedWithAutoNumber)
                sample.setTextMatrix(row, col, sampleValue(sample, col, words, face));
        }
    }
    // Ticking has moved the cursor.
    const CellAddress cursor{sample.FixedRows(), sample.PrimaryColumn()};
    if (control->state.grid.table.hasCell(cursor.row, cursor.col))
        control->state.grid.setCurrentQuietly(cursor);
}

std::optional<Rect> PropertyPages::showEditedColumn(Tablio &sample) const {
    const Call control(Inside::shared(sample));
    const int col = columns.index();
    if (col < 0 || col >= sample.Cols())
        return std::nullopt;
    GridView &view = control->state.grid.view;
    if (col >= sample.FixedCols())
        view.ensureVisible(sample.FixedRows(), col);
    return view.cellRect(0, col);
}

} // namespace tablio
