#include <tablio/testing/driver.h>

#include <tablio/members.h>

#include <variant>

namespace tablio::scenario {

namespace {

/// The member itself is the matrix of all tags.
bool isTag(const Member &member, const Values &index) {
    return member.name == "CellTag" && index.size() == 2;
}

} // namespace

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
        core()->CellTag()->setText(index[0].toLong(), index[1].toLong(), value.toText());
    else
        member.write(*core(), values);
}

Value Driver::readMember(std::string_view name, const Values &index) {
    const Member &member = findMember(name);
    if (isTag(member, index))
        return std::get<std::string>(core()->CellTag()->Text(index[0].toLong(), index[1].toLong()));
    return member.read(*core(), index);
}

} // namespace tablio::scenario
