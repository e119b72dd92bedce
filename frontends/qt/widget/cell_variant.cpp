#include <tablio/qt/cell_variant.h>

#include "widget/qt_text.h"

#include <tablio/errors.h>

#include <QDateTime>

namespace tablio::qt {

QVariant toVariant(const CellValue &value) {
    switch (value.type()) {
    case CellValue::Type::Empty:
        return {};
    case CellValue::Type::Integer:
        return static_cast<qlonglong>(value.toInteger());
    case CellValue::Type::Decimal: {
        const double nearest = value.toDouble();
        if (Decimal::fromDouble(nearest) == value.toDecimal())
            return nearest;
        break;
    }
    case CellValue::Type::Date: {
        const Date day = value.toDate();
        return QDate(day.year, day.month, day.day);
    }
    case CellValue::Type::Boolean:
        return value.toBoolean();
    case CellValue::Type::Text:
        break;
    }
    return toQString(value.toText());
}

CellValue fromVariant(const QVariant &value) {
    if (value.isNull())
        return {};
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Float:
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::ULongLong:
        return *Decimal::parse(value.toString().toStdString());
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return std::int64_t{value.toLongLong()};
    case QMetaType::QDate:
    case QMetaType::QDateTime: {
        const QDate day = value.toDate();
        return day.isValid() ? CellValue(Date{day.year(), day.month(), day.day()}) : CellValue();
    }
    default:
        if (value.canConvert<QString>())
            return fromQString(value.toString());
        throw TypeMismatch(std::string("a cell holds no ") + value.typeName());
    }
}

} // namespace tablio::qt
