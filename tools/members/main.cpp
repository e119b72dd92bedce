/// Prints the reference document of the member table:
///
///   tablio_members > docs/members.md

#include "member_document.h"

#include <iostream>

int main() {
    std::cout << tablio::membersDocument() << std::flush;
    return std::cout ? 0 : 1;
}
