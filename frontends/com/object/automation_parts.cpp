#include "object/part.h"

namespace tablio::com {

Parts makeAutomationParts(Control & /*control*/) { return {}; }

} // namespace tablio::com
