#pragma once

/// The member table as a reference document. tools/members prints it as docs/members.md.

#include <string>

namespace tablio {

/// Markdown, ending in a line end.
[[nodiscard]] std::string membersDocument();

} // namespace tablio
