#include "model/grid/cell_style.h"

#include <algorithm>
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
    const auto fresh = free_.empty() ? static_cast<StyleId>(styles_.size()) : free_.back();
    const auto [entry, isNew] = ids_.try_emplace(style, fresh);
    if (!isNew)
        return entry->second;
    if (free_.empty()) {
        styles_.push_back(style);
    } else {
        styles_[fresh] = style;
        free_.pop_back();
    }
    return fresh;
}

void StyleTable::keep(const std::vector<bool> &used) {
    for (auto entry = ids_.begin(); entry != ids_.end();) {
        const StyleId id = entry->second;
        if (used[id]) {
            ++entry;
            continue;
        }
        styles_[id] = CellStyle();
        free_.push_back(id);
        entry = ids_.erase(entry);
    }
    // As many again may come before the next look at all cells.
    crowd_ = std::max(leastCrowd, 2 * ids_.size());
}

void StyleTable::clear() { *this = StyleTable(); }

} // namespace tablio
