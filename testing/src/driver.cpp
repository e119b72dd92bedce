#include <tablio/testing/driver.h>

#include <tablio/members.h>

namespace tablio::scenario {

namespace {

/// The member itself is the matrix of all tags.
bool isTag(const Member &member, const Values &index) {
    return member.name == "CellTag" && index.size() == 2;
}

} // namespace

void makeBare(Tablio &core) {
    Tablio bare;
    for (const Member &member : members()) {
        // InitProperties sets the control's own; these are the table's.
        const bool isOwn = member.name == "StripeColor" || member.name == "CheckBoxColor";
        if (member.type != MemberType::Colour || member.stored.written == 0 || isOwn)
            continue;
        const Value colour = member.read(bare, {});
        member.write(core, {&colour, 1});
    }
    core.setRowMinHeight(bare.RowMinHeight());
    core.InitProperties();
    core.TableClear();
}

Value Driver::callMember(std::string_view name, const Values &arguments) {
    const Member &member = findMember(name);
    Values all = arguments;
    while (all.size() < member.arguments.size())
        all.push_back(member.arguments[all.size()].defaultValue());
    return member.read(*core(), all);
}

void Driver::setMember(std::string_view name, const Values &index, const Value &value) {
    const Member &member = findMember(name);
    Values values = index;
    values.push_back(value);
    if (isTag(member, index))
        Dispatch(*core()).put(member.number, value, index);
    else
        member.write(*core(), values);
}

Value Driver::readMember(std::string_view name, const Values &index) {
    const Member &member = findMember(name);
    if (isTag(member, index))
        return Dispatch(*core()).get(member.number, index);
    return member.read(*core(), index);
}

} // namespace tablio::scenario
