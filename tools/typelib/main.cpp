/// Prints what hosts of the registered control compile against, from the member table:
///
///   tablio_typelib --idl > frontends/com/server/typelib/tablio.idl
///   tablio_typelib --header > frontends/com/include/tablio_com.h

#include "typelib/typelib.h"

#include <iostream>
#include <string_view>

int main(int count, char **arguments) {
    const std::string_view wanted = count == 2 ? arguments[1] : "";
    if (wanted == "--idl")
        std::cout << tablio::interfaceText() << std::flush;
    else if (wanted == "--header")
        std::cout << tablio::identifierHeader() << std::flush;
    else
        std::cerr << "usage: tablio_typelib --idl | --header\n";
    return std::cout && (wanted == "--idl" || wanted == "--header") ? 0 : 2;
}
