#include "PreviewSteps.h"

#include "PreviewGateway.h"

#include "settings/SettingsDialog.h"

#include "base-ui/KeyboardAccess.h"
#include "frame-core/SettingItemBaseWidget.h"

#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStackedWidget>

#include <cstdlib>

namespace {

constexpr int Between = 350; // [ms], for what is animated

} // namespace

PreviewSteps::PreviewSteps(SettingsDialog* dialog, PreviewGateway* gateway, const QStringList& steps,
                           const QString& picture, QObject* parent)
    : QObject(parent), m_dialog(dialog), m_gateway(gateway), m_steps(steps), m_picture(picture)
{
    const QRect screen = QApplication::primaryScreen()->geometry();
    QCursor::setPos(screen.bottomRight()); // out of the way
    QTimer::singleShot(2 * Between, this, &PreviewSteps::Next);
}

PreviewSteps::~PreviewSteps() = default;

void PreviewSteps::Next()
{
    if (!m_dialog->windowHandle()->isExposed()) {
        QTimer::singleShot(Between, this, &PreviewSteps::Next);
        return;
    }
    if (m_steps.isEmpty()) {
        if (!m_picture.isEmpty()) {
            Finish();
        }
        return;
    }
    const QString step = m_steps.takeFirst();
    // First, as a step may open a dialog that waits in an event loop of its own.
    const int wait = step.startsWith(QLatin1String("wait:")) ? step.mid(5).toInt() : Between;
    QTimer::singleShot(wait, this, &PreviewSteps::Next);
    Do(step.section(QLatin1Char(':'), 0, 0), step.section(QLatin1Char(':'), 1));
}

void PreviewSteps::Do(const QString& action, const QString& argument)
{
    if (action == QLatin1String("hover")) {
        if (QWidget* const row = Row(argument.toInt())) {
            QCursor::setPos(row->mapToGlobal(QPoint(row->width() / 2, row->height() / 2)));
        }
    } else if (action == QLatin1String("tick")) {
        if (QWidget* const row = Row(argument.toInt())) {
            QWidget* const box = row->findChild<QWidget*>(QStringLiteral("checkBox"));
            QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier,
                              QPoint(box->width() / 2, box->height() / 2));
        }
    } else if (action == QLatin1String("click")) {
        if (QWidget* const widget = Find(argument)) {
            QTest::mouseClick(widget, Qt::LeftButton);
        }
    } else if (action == QLatin1String("edit")) {
        if (QWidget* const row = Row(argument.toInt())) {
            QCursor::setPos(row->mapToGlobal(QPoint(row->width() / 2, row->height() / 2)));
            if (QWidget* const button = row->findChild<QWidget*>(QStringLiteral("edit_button"))) {
                QTest::mouseClick(button, Qt::LeftButton);
            }
        }
    } else if (action == QLatin1String("type")) {
        if (QWidget* const focus = QApplication::focusWidget()) {
            QTest::keyClicks(focus, argument);
        }
    } else if (action == QLatin1String("tab")) {
        for (int i = argument.toInt(); i > 0 && QApplication::focusWidget() != nullptr; --i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
    } else if (action == QLatin1String("key")) {
        QWidget* const popup = QApplication::activePopupWidget();
        QWidget* const target = popup != nullptr ? popup : QApplication::focusWidget();
        const int key = QKeySequence(argument)[0];
        if (target != nullptr) {
            QTest::keyClick(target, static_cast<Qt::Key>(key));
        }
    } else if (action == QLatin1String("focus")) {
        if (QWidget* const widget = Find(argument)) {
            widget->setFocus(Qt::TabFocusReason);
        }
    } else if (action == QLatin1String("fail")) {
        m_gateway->failures = 1;
    }
}

QWidget* PreviewSteps::Find(const QString& name) const
{
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const in = modal != nullptr ? modal : m_dialog;
    const QList<QWidget*> found = in->findChildren<QWidget*>(name);
    for (QWidget* const widget : found) {
        if (widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

QWidget* PreviewSteps::Row(int index) const
{
    QVector<QWidget*> rows;
    const QVector<QWidget*> order =
        KeyboardAccess::GetReadingOrder(m_dialog->findChild<QStackedWidget*>()->currentWidget());
    for (QWidget* const widget : order) {
        const auto* const part = qobject_cast<SettingItemBaseWidget*>(widget);
        if (part != nullptr && part->findChild<SettingItemBaseWidget*>() == nullptr && part->isVisible()) {
            rows.append(widget);
        }
    }
    return rows.value(index);
}

void PreviewSteps::Finish()
{
    const QPixmap screen = QApplication::primaryScreen()->grabWindow(0);
    const QRect part = m_dialog->frameGeometry().intersected(screen.rect());
    if (!screen.copy(part).save(m_picture)) {
        qFatal("The picture %s could not be written", qPrintable(m_picture));
    }
    // A dialog of the page may stand in an event loop of its own.
    std::_Exit(0);
}
