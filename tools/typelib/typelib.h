#pragma once

/// The type library of the registered control, written from the member table: its source in the
/// interface description language, and its identifiers and numbers for hosts in C++.

#include <string>

namespace tablio {

[[nodiscard]] std::string interfaceText();
[[nodiscard]] std::string identifierHeader();

} // namespace tablio
