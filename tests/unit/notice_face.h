#pragma once

/// Writes down which properties are set, in their order.

#include <tablio/face.h>

#include <string>
#include <string_view>

namespace tablio {

class NoticeFace final : public Face {
public:
    void propertyChanged(std::string_view name) override { notices.append(name).append(" "); }
    std::string notices;
};

} // namespace tablio
