/// Late-bound callers hand in anything: every call ends with a result or one of the control's own
/// errors, and what was refused has changed nothing.

#include "fuzz.h"

#include <tablio/members.h>
#include <tablio/tablio.h>

#include <limits>

namespace tablio::fuzz {

namespace {

Value anyValue(Bytes &bytes, const Tablio &table) {
    switch (bytes.below(10)) {
    case 0:
        return {};
    case 1:
        return bytes.chance(2);
    case 2:
        return static_cast<std::int16_t>(bytes.number());
    case 3:
        return bytes.number();
    case 4:
        return bytes.chance(4) ? std::numeric_limits<double>::quiet_NaN()
                               : bytes.number() / 7.0 * (bytes.chance(3) ? 1e300 : 1);
    case 5:
        return bytes.text(20);
    case 6:
        return Font{.name = bytes.text(8), .size = static_cast<float>(bytes.number())};
    case 7:
        return Value::missing();
    case 8:
        return table.CellTag();
    default:
        return bytes.index(4);
    }
}

std::string texts(const Tablio &table) {
    std::string all = std::to_string(table.Rows()) + "x" + std::to_string(table.Cols());
    for (int row = 0; row < std::min(table.Rows(), 12); ++row)
        for (int col = 0; col < std::min(table.Cols(), 8); ++col)
            all += "|" + table.TextMatrix(row, col);
    return all;
}

} // namespace

void dispatch(Bytes &bytes) {
    Tablio table;
    table.InitProperties();
    table.setRows(6);
    table.setCols(4);
    table.Show();
    Dispatch late(table);
    const auto all = members();
    while (!bytes.atEnd()) {
        const Member &member =
            all[static_cast<std::size_t>(bytes.below(static_cast<int>(all.size())))];
        // More columns than this cost time, which is not what is looked for here.
        if (member.name == "Cols" && table.Cols() > 300)
            table.setCols(4);
        const bool isExact = !bytes.chance(8);
        Values arguments;
        for (std::size_t count = isExact ? member.arguments.size() : bytes.below(10); count > 0;
             --count)
            arguments.push_back(bytes.chance(2) ? Value(bytes.index(6)) : anyValue(bytes, table));
        const std::string before = texts(table);
        try {
            if (member.kind == MemberKind::Property && bytes.chance(2))
                late.put(member.number, anyValue(bytes, table), arguments);
            else if (bytes.chance(2))
                (void)late.call(member.number, arguments);
            else
                (void)late.get(member.name, arguments);
        } catch (const TypeMismatch &) {
            expect(texts(table) == before, std::string(member.name) + " refuses and changes texts");
        } catch (const Error &) {
        }
        table.input().typeText("5");
    }
}

} // namespace tablio::fuzz
