#include "sql/file_identity.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace tablio::qt {

FileIdentity::FileIdentity(QString path) : path_(std::move(path)), number_(number()) {}

bool FileIdentity::isThere() const {
    return path_.isEmpty() || (QFile::exists(path_) && number() == number_);
}

FileIdentity::Number FileIdentity::number() const {
#ifdef Q_OS_UNIX
    struct stat status {};
    if (!path_.isEmpty() && stat(QFile::encodeName(path_).constData(), &status) == 0)
        return {status.st_dev, status.st_ino};
#endif
    return {};
}

} // namespace tablio::qt
