#include "pages_dialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <stdexcept>

PagesDialog::PagesDialog(QDialog *dialog) : dialog_(dialog) {
    dialog->activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(dialog));
}

void PagesDialog::play(const QString &steps) const {
    for (const QString &step : steps.split(QStringLiteral("; "))) {
        const QString name = step.section(u'=', 0, 0);
        const QString value = step.section(u'=', 1);
        auto *widget = dialog_->findChild<QWidget *>(name);
        if (widget != nullptr)
            widget->setFocus();
        if (auto *list = qobject_cast<QComboBox *>(widget)) {
            QTest::keyClick(list, Qt::Key_Home);
            for (int tries = list->count(); list->currentText() != value && tries > 0; --tries)
                QTest::keyClick(list, Qt::Key_Down);
        } else if (auto *box = qobject_cast<QLineEdit *>(widget)) {
            box->selectAll();
            QTest::keyClick(box, Qt::Key_Backspace);
            for (const QChar character : value) {
                QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, {}, QString(character));
                QCoreApplication::sendEvent(box, &press);
            }
        } else if (qobject_cast<QAbstractButton *>(widget) != nullptr) {
            QTest::keyClick(widget, Qt::Key_Space);
        } else if (name == "page") {
            dialog_->findChild<QTabWidget *>()->setCurrentIndex(value.toInt());
        } else if (name == "apply") {
            const auto *buttons = dialog_->findChild<QDialogButtonBox *>();
            QTest::mouseClick(buttons->button(QDialogButtonBox::Apply), Qt::LeftButton);
        } else if (name == "ok") {
            QTest::keyClick(dialog_->windowHandle(), Qt::Key_Return);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        } else if (name == "Tab") {
            QTest::keyClick(dialog_->windowHandle(), Qt::Key_Tab);
        } else {
            throw std::runtime_error("the pages have no " + name.toStdString());
        }
    }
}

QString PagesDialog::text(const char *name) const {
    const auto *list = dialog_->findChild<QComboBox *>(QLatin1String(name));
    return list != nullptr ? list->currentText()
                           : dialog_->findChild<QLineEdit *>(QLatin1String(name))->text();
}

QByteArray PagesDialog::preview() const {
    QCoreApplication::processEvents();
    for (const QWidget *widget : dialog_->findChildren<QWidget *>()) {
        if (widget->inherits("tablio::qt::TablioWidget"))
            return widget->property("settings").toByteArray();
    }
    return {};
}
