#pragma once

/// The one thing that a property page does to controls besides setting their properties.

namespace tablio {

/// Tells all controls that a page is being edited, so that their fixed columns are kept blank. It
/// ends when a control is shown.
void beginPageEditing() noexcept;

} // namespace tablio
