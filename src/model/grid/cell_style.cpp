#include "model/grid/cell_style.h"

#include <functional>

namespace tablio {

namespace {

template <typename T> std::size_t hashOf(const std::optional<T> &value) noexcept {
    return value ? std::hash<T>()(*value) + 1 : 0;
}

std::size_t hashOf(const std::optional<Colour> &colour) noexcept {
    return colour ? std::size_t{colour->value} + 1 : 0;
}

} // namespace

std::size_t StyleTable::Hash::operator()(const CellStyle &style) const noexcept {
    std::size_t hash = 0;
    for (const std::size_t part :
         {hashOf(style.backColor), hashOf(style.foreColor), hashOf(style.fontName),
          hashOf(style.fontSize), hashOf(style.fontBold), hashOf(style.fontItalic),
          hashOf(style.alignment)})
        hash = hash * 1000003U + part;
    return hash;
}

void CellStyle::dress(Font &font) const {
    if (fontName)
        font.name = *fontName;
    font.size = fontSize.value_or(font.size);
    // The grid's own weight is that of its own boldness.
    if (fontBold && *fontBold != font.bold)
        font.weight = 0;
    font.bold = fontBold.value_or(font.bold);
    font.italic = fontItalic.value_or(font.italic);
}

StyleId StyleTable::intern(const CellStyle &style) {
    if (style == CellStyle{})
        return plainStyle;
    const auto [entry, isNew] = ids_.try_emplace(style, static_cast<StyleId>(styles_.size()));
    if (isNew)
        styles_.push_back(style);
    return entry->second;
}

void StyleTable::clear() {
    styles_.resize(1);
    ids_.clear();
}

} // namespace tablio
