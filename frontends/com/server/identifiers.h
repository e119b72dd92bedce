#pragma once

/// What the registered control is called for ever: the identifiers of its type library, interfaces
/// and classes, and the names under which hosts create them. tools/typelib prints them, the server
/// answers to them; no other place spells one.

namespace tablio::com::identifiers {

inline constexpr char library[] = "{630823B3-BF3F-4174-BC48-453295D14E08}";
inline constexpr char members[] = "{6664D2D5-8BD1-4A9B-BDFD-7FF29B63B418}";
inline constexpr char events[] = "{42F36961-4D8E-4336-AD12-8224C96DD9EC}";
inline constexpr char matrixMembers[] = "{795EF3E1-3F8F-4C16-AA76-D2C094AA9A0C}";
inline constexpr char tablioClass[] = "{FFD3CEA0-8D78-4E74-84F3-CF71A7743142}";
inline constexpr char matrixClass[] = "{7DE24383-F4A2-4EEA-AE43-1D063E39C0D5}";
inline constexpr char generalPage[] = "{B463D282-E317-4857-81D6-E5E978787C6D}";
inline constexpr char columnsPage[] = "{B052A0CE-90A3-4283-B2CD-033769B0470F}";
inline constexpr char entryPage[] = "{3124A775-DA0F-42D1-B13B-C3EDEE843C44}";

} // namespace tablio::com::identifiers
