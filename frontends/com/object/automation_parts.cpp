#include "automation/calling.h"
#include "events/events.h"
#include "object/part.h"
#include "pages/property_page_object.h"
#include "storing/storing.h"

namespace tablio::com {

Parts makeAutomationParts(Control &control) {
    Parts parts;
    parts.push_back(std::make_unique<Calling>(control));
    parts.push_back(std::make_unique<Events>(control));
    parts.push_back(std::make_unique<Storing>(control));
    parts.push_back(std::make_unique<PagesList>(control));
    return parts;
}

} // namespace tablio::com
