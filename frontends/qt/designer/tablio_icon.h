#pragma once

/// The widget's picture in Designer's widget box, drawn in the sizes that Designer uses.

#include <QIcon>

namespace tablio::qt {

[[nodiscard]] QIcon tablioIcon();

} // namespace tablio::qt
