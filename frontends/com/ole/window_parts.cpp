#include "ole/embedding.h"

namespace tablio::com {

/// IObjectSafety is none of them: a page from the internet must not run this control.
Parts makeWindowParts(Control &control) {
    Parts parts;
    auto activation = std::make_unique<Activation>(control);
    Activation &window = *activation;
    parts.push_back(std::move(activation));
    parts.push_back(std::make_unique<Embedding>(control, window));
    return parts;
}

} // namespace tablio::com
