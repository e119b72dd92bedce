#pragma once

/// Where careful entry differs from classic entry: one rule a line, for editors, navigation and
/// rows to ask. Nobody asks which of the two sets is in force.

#include <tablio/types.h>

namespace tablio {

struct EntryRuleSet {
    /// A decimal sign that is typed first opens "0,".
    bool opensWithZero = false;
    /// The point of the main keyboard is the decimal sign where that is a comma and the point
    /// cannot group.
    bool takesPointForComma = false;
    /// A number that arrives whole has its grouping signs where the locale puts them, or none.
    bool mindsGroups = false;
    /// Digits of other scripts are digits.
    bool takesAllDigits = false;
    /// Grouping leaves the caret where it is, and deleting steps over a grouping sign.
    bool keepsCaret = false;
    /// An edit in which nothing was typed changes nothing.
    bool keepsUntouched = false;
    /// A text that is no date leaves the old date, and the host is told the text.
    bool keepsOldDate = false;
    /// Two digits of a year stand for 1950 to 2049.
    bool takesShortYears = false;
    /// A warning says what is wrong with a date.
    bool explainsDates = false;
    /// Cells without a size, and for Enter columns that take no input, are stepped over.
    bool skipsClosedCells = false;
    /// Tab may walk the cells.
    bool mayWalkByTab = false;
    /// Grouping signs do not count for a number's greatest length, and nothing but a decimal sign
    /// passes a full box, in a decimal column.
    bool countsDigitsAlone = false;
    /// Stripes follow the rows after every row operation.
    bool repaintsStripes = false;
    /// Clearing the table forgets the mark, is asked for first, and can be taken back.
    bool clearsWithCare = false;

    [[nodiscard]] static constexpr EntryRuleSet of(TEntryRules rules) noexcept {
        if (rules == TEntryRules::Careful)
            return {true, true, true, true, true, true, true,
                    true, true, true, true, true, true, true};
        return {};
    }
};

} // namespace tablio
