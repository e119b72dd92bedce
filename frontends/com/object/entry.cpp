#include "object/entry.h"

#include <tablio/errors.h>

#include <new>

namespace tablio::com {

HRESULT codeOfException() noexcept {
    try {
        throw;
    } catch (const Error &) {
        return E_FAIL;
    } catch (const std::bad_alloc &) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

} // namespace tablio::com
