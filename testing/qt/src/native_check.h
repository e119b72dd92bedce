#pragma once

/// Compares what the widget's native children show with what the control holds.

#include <tablio/qt/tablio_widget.h>

#include <string>

namespace tablio::scenario {

/// What is not the same; "" when all is.
[[nodiscard]] std::string nativeDifference(qt::TablioWidget &widget);

} // namespace tablio::scenario
