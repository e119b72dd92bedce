#include "rows/duplicates.h"

#include "model/text/trim.h"
#include "model/text/utf16.h"

namespace tablio {

namespace {

bool isAscii(std::string_view text) noexcept {
    for (const char character : text) {
        if (static_cast<unsigned char>(character) >= 0x80)
            return false;
    }
    return true;
}

/// The text in lower case, in a buffer that is used again for each row.
void lowerInto(std::string &result, std::string_view text, const Face &face) {
    result.clear();
    if (!isAscii(text)) {
        for (const char32_t character : utf16::characters(text))
            utf16::append(result, face.toLower(character));
        return;
    }
    for (const char character : text) {
        const bool isUpper = character >= 'A' && character <= 'Z';
        result += isUpper ? static_cast<char>(character - 'A' + 'a') : character;
    }
}

} // namespace

int Duplicates::find(int row) const {
    const GridTable &table = state_.grid.table;
    const Face &face = state_.link.face();
    const int col = state_.settings.PrimaryColumn;
    std::string key;
    lowerInto(key, trimmed(table.TextMatrix(row, col)), face);
    const RedrawOff redrawOff(state_.grid);
    const int last = rows_.dataCount();
    std::string other;
    for (int candidate = 1; candidate <= last && table.hasCell(candidate, col); ++candidate) {
        if (candidate == row)
            continue;
        lowerInto(other, trimmed(table.TextMatrix(candidate, col)), face);
        if (other == key)
            return candidate;
    }
    return -1;
}

} // namespace tablio
