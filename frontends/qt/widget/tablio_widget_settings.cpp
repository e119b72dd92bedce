/// The settings of `TablioWidget` as one text, and the pages that edit them.

#include "pages/property_pages_dialog.h"
#include "widget/guarded.h"
#include "widget/tablio_widget_p.h"

#include <tablio/text_bag.h>

namespace tablio::qt {

namespace {

constexpr std::string_view enabledKey = "Enabled";
constexpr std::string_view rowMinHeightKey = "RowMinHeight";

/// A value that is equal to its default is not stored.
void leaveOut(TextBag &bag, std::string_view key) { bag.writeProperty(key, {}, {}); }

} // namespace

QByteArray TablioWidget::settings() const {
    TextBag bag;
    d_->core.WriteProperties(bag);
    leaveOut(bag, enabledKey);
    if (d_->rowsFollowFont())
        leaveOut(bag, rowMinHeightKey);
    return QByteArray::fromStdString(bag.text());
}

void TablioWidget::setSettings(const QByteArray &settings) {
    // Form loaders and design tools write properties through Qt, which no exception may cross.
    try {
        d_->readSettings(TextBag::parse({settings.constData(), std::size_t(settings.size())}));
    } catch (const Error &error) {
        qWarning("Tablio: the settings of \"%s\" cannot be read: %s", qPrintable(objectName()),
                 error.what());
        return;
    }
    Q_EMIT propertyChanged({});
}

void TablioWidgetPrivate::readSettings(const TextBag &bag) {
    FlexGrid &grid = state().grid;
    const auto hasStripes = [&] {
        return state().settings.StripeColor != grid.table.look().BackColor;
    };
    const bool hadStripes = hasStripes();
    const bool isUntouched = startStamp_ == grid.cursorStamp();

    control.rows.watchNumbers();
    core.ReadProperties(bag);
    control.rows.blankFormerNumbers();
    if (isUntouched)
        startStamp_ = grid.cursorStamp();
    if (!bag.contains(rowMinHeightKey)) {
        fittedRowHeight_ = grid.table.RowHeightMin();
        fitRowsToFont();
    }
    core.setEnabled(widget.isEnabled());
    // Loading sets the switches; what they do to cells has to be done again.
    control.appearance.showHeaderFontBold();
    if (hadStripes || hasStripes())
        control.appearance.PaintStripes();
    showAnew();
    widget.updateGeometry();
}

bool TablioWidgetPrivate::rowsFollowFont() const {
    return state().grid.table.RowHeightMin() == fittedRowHeight_;
}

void TablioWidget::showPropertyPages() {
    const QPointer<TablioWidget> alive(this);
    guarded([this] { d_->control.session.EndCellEdit(); });
    if (alive == nullptr)
        return;
    auto *dialog = findChild<PropertyPagesDialog *>(QString(), Qt::FindDirectChildrenOnly);
    if (dialog == nullptr || dialog->isHidden()) { // One that is closed is about to go.
        dialog = new PropertyPagesDialog(*this, this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setWindowModality(Qt::WindowModal);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

} // namespace tablio::qt
