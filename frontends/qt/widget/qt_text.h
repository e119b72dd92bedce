#pragma once

/// Text on its way between Qt and the core, which speaks UTF-8.

#include <QString>
#include <QStringEncoder>
#include <QStringView>
#include <QVarLengthArray>

#include <algorithm>
#include <string>
#include <string_view>

namespace tablio::qt {

inline std::string fromQString(const QString &text) { return text.toStdString(); }

inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A host's text as UTF-8 for the length of one call, without memory of its own where it is short:
/// tables are filled with hundreds of thousands of short texts.
class Utf8Text {
public:
    explicit Utf8Text(QStringView text) : buffer_(text.size()) {
        char16_t seen = 0;
        std::transform(text.begin(), text.end(), buffer_.begin(), [&seen](QChar character) {
            seen |= character.unicode();
            return static_cast<char>(character.unicode());
        });
        if (seen < 0x80)
            return;
        QStringEncoder encoder(QStringEncoder::Utf8);
        buffer_.resize(encoder.requiredSpace(text.size()));
        buffer_.resize(encoder.appendToBuffer(buffer_.data(), text) - buffer_.data());
    }
    [[nodiscard]] std::string_view view() const noexcept {
        return {buffer_.data(), static_cast<std::size_t>(buffer_.size())};
    }

private:
    QVarLengthArray<char, 120> buffer_;
};

} // namespace tablio::qt
