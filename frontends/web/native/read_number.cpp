/// Numbers are read by the page: the standard library would bring arithmetic of 128 bits along for
/// it, which was a twentieth of the module.

#include "page.h"

#include <cstdlib>
#include <cstring>

/// As the core calls it, which gives whole numbers and wants no end.
// NOLINTNEXTLINE: the linker asks for this name.
extern "C" double __wrap_strtod(const char *text, char ** /*end*/) {
    return tablio_number(text, std::strlen(text));
}
