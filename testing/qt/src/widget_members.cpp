#include "widget_members.h"

#include <QMetaMethod>
#include <QMetaProperty>

#include <array>
#include <cstdint>
#include <string>

namespace tablio::scenario {

namespace {

using qt::TablioWidget;

/// "ColWidth" is the widget's "colWidth"; one method has another name there.
QByteArray widgetName(std::string_view name) {
    if (name == "CellFocus")
        return "focusCell";
    QByteArray own(name.data(), static_cast<qsizetype>(name.size()));
    own[0] = static_cast<char>(own[0] | 0x20);
    return own;
}

QVariant inWidget(const Value &value, QMetaType type) {
    QVariant result;
    if (type.id() == QMetaType::QColor) {
        const std::uint32_t bits = value.toColour().value;
        result = QColor(bits & 0xFF, bits >> 8 & 0xFF, bits >> 16 & 0xFF);
    } else if (value.type() == Value::Type::String) {
        result = QString::fromStdString(value.toText());
    } else if (value.type() == Value::Type::Boolean) {
        result = value.toBoolean();
    } else {
        result = value.toLong();
    }
    if (type.id() != QMetaType::QVariant)
        result.convert(type);
    return result;
}

Value inCore(const QVariant &value) {
    if (value.typeId() == QMetaType::QColor) {
        const auto colour = value.value<QColor>();
        return Colour{
            static_cast<std::uint32_t>(colour.red() | colour.green() << 8 | colour.blue() << 16)};
    }
    if (value.typeId() == QMetaType::QString)
        return value.toString().toStdString();
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    return value.isValid() ? Value(value.toInt()) : Value();
}

/// What every widget has is something else: `Enabled` is False under the calendar, too, and `Font`
/// is the table's alone.
QMetaProperty propertyOf(std::string_view name) {
    const QMetaObject &meta = TablioWidget::staticMetaObject;
    const int index = meta.indexOfProperty(widgetName(name));
    return index >= meta.propertyOffset() ? meta.property(index) : QMetaProperty();
}

std::optional<Value> invoked(TablioWidget &widget, const QByteArray &name,
                             const std::vector<Value> &arguments) {
    const QMetaObject &meta = TablioWidget::staticMetaObject;
    const int count = static_cast<int>(arguments.size());
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        if (method.name() != name || method.parameterCount() != count)
            continue;
        std::array<QVariant, 10> values;
        std::array<QGenericArgument, 10> given;
        for (int at = 0; at < count; ++at) {
            const QMetaType type = method.parameterMetaType(at);
            QVariant &value = values.at(at) = inWidget(arguments[at], type);
            const bool isVariant = type.id() == QMetaType::QVariant;
            given.at(at) = {type.name(), isVariant ? &value : value.constData()};
        }
        const QMetaType type = method.returnMetaType();
        const bool isVariant = type.id() == QMetaType::QVariant;
        QVariant result = type.id() == QMetaType::Void ? QVariant() : QVariant(type);
        const QGenericReturnArgument into(type.name(), isVariant ? &result : result.data());
        method.invoke(&widget, Qt::DirectConnection, into, given[0], given[1], given[2], given[3],
                      given[4], given[5], given[6], given[7], given[8]);
        return inCore(result);
    }
    return std::nullopt;
}

/// A slot's number as an event's, for as long as the event lasts.
class Number {
public:
    explicit Number(int &slot) : slot_(slot), number_(static_cast<std::int16_t>(slot)) {}
    ~Number() { slot_ = static_cast<std::uint16_t>(number_); }
    Number(const Number &) = delete;
    Number &operator=(const Number &) = delete;
    operator std::int16_t &() { return number_; }

private:
    int &slot_;
    std::int16_t number_;
};

/// The same for a text.
class Text {
public:
    explicit Text(QString &slot) : slot_(slot), text_(slot.toStdString()) {}
    ~Text() { slot_ = QString::fromStdString(text_); }
    Text(const Text &) = delete;
    Text &operator=(const Text &) = delete;
    operator std::string &() { return text_; }

private:
    QString &slot_;
    std::string text_;
};

} // namespace

std::optional<Value> callOfWidget(TablioWidget &widget, std::string_view name,
                                  const std::vector<Value> &arguments) {
    return invoked(widget, widgetName(name), arguments);
}

std::optional<Value> readOfWidget(TablioWidget &widget, std::string_view name,
                                  const std::vector<Value> &index) {
    if (const QMetaProperty property = propertyOf(name); property.isReadable())
        return inCore(property.read(&widget));
    return invoked(widget, widgetName(name), index);
}

bool setOfWidget(TablioWidget &widget, std::string_view name, const std::vector<Value> &index,
                 const Value &value) {
    if (const QMetaProperty property = propertyOf(name); property.isWritable())
        return property.write(&widget, inWidget(value, property.metaType()));
    std::vector<Value> arguments = index;
    arguments.push_back(value);
    return invoked(widget, "set" + QByteArray(name.data(), static_cast<qsizetype>(name.size())),
                   arguments)
        .has_value();
}

void connectHost(TablioWidget &widget, QObject &context, HostEvents &host) {
    const auto connect = [&](auto signal, auto slot) {
        QObject::connect(&widget, signal, &context, slot);
    };
    connect(&TablioWidget::editPreValidation, [&](int &row, int &col, bool &cancel) {
        host.EditPreValidation(Number(row), Number(col), cancel);
    });
    connect(&TablioWidget::editOnChange, [&](int &row, int &col, QString &onEdit) {
        host.EditOnChange(Number(row), Number(col), Text(onEdit));
    });
    connect(&TablioWidget::editPostValidation,
            [&](int &row, int &col, bool &valid, QString &oldData, QString &newData, int &lastKey) {
                host.EditPostValidation(Number(row), Number(col), valid, Text(oldData),
                                        Text(newData), Number(lastKey));
            });
    connect(&TablioWidget::editLookup,
            [&](int &row, int &col) { host.EditLookup(Number(row), Number(col)); });
    connect(&TablioWidget::cellFocus,
            [&](int &row, int &col) { host.CellFocus(Number(row), Number(col)); });
    connect(&TablioWidget::cellKeyPress, [&](int &row, int &col, int &keyAscii) {
        host.CellKeyPress(Number(row), Number(col), Number(keyAscii));
    });
    connect(&TablioWidget::tableChange, [&] { host.TableChange(); });
    connect(&TablioWidget::tableKeyDown, [&](int &keyCode, int &shift, int &row, int &col) {
        host.TableKeyDown(Number(keyCode), Number(shift), Number(row), Number(col));
    });
    connect(&TablioWidget::tableRowChange,
            [&](int &oldRow, int &newRow) { host.TableRowChange(Number(oldRow), Number(newRow)); });
    connect(&TablioWidget::doubleClick,
            [&](int &row, int &col) { host.DoubleClick(Number(row), Number(col)); });
}

} // namespace tablio::scenario
