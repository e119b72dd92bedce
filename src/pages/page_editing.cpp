#include "pages/page_editing.h"

#include "state/control_state.h"

namespace tablio {

void beginPageEditing() noexcept { ControlState::PageEditing = true; }

} // namespace tablio
