#pragma once

/// How single cells differ from the grid's own look. Looks are interned: a cell holds a small
/// number, and a table of stripes holds two looks however many cells it has.

#include <tablio/types.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tablio {

/// What is not set follows the grid (colours, font) or the column (alignment).
struct CellStyle {
    std::optional<Colour> backColor;
    std::optional<Colour> foreColor;
    std::optional<std::string> fontName;
    std::optional<float> fontSize;
    std::optional<bool> fontBold;
    std::optional<bool> fontItalic;
    std::optional<std::int16_t> alignment;

    /// Changes in the grid's font what the cell has of its own.
    void dress(Font &font) const;

    friend bool operator==(const CellStyle &, const CellStyle &) = default;
};

using StyleId = std::uint32_t;

/// The look of a cell that was never styled.
inline constexpr StyleId plainStyle = 0;

class StyleTable {
public:
    StyleTable() : styles_(1) {}

    [[nodiscard]] const CellStyle &operator[](StyleId id) const { return styles_[id]; }
    StyleId intern(const CellStyle &style);
    void clear();
    /// So many looks have been made since that it is worth finding out which are in use.
    [[nodiscard]] bool isCrowded() const noexcept { return ids_.size() >= crowd_; }
    [[nodiscard]] std::size_t size() const noexcept { return styles_.size(); }
    /// Gives back the looks without a mark.
    void keep(const std::vector<bool> &used);

private:
    struct Hash {
        std::size_t operator()(const CellStyle &style) const noexcept;
    };

    static constexpr std::size_t leastCrowd = 256;

    std::vector<CellStyle> styles_;
    std::vector<StyleId> free_;
    std::size_t crowd_ = leastCrowd;
    std::unordered_map<CellStyle, StyleId, Hash> ids_;
};

} // namespace tablio
