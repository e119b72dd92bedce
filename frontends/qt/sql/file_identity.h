#pragma once

/// Which file a path named when it was opened. A database that writes into a file that was renamed
/// or removed hears nothing of it; this says so. It opens nothing.

#include <QString>

#include <utility>

namespace tablio::qt {

class FileIdentity {
public:
    /// An empty path is no file, which is always there.
    explicit FileIdentity(QString path = {});

    [[nodiscard]] const QString &path() const { return path_; }
    /// Whether the path still names the same file. Where the platform does not say, whether it
    /// names one.
    [[nodiscard]] bool isThere() const;

private:
    using Number = std::pair<quint64, quint64>;
    [[nodiscard]] Number number() const;

    QString path_;
    Number number_;
};

} // namespace tablio::qt
