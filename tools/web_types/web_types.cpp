#include "web_types.h"

#include "web_names.h"

#include <cstdint>
#include <vector>

namespace tablio {

namespace {

/// What the table does not tell of.
constexpr std::string_view beginning = R"(/**
 * The types of `@tablio/grid`: the element `<tablio-grid>`, its members, events and enumerations.
 * What each of them does is told in docs/web.md and docs/web-members.md.
 *
 * Printed by tools/web_types from the member table. Do not edit.
 */

/** 0xBBGGRR, or 0x80000000 and the number of a system colour, as a signed 32-bit integer. */
export type TColour = number;

/** What a page hangs on a cell; a cell without a tag has "". */
export type TTag = string | number | boolean;

/** What is left out when it is given is the page's own. Size is in points. */
export interface TFont {
    name?: string;
    size?: number;
    bold?: boolean;
    italic?: boolean;
    underline?: boolean;
    strikethrough?: boolean;
    weight?: number;
}
)";

constexpr std::string_view ending = R"(
export interface TablioGrid extends TablioMembers {
    addEventListener<Name extends keyof TablioEvents>(
        type: Name,
        listener: (this: TablioGrid, event: TablioEvents[Name]) => unknown,
        options?: boolean | AddEventListenerOptions,
    ): void;
    addEventListener<Name extends keyof HTMLElementEventMap>(
        type: Name,
        listener: (this: TablioGrid, event: HTMLElementEventMap[Name]) => unknown,
        options?: boolean | AddEventListenerOptions,
    ): void;
    addEventListener(
        type: string,
        listener: EventListenerOrEventListenerObject,
        options?: boolean | AddEventListenerOptions,
    ): void;
    removeEventListener<Name extends keyof TablioEvents>(
        type: Name,
        listener: (this: TablioGrid, event: TablioEvents[Name]) => unknown,
        options?: boolean | EventListenerOptions,
    ): void;
    removeEventListener(
        type: string,
        listener: EventListenerOrEventListenerObject,
        options?: boolean | EventListenerOptions,
    ): void;
}

/** The element's class; importing the package defines it as `tablio-grid`. */
export declare class TablioGrid extends HTMLElement {
    /**
     * The settings of the table and its columns as lines of plain text, the same that a form of Qt
     * Designer holds. Writing them keeps the cells.
     */
    settings: string;
    /**
     * The page's own words, by the English ones that the grid says otherwise: { OK: 'Gut' }. They
     * are told in docs/web.md.
     */
    captions: Readonly<Record<string, string>>;
    /** Writes texts into a block of cells, so many a row; rows that are missing are appended. */
    setTexts(row: number, col: number, cols: number, texts: readonly string[]): void;
    /** What a block of cells reads, row by row. */
    texts(row: number, col: number, rows: number, cols: number): string[];
}

/** Nothing has changed when one is thrown. */
export declare class TablioError extends Error {
    /** "Grid": a row, column or count that is not there. "Overflow": beyond 16 bits. */
    readonly kind: 'Other' | 'Grid' | 'Overflow' | 'UnknownMember' | 'ArgumentCount' | 'TypeMismatch';
    /** Which argument is wrong, from 0; the new value comes after the indexes. Else -1. */
    readonly argument: number;
}

declare global {
    interface HTMLElementTagNameMap {
        'tablio-grid': TablioGrid;
    }
}
)";

void addEnumeration(std::string &text, const Enumeration &enumeration) {
    const std::string name(enumeration.name);
    text.append("\nexport declare const ").append(name).append(": {\n");
    for (const EnumerationMember &member : enumeration.members)
        text.append("    readonly ")
            .append(member.name)
            .append(": ")
            .append(std::to_string(member.value))
            .append(";\n");
    text.append("};\nexport type ").append(name).append(" = (typeof ").append(name);
    text.append(")[keyof typeof ").append(name).append("];\n");
}

void addMember(std::string &text, const Member &member) {
    const std::string name = webName(member.name);
    const MemberType type = webValueType(member);
    if (member.kind == MemberKind::Method) {
        text.append("    ").append(name).append("(").append(webArguments(member.arguments));
        text.append("): ").append(webType(type)).append(";\n");
        return;
    }
    if (isPlainProperty(member)) {
        text.append(member.write == nullptr ? "    readonly " : "    ").append(name);
        text.append(": ").append(webType(type)).append(";\n");
        return;
    }
    const std::string indexes = webArguments(webIndexes(member));
    if (member.read != nullptr)
        text.append("    ").append(name).append("(").append(indexes).append("): ").append(
            webType(type) + ";\n");
    if (member.write != nullptr)
        text.append("    set")
            .append(member.name)
            .append("(")
            .append(indexes)
            .append(", value: " + webTaken(type) + "): void;\n");
}

void addEvent(std::string &text, const Event &event) {
    text.append("    ").append(webName(event.name)).append(": CustomEvent<{");
    const std::optional<Veto> veto = vetoOf(event);
    for (std::size_t i = 0; i < event.arguments.size(); ++i) {
        const Argument &argument = event.arguments[i];
        text.append(i == 0 ? " " : "; ");
        text.append(veto && veto->argument == i ? "" : "readonly ").append(webName(argument.name));
        text.append(": ").append(webType(argument.type));
    }
    text.append(event.arguments.empty() ? "}>;\n" : " }>;\n");
}

} // namespace

std::string webTypes() {
    std::string text(beginning);
    for (const Enumeration &enumeration : enumerations())
        addEnumeration(text, enumeration);
    text +=
        "\n/** The control's own members. Rows and columns count from 0, lengths are twips. */\n"
        "export interface TablioMembers {\n";
    for (const Member &member : members())
        addMember(text, member);
    text += "}\n\n/** A handler may write into what is not readonly; preventDefault() refuses. */\n"
            "export interface TablioEvents {\n";
    for (const Event &event : events())
        addEvent(text, event);
    return text.append("}\n").append(ending);
}

} // namespace tablio
