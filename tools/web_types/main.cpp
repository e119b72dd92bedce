/// Prints one of the files that the web face has from the member table:
///
///   tablio_web_types types > frontends/web/tablio-grid.d.ts
///   tablio_web_types table > frontends/web/members/member_table.ts
///   tablio_web_types document > docs/web-members.md

#include "web_glue.h"
#include "web_types.h"

#include <iostream>
#include <string_view>

int main(int argc, char **argv) {
    const std::string_view what = argc == 2 ? argv[1] : "";
    if (what == "types")
        std::cout << tablio::webTypes();
    else if (what == "table")
        std::cout << tablio::webMemberTable();
    else if (what == "document")
        std::cout << tablio::webMembersDocument();
    else {
        std::cerr << "usage: tablio_web_types types | table | document\n";
        return 2;
    }
    return std::cout.flush() ? 0 : 1;
}
