#include "model/text/number_picture.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tablio {

namespace {

enum class TokenKind { Digit, OptionalDigit, Point, Comma, Percent, Separator, Literal, End };

struct Token {
    TokenKind kind;
    std::string_view text;
};

/// Cuts a picture into its tokens; quotes and backslashes are resolved here and nowhere else.
class PictureReader {
public:
    explicit PictureReader(std::string_view picture) noexcept : picture_(picture) {}

    std::size_t position() const noexcept { return position_; }

    Token next() noexcept {
        if (position_ >= picture_.size())
            return {TokenKind::End, {}};
        const std::size_t start = position_++;
        switch (picture_[start]) {
        case '0':
            return token(TokenKind::Digit, start);
        case '#':
            return token(TokenKind::OptionalDigit, start);
        case '.':
            return token(TokenKind::Point, start);
        case ',':
            return token(TokenKind::Comma, start);
        case '%':
            return token(TokenKind::Percent, start);
        case ';':
            return token(TokenKind::Separator, start);
        case '"': {
            const std::size_t end = std::min(picture_.find('"', position_), picture_.size());
            const Token quoted{TokenKind::Literal, picture_.substr(position_, end - position_)};
            position_ = std::min(end + 1, picture_.size());
            return quoted;
        }
        case '\\': {
            const Token escaped{TokenKind::Literal, picture_.substr(position_, 1)};
            position_ = std::min(position_ + 1, picture_.size());
            return escaped;
        }
        default:
            return token(TokenKind::Literal, start);
        }
    }

private:
    Token token(TokenKind kind, std::size_t start) const noexcept {
        return {kind, picture_.substr(start, 1)};
    }

    std::string_view picture_;
    std::size_t position_ = 0;
};

/// The parts of a picture for positive, negative and zero values; the absent ones are empty.
std::array<std::string_view, 3> splitSections(std::string_view picture) noexcept {
    if (picture.find(';') == std::string_view::npos)
        return {picture};
    std::array<std::string_view, 3> sections;
    PictureReader reader(picture);
    std::size_t start = 0;
    for (std::string_view &section : sections) {
        std::size_t end = start;
        TokenKind kind = reader.next().kind;
        while (kind != TokenKind::End && kind != TokenKind::Separator) {
            end = reader.position();
            kind = reader.next().kind;
        }
        section = picture.substr(start, end - start);
        if (kind == TokenKind::End)
            break;
        start = reader.position();
    }
    return sections;
}

/// What one section asks for, found before anything is shown.
struct Layout {
    int integerPlaces = 0;
    int integerZeros = 0; ///< Integer places from the first `0` on: so many digits at least.
    int fractionPlaces = 0;
    int fractionZeros = 0; ///< Fraction places up to the last `0`.
    int scale = 0;         ///< Power of ten from `%` and scaling commas.
    bool groups = false;

    bool hasPlaces() const noexcept { return integerPlaces + fractionPlaces > 0; }
};

Layout readLayout(std::string_view section) noexcept {
    Layout layout;
    PictureReader reader(section);
    bool afterPoint = false;
    bool commaCounts = false;
    int commas = 0; // Since the last placeholder; whether they group or scale shows later.
    for (Token token = reader.next(); token.kind != TokenKind::End; token = reader.next()) {
        const bool isPlace =
            token.kind == TokenKind::Digit || token.kind == TokenKind::OptionalDigit;
        if (isPlace && afterPoint) {
            ++layout.fractionPlaces;
            if (token.kind == TokenKind::Digit)
                layout.fractionZeros = layout.fractionPlaces;
            commas = 0;
        } else if (isPlace) {
            ++layout.integerPlaces;
            if (token.kind == TokenKind::Digit || layout.integerZeros > 0)
                ++layout.integerZeros;
            layout.groups = layout.groups || commas > 0;
            commas = 0;
        } else if (token.kind == TokenKind::Point && !afterPoint) {
            afterPoint = true;
            layout.scale -= 3 * commas;
            commas = 0;
        } else if (token.kind == TokenKind::Comma && commaCounts) {
            ++commas;
        } else if (token.kind == TokenKind::Percent) {
            layout.scale += 2;
        }
        commaCounts = isPlace || (token.kind == TokenKind::Comma && commaCounts);
    }
    layout.scale -= 3 * commas;
    return layout;
}

/// Writes one section with a number that is already scaled and rounded for it.
class SectionWriter {
public:
    SectionWriter(const Decimal &number, const Layout &layout, const NumberFormat &format)
        : number_(number), layout_(layout), format_(format),
          pending_(std::max(number.leadingPower() + 1, layout.integerZeros)),
          fractionShown_(std::max(number.fractionDigits(), layout.fractionZeros)) {
        groups_ =
            layout.groups && format.groupSize > 0 && format.groupSign != decimalSignOf(format);
    }

    void append(std::string_view section, std::string &result) {
        PictureReader reader(section);
        bool afterPoint = false;
        bool commaCounts = false;
        int place = layout_.integerPlaces;
        int fractionPlace = 0;
        for (Token token = reader.next(); token.kind != TokenKind::End; token = reader.next()) {
            const bool isPlace =
                token.kind == TokenKind::Digit || token.kind == TokenKind::OptionalDigit;
            if (isPlace && afterPoint) {
                if (fractionPlace++ < fractionShown_)
                    result += number_.digitAt(-fractionPlace);
            } else if (isPlace) {
                appendInteger(--place, result);
            } else if (token.kind == TokenKind::Point && !afterPoint) {
                appendInteger(0, result); // Nothing is left unless no placeholder stood before.
                result += decimalSignOf(format_);
                afterPoint = true;
            } else if (token.kind != TokenKind::Comma || !commaCounts) {
                result += token.text;
            }
            commaCounts = isPlace || (token.kind == TokenKind::Comma && commaCounts);
        }
    }

private:
    /// Writes the digits not yet written down to the one at 10 to the power `power`.
    void appendInteger(int power, std::string &result) {
        for (; pending_ > power; --pending_) {
            const int current = pending_ - 1;
            result += number_.digitAt(current);
            if (groups_ && format_.groupsBefore(current))
                result += format_.groupSign;
        }
    }

    const Decimal &number_;
    const Layout &layout_;
    const NumberFormat &format_;
    int pending_; // Integer digits still to be written.
    int fractionShown_;
    bool groups_ = false;
};

void appendLiterals(std::string_view section, std::string &result) {
    PictureReader reader(section);
    for (Token token = reader.next(); token.kind != TokenKind::End; token = reader.next())
        result += token.text;
}

} // namespace

std::string formatNumber(const Decimal &value, std::string_view picture,
                         const NumberFormat &format) {
    if (picture.empty())
        return value.plainText(format);

    const std::array<std::string_view, 3> sections = splitSections(picture);
    const std::string_view zeroSection = sections[2].empty() ? sections[0] : sections[2];
    std::string_view section = sections[0];
    bool needsMinus = value.isNegative();
    if (value.isZero()) {
        section = zeroSection;
    } else if (value.isNegative() && !sections[1].empty()) {
        section = sections[1];
        needsMinus = false;
    }

    std::string result;
    Layout layout = readLayout(section);
    Decimal shown = value;
    if (layout.hasPlaces()) {
        shown = value.timesPowerOfTen(layout.scale).rounded(layout.fractionPlaces);
        // A value that has become zero by rounding is shown as zeros are.
        if (shown.isZero() && !value.isZero()) {
            layout = readLayout(section = zeroSection);
            needsMinus = false;
        }
    }
    if (!layout.hasPlaces()) {
        appendLiterals(section, result);
        return result;
    }
    if (needsMinus)
        result += '-';
    SectionWriter(shown, layout, format).append(section, result);
    return result;
}

int decimalsOfPicture(std::string_view picture) noexcept {
    const std::size_t point = picture.find('.');
    if (point == std::string_view::npos)
        return 0;
    // Characters, not bytes: the continuation bytes of UTF-8 do not count.
    return static_cast<int>(
        std::count_if(picture.begin() + static_cast<std::ptrdiff_t>(point) + 1, picture.end(),
                      [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

} // namespace tablio
