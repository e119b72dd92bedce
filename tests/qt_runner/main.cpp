/// `tablio_qt_scenarios FILE…` plays scenario files against the Qt widget with native events.

#include <tablio/testing/player.h>
#include <tablio/testing/qt_driver.h>

#include <QApplication>
#include <QProxyStyle>
#include <QStyleFactory>

namespace {

/// Scroll bars take no room, so that the grid has the size that a scenario asks for.
class BareStyle final : public QProxyStyle {
public:
    BareStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}
    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override {
        return metric == PM_ScrollBarExtent ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setStyle(new BareStyle);
    QApplication::setQuitOnLastWindowClosed(false);
    tablio::scenario::QtDriver driver;
    return tablio::scenario::runScenarioFiles(driver, argc, argv);
}
