#pragma once

/// The store in which a container keeps a control's settings, as the control sees it: a flat set of
/// named, typed values. A container derives from `PropertyBag`; `TextBag` is a ready-made one.

#include <tablio/value.h>

#include <string_view>

namespace tablio {

/// Names are compared without regard to case. Either function may throw; `Tablio` then goes on with
/// the next value.
class PropertyBag {
public:
    virtual ~PropertyBag() = default;

    /// The value stored under this name, or the default when there is none.
    [[nodiscard]] virtual Value readProperty(std::string_view name,
                                             const Value &defaultValue) const = 0;
    /// Stores a value. One that comparesEqual() to its default is not stored and takes away what
    /// the name held.
    virtual void writeProperty(std::string_view name, const Value &value,
                               const Value &defaultValue) = 0;
};

} // namespace tablio
