/// The type library as hosts read it back, against the member table.

#include "com_host.h"
#include "server/type_library.h"

#include <tablio/members.h>

namespace tablio::com {
namespace {

class TypeLibrary : public ComTest {};

std::string nameOf(ITypeInfo &info, MEMBERID number) {
    Bstr name;
    info.GetDocumentation(number, name.out(), nullptr, nullptr, nullptr);
    return name.text();
}

/// A type as the reference document writes it; "&" before what is passed by reference.
std::string typeText(ITypeInfo &info, const TYPEDESC &type) {
    switch (type.vt) {
    case VT_VOID:
        return "";
    case VT_BOOL:
        return "Boolean";
    case VT_I2:
        return "16-bit integer";
    case VT_I4:
        return "32-bit integer";
    case VT_BSTR:
        return "String";
    case VT_VARIANT:
        return "Variant";
    case VT_PTR: {
        const std::string inner = typeText(info, *type.lptdesc);
        const bool isObject = inner == "Font" || inner == "_TMatrix";
        return isObject ? inner : "&" + inner;
    }
    case VT_USERDEFINED: {
        ComPtr<ITypeInfo> named;
        return SUCCEEDED(info.GetRefTypeInfo(type.hreftype, named.out())) ? nameOf(*named.get(), -1)
                                                                          : "?";
    }
    default:
        return "VT " + std::to_string(type.vt);
    }
}

std::string wanted(MemberType type, bool byReference) {
    std::string name(tablio::nameOf(type));
    if (type == MemberType::Matrix)
        name = "_TMatrix";
    return byReference ? "&" + name : name;
}

std::string wanted(const Argument &argument) {
    std::string text(argument.name);
    text.append(": ").append(wanted(argument.type, argument.byReference));
    if (argument.optional)
        text.append(" = ").append(argument.defaultValue().toText());
    return text;
}

std::string textOf(ITypeInfo &info, const FUNCDESC &function) {
    std::vector<BSTR> names(static_cast<std::size_t>(function.cParams) + 1, nullptr);
    UINT count = 0;
    info.GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count);
    std::string text;
    for (UINT place = 0; place < count; ++place) {
        text.append(place == 0 ? "" : "; ").append(narrow(viewOf(names[place])));
        SysFreeString(names[place]);
        if (place == 0)
            continue;
        const ELEMDESC &argument = function.lprgelemdescParam[place - 1];
        text.append(": ").append(typeText(info, argument.tdesc));
        if ((argument.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0) {
            Variant value;
            VariantCopy(&value.get(), &argument.paramdesc.pparamdescex->varDefaultValue);
            text.append(" = ").append(valueOf(value.get(), MemberType::Any).toText());
        }
    }
    return text.append(" -> ").append(typeText(info, function.elemdescFunc.tdesc));
}

/// All functions of an interface: number, kind, name, arguments, result.
std::vector<std::string> functionsOf(const GUID &id) {
    std::vector<std::string> all;
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(typeInfoOf(id, info.out()), S_OK);
    TYPEATTR *attributes = nullptr;
    info->GetTypeAttr(&attributes);
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
        FUNCDESC *function = nullptr;
        info->GetFuncDesc(index, &function);
        // Those of IDispatch itself come with every such interface.
        if (static_cast<DWORD>(function->memid) < 0x60000000U ||
            static_cast<DWORD>(function->memid) >= 0x60030000U)
            all.push_back(std::to_string(function->memid) + " " +
                          std::to_string(function->invkind) + " " + textOf(*info.get(), *function));
        info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
    return all;
}

std::string function(MemberNumber number, INVOKEKIND kind, std::string_view name,
                     const std::vector<std::string> &arguments, const std::string &result) {
    std::string text = std::to_string(number) + " " + std::to_string(kind) + " ";
    text.append(name);
    for (const std::string &argument : arguments)
        text.append("; ").append(argument);
    return text + " -> " + result;
}

std::vector<std::string> wantedOf(std::span<const Argument> arguments) {
    std::vector<std::string> texts;
    for (const Argument &argument : arguments)
        texts.push_back(wanted(argument));
    return texts;
}

std::vector<std::string> wantedOf(std::span<const Member> members) {
    std::vector<std::string> all;
    for (const Member &member : members) {
        const bool isAny = member.type == MemberType::Any;
        const bool isMethod = member.kind == MemberKind::Method;
        const std::vector<std::string> arguments = wantedOf(member.arguments);
        const auto add = [&](INVOKEKIND kind, const std::vector<std::string> &given,
                             const std::string &result) {
            all.push_back(function(member.number, kind, member.name, given, result));
        };
        if (member.read != nullptr || isAny)
            add(isMethod ? INVOKE_FUNC : INVOKE_PROPERTYGET, arguments, wanted(member.type, false));
        if (member.write == nullptr && !isAny)
            continue;
        std::vector<std::string> given = arguments;
        // The value of a put has no name to those who ask.
        if (!isObject(member.type))
            add(INVOKE_PROPERTYPUT, given, "");
        if (isObject(member.type) || isAny)
            add(INVOKE_PROPERTYPUTREF, given, "");
    }
    return all;
}

TEST_F(TypeLibrary, SaysWhatTheMemberTableSays) {
    EXPECT_EQ(functionsOf(membersId), wantedOf(members()));
    EXPECT_EQ(functionsOf(matrixMembersId), wantedOf(matrixMembers()));
    std::vector<std::string> raised;
    for (const Event &event : events())
        raised.push_back(
            function(event.number, INVOKE_FUNC, event.name, wantedOf(event.arguments), ""));
    EXPECT_EQ(functionsOf(eventsId), raised);
}

} // namespace
} // namespace tablio::com
