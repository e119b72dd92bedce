#pragma once

/// What scenarios see of the control that is neither a member of it nor on its screen. The one
/// source of the player that looks behind the control's public headers; it changes nothing.

#include <tablio/members.h>
#include <tablio/tablio.h>

#include <optional>
#include <string_view>
#include <utility>

namespace tablio::scenario {

/// A value by its name: "TopRow", "LastKey"; nothing for another name.
[[nodiscard]] std::optional<std::pair<MemberType, Value>> insideValue(Tablio &core,
                                                                      std::string_view name);

} // namespace tablio::scenario
