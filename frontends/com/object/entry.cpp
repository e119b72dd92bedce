#include "object/entry.h"

#include "object/failure.h"

#include <tablio/errors.h>

#include <new>

namespace tablio::com {

namespace {

Failure failureOf(const Error &error) {
    Failure failure{DISP_E_EXCEPTION, otherErrorNumber, error.what()};
    failure.argument = error.argument();
    switch (error.kind()) {
    case ErrorKind::TypeMismatch:
        failure.code = DISP_E_TYPEMISMATCH;
        break;
    case ErrorKind::ArgumentCount:
        failure.code = DISP_E_BADPARAMCOUNT;
        break;
    case ErrorKind::UnknownMember:
        failure.code = DISP_E_MEMBERNOTFOUND;
        break;
    case ErrorKind::Overflow:
        failure.code = DISP_E_OVERFLOW;
        break;
    case ErrorKind::Grid:
        failure.number = gridErrorNumber;
        break;
    case ErrorKind::Other:
        break;
    }
    return failure;
}

} // namespace

Failure failureOfException() noexcept {
    try {
        try {
            throw;
        } catch (const HandlerFailed &failed) {
            return failed.failure();
        } catch (const Error &error) {
            return failureOf(error);
        } catch (const std::bad_alloc &) {
            return {E_OUTOFMEMORY, E_OUTOFMEMORY, {}, {}};
        } catch (const std::exception &error) {
            return {DISP_E_EXCEPTION, otherErrorNumber, error.what()};
        } catch (...) {
            return {E_UNEXPECTED, E_UNEXPECTED, {}, {}};
        }
    } catch (...) { // no memory for the text
        return {E_OUTOFMEMORY, E_OUTOFMEMORY, {}, {}};
    }
}

HRESULT codeOfException() noexcept {
    const Failure failure = failureOfException();
    return failure.code == DISP_E_EXCEPTION ? failure.number : failure.code;
}

} // namespace tablio::com
