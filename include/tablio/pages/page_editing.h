#pragma once

/// The one thing that a property page does to its control besides setting properties: it says that
/// the control's design is being edited. The pages hold it; nobody else needs one.

#include <memory>

namespace tablio {

class Control;
class Tablio;

/// While it lives, the control keeps its fixed columns blank whenever it numbers its rows. Showing
/// the control ends that early. The control may go first.
class PageEditing {
public:
    explicit PageEditing(Tablio &control);
    ~PageEditing();
    PageEditing(const PageEditing &) = delete;
    PageEditing &operator=(const PageEditing &) = delete;

private:
    std::weak_ptr<Control> control_;
};

} // namespace tablio
