#pragma once

/// A small picture of the table as the property pages would make it, with sample values, scrolled
/// to the column that is being edited. It takes no keyboard and no mouse and touches no table but
/// its own.

#include <tablio/pages/property_pages.h>
#include <tablio/qt/tablio_widget.h>

namespace tablio::qt {

class PropertyPagesPreview final : public QWidget {
    Q_OBJECT

public:
    /// Looks like the edited widget. The pages must outlive the preview.
    PropertyPagesPreview(const TablioWidget &edited, const PropertyPages &pages,
                         QWidget *parent = nullptr);

    /// Shows the edited table with what the pages have not applied yet, and which column is being
    /// edited if one is.
    void refresh(bool editsColumn);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    /// Room for the rows as they are now, and for the bar below them.
    void fitHeight();
    void showEditedColumn();

    const PropertyPages &pages_;
    TablioWidget *table_;
    QWidget *columnMark_;
    Twips fontRowHeight_ = 0;
};

} // namespace tablio::qt
