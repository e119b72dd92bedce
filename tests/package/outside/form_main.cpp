#include <tablio/testing/player.h>
#include <tablio/testing/qt_driver.h>

#include <QApplication>
#include <QLineEdit>
#include <QVBoxLayout>

/// A host's form: a customer above the order's lines, and no amount below 1.
class OrderForm final : public QWidget {
public:
    OrderForm() {
        auto *customer = new QLineEdit;
        auto *lines = new tablio::qt::TablioWidget;
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(customer);
        layout->addWidget(lines);
        lines->setColProperty(1, "Amount", 1500, lines->ColumnInput, lines->ColumnInteger);
        lines->setTextMatrix(1, 1, "12");
        connect(lines, &tablio::qt::TablioWidget::editPostValidation,
                [](int &, int &, bool &valid, QString &, QString &text, int &) {
                    valid = valid && text.toInt() > 0;
                });
    }
};

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    tablio::scenario::QtDriver driver([] { return std::make_unique<OrderForm>(); });
    return tablio::scenario::runScenarioFiles(driver, argc, argv);
}
