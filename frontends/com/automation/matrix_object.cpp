#include "automation/matrix_object.h"

#include "automation/invocation.h"
#include "object/entry.h"
#include "server/guid.h"

#include <tablio/errors.h>

#include <mutex>
#include <new>
#include <unordered_map>

namespace tablio::com {

namespace {

/// What fits no type of the matrix: an amount, a date with its time, Null, an object, an array.
struct HeldVariant {
    Variant value;
};

/// Tells what was held here from what others may have put into a matrix.
struct HeldVariantDeleter {
    void operator()(const HeldVariant *held) const noexcept { delete held; }
};

MatrixValue kept(const VARIANT &given) {
    const VARIANT &inner = innermost(given);
    switch (V_VT(&inner) & ~VT_BYREF) {
    case VT_I2:
        return valueOf(inner, MemberType::Any).toInteger();
    case VT_I4:
        return valueOf(inner, MemberType::Any).toLong();
    case VT_R8:
        return valueOf(inner, MemberType::Any).toDouble();
    case VT_BOOL:
        return valueOf(inner, MemberType::Any).toBoolean();
    case VT_BSTR:
        return valueOf(inner, MemberType::Any).toText();
    default:
        break;
    }
    std::shared_ptr<HeldVariant> held(new HeldVariant, HeldVariantDeleter{});
    if (FAILED(VariantCopyInd(&held->value.get(), const_cast<VARIANT *>(&inner))))
        throw std::bad_alloc();
    return std::shared_ptr<void>(std::move(held));
}

/// What other faces may have stored is told as well as a VARIANT can.
struct Answer {
    VARIANT &result;

    template <typename Plain> void operator()(const Plain &value) const {
        setVariant(result, value);
    }
    void operator()(std::int64_t value) const {
        V_VT(&result) = VT_I8;
        V_I8(&result) = value;
    }
    void operator()(const Date &value) const {
        SYSTEMTIME day{};
        day.wYear = static_cast<WORD>(value.year);
        day.wMonth = static_cast<WORD>(value.month);
        day.wDay = static_cast<WORD>(value.day);
        if (SystemTimeToVariantTime(&day, &V_DATE(&result)) != FALSE)
            V_VT(&result) = VT_DATE;
    }
    void operator()(const std::shared_ptr<void> &value) const {
        if (std::get_deleter<HeldVariantDeleter>(value) != nullptr)
            VariantCopy(&result, &static_cast<HeldVariant *>(value.get())->value.get());
    }
};

class MatrixObject;

/// The objects that hosts hold, by their matrices. Controls of several threads may share it.
struct LivingObjects {
    std::mutex mutex;
    std::unordered_map<const TMatrix *, MatrixObject *> objects;
};

LivingObjects &living() {
    static LivingObjects all;
    return all;
}

class MatrixObject final : public Automation<ComObject<IDispatch>> {
public:
    explicit MatrixObject(std::shared_ptr<TMatrix> matrix)
        : Automation(matrixMembers(), matrixMembersId), matrix_(std::move(matrix)) {}
    ~MatrixObject() override {
        const std::lock_guard lock(living().mutex);
        living().objects.erase(matrix_.get());
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override {
        return ComObject::QueryInterface(iid == matrixMembersId ? IID_IDispatch : iid, object);
    }
    [[nodiscard]] const std::shared_ptr<TMatrix> &matrix() const noexcept { return matrix_; }

private:
    void carryOut(const Member & /*member*/, const Invocation &invocation,
                  VARIANT &result) override {
        const Values &cell = invocation.arguments();
        if (cell.size() != 2 || cell[0].isMissing() || cell[1].isMissing())
            throw ArgumentCount("Text: a row and a column are wanted");
        const std::int16_t row = cell[0].toInteger();
        const std::int16_t col = cell[1].toInteger();
        if (invocation.put() != nullptr)
            matrix_->setText(row, col, kept(*invocation.put()));
        else
            std::visit(Answer{result}, matrix_->Text(row, col));
    }

    std::shared_ptr<TMatrix> matrix_;
};

} // namespace

ComPtr<IDispatch> matrixObject(const std::shared_ptr<TMatrix> &matrix) {
    if (matrix == nullptr)
        return {};
    const std::lock_guard lock(living().mutex);
    MatrixObject *&object = living().objects[matrix.get()];
    if (object != nullptr)
        return ComPtr<IDispatch>(object);
    object = new MatrixObject(matrix);
    return ComPtr<IDispatch>::taken(object);
}

std::shared_ptr<TMatrix> matrixOf(IUnknown &object) noexcept {
    // Only the server's own object answers this with itself; nothing is ever made of the pointer
    // of another.
    const auto dispatch = ComPtr<IDispatch>::of(&object);
    const std::lock_guard lock(living().mutex);
    for (const auto &[matrix, one] : living().objects)
        if (static_cast<IDispatch *>(one) == dispatch.get())
            return one->matrix();
    return nullptr;
}

HRESULT createMatrix(IUnknown *outer, REFIID iid, void **object) noexcept {
    if (outer != nullptr)
        return CLASS_E_NOAGGREGATION;
    try {
        return matrixObject(std::make_shared<TMatrix>())->QueryInterface(iid, object);
    } catch (...) {
        return codeOfException();
    }
}

} // namespace tablio::com
