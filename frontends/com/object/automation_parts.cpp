#include "automation/calling.h"
#include "object/part.h"

namespace tablio::com {

Parts makeAutomationParts(Control &control) {
    Parts parts;
    parts.push_back(std::make_unique<Calling>(control));
    return parts;
}

} // namespace tablio::com
