#pragma once

/// The control's members and events as the widget has them: its properties, invokable methods and
/// signals, found by name as Qt's own tools find them.

#include <tablio/host_events.h>
#include <tablio/value.h>

#include <tablio/qt/tablio_widget.h>

#include <optional>
#include <string_view>
#include <vector>

namespace tablio::scenario {

/// Each answers nothing when the widget has no such member; what it throws passes through.
[[nodiscard]] std::optional<Value> callOfWidget(qt::TablioWidget &widget, std::string_view name,
                                                const std::vector<Value> &arguments);
[[nodiscard]] std::optional<Value> readOfWidget(qt::TablioWidget &widget, std::string_view name,
                                                const std::vector<Value> &index);
[[nodiscard]] bool setOfWidget(qt::TablioWidget &widget, std::string_view name,
                               const std::vector<Value> &index, const Value &value);

/// The host hears the widget's signals while the context lives.
void connectHost(qt::TablioWidget &widget, QObject &context, HostEvents &host);

} // namespace tablio::scenario
