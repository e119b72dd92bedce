#pragma once

/// Text on its way between Qt and the core, which speaks UTF-8.

#include <QString>

#include <string>
#include <string_view>

namespace tablio::qt {

inline std::string fromQString(const QString &text) { return text.toStdString(); }

inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace tablio::qt
