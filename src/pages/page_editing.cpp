#include <tablio/pages/page_editing.h>

#include "control/inside.h"

namespace tablio {

PageEditing::PageEditing(Tablio &control) : control_(Inside::shared(control)) {
    Inside::of(control).rows.setPageEditing(true);
}

PageEditing::~PageEditing() {
    if (const std::shared_ptr<Control> control = control_.lock())
        control->rows.setPageEditing(false);
}

} // namespace tablio
