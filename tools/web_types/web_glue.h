#pragma once

/// The member table as the web face holds it at run time, and as its reference page.
/// tools/web_types prints both; a test holds the printed files against them.

#include <string>

namespace tablio {

/// A TypeScript module that the element is built with, ending in a line end.
[[nodiscard]] std::string webMemberTable();
/// Markdown, ending in a line end.
[[nodiscard]] std::string webMembersDocument();

} // namespace tablio
