#include "object/part.h"

namespace tablio::com {

Parts makeWindowParts(Control & /*control*/) { return {}; }

} // namespace tablio::com
