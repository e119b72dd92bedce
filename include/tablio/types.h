#pragma once

/// The plain value types of the control: enumerations of the column settings, sizes, colours and
/// keys. Hosts, front ends and every layer of the core share them; they know nobody.

#include <cstdint>
#include <string>

namespace tablio {

/// How a column takes part in data entry.
enum class TColumnStyle : std::int32_t {
    ColumnInput = 0,
    ColumnInputWithLookup = 1,
    ColumnFixed = 2,
    ColumnFixedWithAutoNumber = 3,
};

/// Which editor a column opens and how its values are read and shown.
enum class TColumnType : std::int32_t {
    ColumnString = 0,
    ColumnDecimal = 1,
    ColumnInteger = 2,
    ColumnDate = 3,
    ColumnCombo = 4,
};

/// Case rule of a text column or sign rule of a numeric one: each value has two names.
enum class TDataType : std::int32_t {
    AllCase = 0,
    UpperCase = 1,
    LowerCase = 2,
    AllValue = 0,
    Positive = 1,
    Negative = 2,
};

/// Whether a decimal column refuses more decimals than its format shows.
enum class TCalcStyle : std::int32_t { NoStyle = 0, CalcStyle = 1 };

/// Which set of rules typing and moving follow: those that the control has always had, or the
/// safer ones (see docs/careful-entry.md).
enum class TEntryRules : std::int32_t { Classic = 0, Careful = 1 };

/// Alignments that columns offer; a grid column holds any number from 0 (left, top) to 9 (general).
enum class TColumnAlignment : std::int32_t { ColumnLeft = 1, ColumnCentre = 4, ColumnRight = 7 };

/// A length or position in twentieths of a point: 1,440 to the inch, 15 to a pixel of 1/96 inch.
using Twips = std::int32_t;

struct CellAddress {
    int row = 0;
    int col = 0;

    friend bool operator==(const CellAddress &, const CellAddress &) = default;
};

/// A rectangle in twips; left and top belong to it, right and bottom do not.
struct Rect {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;

    [[nodiscard]] constexpr Twips right() const noexcept { return left + width; }
    [[nodiscard]] constexpr Twips bottom() const noexcept { return top + height; }
    [[nodiscard]] constexpr bool isEmpty() const noexcept { return width <= 0 || height <= 0; }
    [[nodiscard]] constexpr bool contains(Twips x, Twips y) const noexcept {
        return x >= left && x < right() && y >= top && y < bottom();
    }

    friend bool operator==(const Rect &, const Rect &) = default;
};

/// A colour as 0x00BBGGRR, or a system colour: top bit set, its index in the low byte.
struct Colour {
    std::uint32_t value = 0;

    [[nodiscard]] constexpr bool isSystem() const noexcept { return (value & 0x80000000U) != 0; }
    [[nodiscard]] constexpr int systemIndex() const noexcept {
        return static_cast<int>(value & 0xFFU);
    }
    [[nodiscard]] constexpr int red() const noexcept { return static_cast<int>(value & 0xFFU); }
    [[nodiscard]] constexpr int green() const noexcept {
        return static_cast<int>((value >> 8U) & 0xFFU);
    }
    [[nodiscard]] constexpr int blue() const noexcept {
        return static_cast<int>((value >> 16U) & 0xFFU);
    }

    friend bool operator==(const Colour &, const Colour &) = default;
};

/// The system colours that the control uses; a face maps them (and any other index it knows) to
/// the platform's palette.
namespace SystemColour {
inline constexpr Colour Window{0x80000005U};
inline constexpr Colour WindowText{0x80000008U};
inline constexpr Colour Highlight{0x8000000DU};
inline constexpr Colour HighlightText{0x8000000EU};
inline constexpr Colour ButtonFace{0x8000000FU};
inline constexpr Colour ButtonShadow{0x80000010U};
inline constexpr Colour ButtonText{0x80000012U};
} // namespace SystemColour

struct Font {
    /// Empty: the face's own default family.
    std::string name;
    /// Points; 0: the face's own default size.
    float size = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;
    /// From 1 (hairline) to 1000; 0: 400, or 700 when bold.
    std::int16_t weight = 0;

    friend bool operator==(const Font &, const Font &) = default;
};

/// Virtual-key codes as the host hears them; letters and digits are their upper-case ASCII codes.
using KeyCode = std::int16_t;

namespace Key {
inline constexpr KeyCode Back = 8;
inline constexpr KeyCode Tab = 9;
inline constexpr KeyCode Enter = 13;
inline constexpr KeyCode Escape = 27;
inline constexpr KeyCode Space = 32;
inline constexpr KeyCode PageUp = 33;
inline constexpr KeyCode PageDown = 34;
inline constexpr KeyCode End = 35;
inline constexpr KeyCode Home = 36;
inline constexpr KeyCode Left = 37;
inline constexpr KeyCode Up = 38;
inline constexpr KeyCode Right = 39;
inline constexpr KeyCode Down = 40;
inline constexpr KeyCode Insert = 45;
inline constexpr KeyCode Delete = 46;
inline constexpr KeyCode A = 65;
inline constexpr KeyCode C = 67;
inline constexpr KeyCode V = 86;
inline constexpr KeyCode X = 88;
inline constexpr KeyCode Z = 90;
inline constexpr KeyCode Menu = 93;
inline constexpr KeyCode Decimal = 110;
inline constexpr KeyCode F2 = 113;
inline constexpr KeyCode F4 = 115;
inline constexpr KeyCode F10 = 121;
} // namespace Key

/// Modifier keys, a sum of the values below.
using ShiftState = std::int16_t;

namespace Shift {
inline constexpr ShiftState None = 0;
inline constexpr ShiftState Shift = 1;
inline constexpr ShiftState Ctrl = 2;
inline constexpr ShiftState Alt = 4;
} // namespace Shift

/// Tells a property, a method or an event from all others, for ever: compiled hosts hold it.
using MemberNumber = std::int32_t;

/// Tells one edit from every other edit of a control's life; 0 is no edit. A face gives back with
/// each report of a native editor the number of the edit that the editor showed, so that a report
/// which comes late is not taken for news of the next cell.
using EditNumber = std::uint64_t;

enum class MouseButton : std::int16_t { Left = 1, Right = 2, Middle = 4 };

} // namespace tablio
