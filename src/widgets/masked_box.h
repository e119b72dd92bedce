#pragma once

/// A text field that always shows the shape of a date, `__/__/____`: digits go into the ten places
/// and step over the slashes, and nothing that is typed or deleted breaks the shape. It does not
/// know whether the digits are a date.

#include "widgets/text_field.h"

namespace tablio {

/// Positions are 0 to 10, before each place and after the last. What it is given as a whole may be
/// a date in any usual order of digits and separators; any other text is the blank one.
class MaskedBox final : public TextField {
public:
    MaskedBox(WidgetId id, WidgetListener &listener);

    static constexpr std::string_view blankText = "__/__/____";

private:
    /// A digit takes the place at the caret; a separator fills a begun day or month with a leading
    /// zero and steps over the slash; other characters do nothing.
    void replace(int from, int to, std::string_view text) override;
    [[nodiscard]] bool fit(std::string &text) const override;
};

} // namespace tablio
