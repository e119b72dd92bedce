#pragma once

/// The platform's form of an identifier, read from its spelling when the program is compiled.

#include "server/identifiers.h"

#include <guiddef.h>

#include <cstdint>
#include <string_view>

namespace tablio::com {

/// From "{630823B3-BF3F-4174-BC48-453295D14E08}".
constexpr GUID guidOf(std::string_view text) {
    const auto number = [text](std::size_t at, int digits) {
        std::uint32_t value = 0;
        for (const char digit : text.substr(at, static_cast<std::size_t>(digits)))
            value = value * 16 +
                    static_cast<std::uint32_t>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
        return value;
    };
    GUID guid{};
    guid.Data1 = number(1, 8);
    guid.Data2 = static_cast<std::uint16_t>(number(10, 4));
    guid.Data3 = static_cast<std::uint16_t>(number(15, 4));
    for (std::size_t byte = 0; byte < 8; ++byte)
        guid.Data4[byte] = static_cast<std::uint8_t>(number((byte < 2 ? 20 : 21) + 2 * byte, 2));
    return guid;
}

inline constexpr GUID libraryId = guidOf(identifiers::library);
inline constexpr GUID membersId = guidOf(identifiers::members);
inline constexpr GUID eventsId = guidOf(identifiers::events);
inline constexpr GUID matrixMembersId = guidOf(identifiers::matrixMembers);
inline constexpr GUID tablioClassId = guidOf(identifiers::tablioClass);
inline constexpr GUID matrixClassId = guidOf(identifiers::matrixClass);
inline constexpr GUID generalPageId = guidOf(identifiers::generalPage);
inline constexpr GUID columnsPageId = guidOf(identifiers::columnsPage);
inline constexpr GUID entryPageId = guidOf(identifiers::entryPage);

} // namespace tablio::com
