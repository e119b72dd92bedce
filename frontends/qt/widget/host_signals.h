#pragma once

/// The core's events as the widget's signals.

#include <tablio/host_events.h>

#include <memory>

namespace tablio::qt {

class TablioWidget;

[[nodiscard]] std::unique_ptr<HostEvents> makeHostSignals(TablioWidget &widget);

} // namespace tablio::qt
