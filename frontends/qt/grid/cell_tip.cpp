#include "grid/cell_tip.h"

#include "widget/qt_text.h"
#include "widget/surroundings.h"

#include <QCoreApplication>

namespace tablio::qt {

namespace {

/// Takes a scene for the sake of its texts, and draws nothing.
class TextMeter final : public ScenePainter {
public:
    TextMeter(const QWidget &widget, CellFonts &fonts) : widget_(widget), fonts_(fonts) {}

    void fill(const PixelRect & /*area*/, Colour /*colour*/) override {}
    void tick(const SceneTick & /*tick*/) override {}
    void text(const SceneText &text) override {
        const CellFont &font = fonts_.of(text.font, widget_);
        const QString whole = toQString(text.text);
        const QSize room(text.inner.width, text.inner.height);
        const bool wraps = text.mayWrap && room.height() >= 2 * font.metrics.lineSpacing();
        const QSize needed =
            wraps ? font.metrics.boundingRect(QRect(QPoint(), room), Qt::TextWordWrap, whole).size()
                  : QSize(font.metrics.horizontalAdvance(whole), 0);
        if (needed.width() > room.width() || needed.height() > room.height())
            cut = whole;
    }

    QString cut;

private:
    const QWidget &widget_;
    CellFonts &fonts_;
};

} // namespace

QString tipAt(const QPoint &place, const Surroundings &around, CellFonts &fonts) {
    const Screen &screen = around.screen();
    const auto cell = screen.cellAt(place.x() * twipsPerPixel, place.y() * twipsPerPixel);
    if (!cell)
        return {};
    const DevicePixels pixels = around.pixels();
    const PixelRect area = pixels.rect(screen.cellRect(*cell));
    const PixelRect middle{area.left + area.width / 2, area.top + area.height / 2, 1, 1};
    fonts.setRatio(pixels.scale());
    TextMeter meter(around.owner, fonts);
    screen.paint({&middle, 1}, {around.palette(), pixels.scale(), false, true}, meter);
    if (screen.facts(*cell).isRefused)
        return QCoreApplication::translate("tablio::qt::TablioWidget", "The entry was refused.");
    return meter.cut;
}

} // namespace tablio::qt
