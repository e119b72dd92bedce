#pragma once

/// The types that the web face's package ships, with every member, event and enumeration of the
/// member table. tools/web_types prints them; a test holds the printed file against them.

#include <string>

namespace tablio {

/// A TypeScript declaration file, ending in a line end.
[[nodiscard]] std::string webTypes();

} // namespace tablio
