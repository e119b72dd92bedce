/// The cells and colours of `TablioWidget`, and how a host's QVariant is kept as a cell's tag.

#include "widget/qt_look.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

#include <tablio/members.h>

#include <QDate>

#include <algorithm>
#include <vector>

namespace tablio::qt {

namespace {

/// Marks a tag that is a QVariant of ours, so that no other program's pointer is read as one.
struct DeletesVariant {
    void operator()(QVariant *value) const { delete value; }
};

struct ToVariant {
    template <typename Plain> QVariant operator()(Plain value) const {
        return QVariant::fromValue(value);
    }
    QVariant operator()(const std::string &text) const { return toQString(text); }
    QVariant operator()(std::int64_t number) const { return static_cast<qlonglong>(number); }
    QVariant operator()(const Date &day) const { return QDate(day.year, day.month, day.day); }
    QVariant operator()(const std::shared_ptr<void> &object) const {
        if (std::get_deleter<DeletesVariant>(object) != nullptr)
            return *static_cast<const QVariant *>(object.get());
        return QVariant::fromValue(object.get());
    }
};

MatrixValue fromVariant(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return std::string();
    case QMetaType::QString:
        return fromQString(value.toString());
    case QMetaType::Int:
        return std::int32_t{value.toInt()};
    case QMetaType::LongLong:
        return std::int64_t{value.toLongLong()};
    case QMetaType::QDate: {
        const QDate day = value.toDate();
        return Date{day.year(), day.month(), day.day()};
    }
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::Bool:
        return value.toBool();
    default:
        return std::shared_ptr<void>(
            std::shared_ptr<QVariant>(new QVariant(value), DeletesVariant()));
    }
}

} // namespace

QString TablioWidget::textMatrix(int row, int col) const {
    return toQString(d_->core.TextMatrix(row, col));
}

void TablioWidget::setTextMatrix(int row, int col, const QString &value) {
    d_->core.setTextMatrix(row, col, Utf8Text(value).view());
}

void TablioWidget::setTexts(int row, int col, const QList<QStringList> &texts) {
    const qsizetype cols = texts.isEmpty() ? 0 : texts.front().size();
    // One piece of memory for all; where the texts stand in it is known when it is whole.
    std::string all;
    std::vector<std::size_t> ends;
    ends.reserve(static_cast<std::size_t>(texts.size() * cols));
    for (const QStringList &line : texts) {
        for (qsizetype at = 0; at < std::max(cols, line.size()); ++at) {
            if (at < line.size())
                all += Utf8Text(line[at]).view();
            ends.push_back(all.size());
        }
    }
    std::vector<std::string_view> views;
    views.reserve(ends.size());
    std::size_t from = 0;
    for (const std::size_t end : ends) {
        views.push_back(std::string_view(all).substr(from, end - from));
        from = end;
    }
    d_->core.setTexts(row, col, static_cast<int>(cols), views);
}

QVariant TablioWidget::cellTag(int row, int col) const {
    return std::visit(ToVariant(), d_->core.CellTag()->Text(row, col));
}

void TablioWidget::setCellTag(int row, int col, const QVariant &value) {
    d_->core.CellTag()->setText(row, col, fromVariant(value));
}

QColor TablioWidget::colour(std::string_view name) const {
    return shown(Dispatch(d_->core).get(name).toColour());
}

void TablioWidget::setColour(std::string_view name, const QColor &colour) {
    const Colour start = findMember(name).themed;
    Dispatch(d_->core).put(name, colour.isValid() ? literal(colour) : start);
}

QColor TablioWidget::shown(Colour colour) const { return d_->colour(colour); }

Colour TablioWidget::literal(const QColor &colour) { return fromQColor(colour); }

} // namespace tablio::qt
