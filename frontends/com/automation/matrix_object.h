#pragma once

/// `TMatrix` as hosts hold it. One matrix is one object, however a host comes to it, and a cell
/// holds whatever VARIANT a host has put there.

#include "object/com_object.h"

#include <tablio/tmatrix.h>

#include <memory>

namespace tablio::com {

/// The object of this matrix, null for none. The same one as long as anybody holds it.
[[nodiscard]] ComPtr<IDispatch> matrixObject(const std::shared_ptr<TMatrix> &matrix);
/// The matrix behind an object; null where it is another kind of object.
[[nodiscard]] std::shared_ptr<TMatrix> matrixOf(IUnknown &object) noexcept;
/// A new matrix for a host; see IClassFactory::CreateInstance.
HRESULT createMatrix(IUnknown *outer, REFIID iid, void **object) noexcept;

} // namespace tablio::com
