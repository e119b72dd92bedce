/// An operator, the platform and a host that acts, refuses, throws or destroys in its handlers: the
/// control stays in order and nothing typed is lost.

#include "session.h"

namespace tablio::fuzz {

void input(Bytes &bytes) {
    SessionFace face;
    Session(bytes, face).play();
}

} // namespace tablio::fuzz
