#include "SettingsDialogTest.h"

#include "WaitUntil.h"

#include "base/DpiTool.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>

SettingsDialogTest::SettingsDialogTest()
{
    gateway.stored = QStringLiteral("alpha\t0\nbeta\t0\ngamma\t0");
    services.chooseTheme = [this](Theme theme) {
        choices.append(QStringLiteral("theme %1").arg(static_cast<int>(theme)));
    };
    services.chooseScale = [this](int scale) {
        choices.append(QStringLiteral("scale %1").arg(scale));
        DpiTool::SetScale(scale / 100.0);
    };
    services.chooseLanguage = [this](const QString& language) {
        choices.append(QStringLiteral("language ") + language);
    };
    services.clearBrowsingData = [this](const std::function<void(bool)>& done) {
        choices.append(QStringLiteral("browsing"));
        done(true);
    };
    services.hasSavedSession = [] { return true; };
    services.forgetSession = [this](const std::function<void()>& done) {
        choices.append(QStringLiteral("session"));
        done();
    };
    services.clearCachedReplies = [this] { choices.append(QStringLiteral("replies")); };
    services.loadEvents = [] {
        const QDateTime time(QDate(2026, 11, 21), QTime(8, 0), Qt::UTC);
        return QVector<MonitorEvent>{{time, QStringLiteral("First"), QStringLiteral("Home"), {}},
                                     {time.addSecs(60),
                                      QStringLiteral("Second"),
                                      QStringLiteral("Home"),
                                      {QStringLiteral("<b>x</b>")}}};
    };
    services.clearEvents = [this] { choices.append(QStringLiteral("events")); };
    services.versions = {{QStringLiteral("Client"), QStringLiteral("0.1.0")}};
    services.loadPage = [this] { return rememberedPage; };
    services.savePage = [this](const QString& page) { rememberedPage = page; };
    services.loadGeometry = [this] { return rememberedGeometry; };
    services.saveGeometry = [this](const QByteArray& geometry) { rememberedGeometry = geometry; };
}

SettingsDialogTest::~SettingsDialogTest()
{
    dialog.reset();
    DpiTool::SetScale(1.0);
}

void SettingsDialogTest::Make()
{
    dialog = std::make_unique<SettingsDialog>(services, QVector<ISysSettingFactory*>{&factory});
}

void SettingsDialogTest::OpenWithoutAnswer()
{
    if (!dialog) {
        Make();
    }
    dialog->show();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    dialog->move(200, 150); // not where the mouse is
}

void SettingsDialogTest::Open()
{
    OpenWithoutAnswer();
    ASSERT_NE(Page(), nullptr);
    AnswerAll();
    ASSERT_EQ(Page()->GetRowCount(), 3);
    ASSERT_TRUE(WaitUntil([this] { return Page()->GetRow(2)->box->isVisible(); }));
}

void SettingsDialogTest::AnswerAll()
{
    while (gateway.GetWaiting() > 0) {
        gateway.Answer();
    }
}

QListWidget* SettingsDialogTest::List() const
{
    return dialog->findChild<QListWidget*>(QStringLiteral("settings_list"));
}

QStringList SettingsDialogTest::Titles() const
{
    QStringList titles;
    for (int i = 0; i < List()->count(); ++i) {
        if (!List()->item(i)->text().isEmpty()) {
            titles.append(List()->item(i)->text());
        }
    }
    return titles;
}

void SettingsDialogTest::Choose(const QString& title)
{
    const QList<QListWidgetItem*> items = List()->findItems(title, Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1) << qPrintable(title);
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      List()->visualItemRect(items.first()).center());
}

QWidget* SettingsDialogTest::Area() const
{
    return dialog->findChild<QStackedWidget*>(QStringLiteral("settings_stack"))->currentWidget();
}

QLabel* SettingsDialogTest::SaveLine() const
{
    return Area()->findChild<QLabel*>(QStringLiteral("settings_save_line"));
}

QWidget* SettingsDialogTest::Notice() const
{
    return Area()->findChild<QWidget*>(QStringLiteral("settings_notice"));
}

QString SettingsDialogTest::NoticeText() const
{
    return Notice()->isVisible()
               ? Notice()->findChild<QLabel*>(QStringLiteral("settings_notice_text"))->text()
               : QString();
}

void SettingsDialogTest::Tick(int row)
{
    QTest::mouseClick(Page()->GetRow(row)->box, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
}

void SettingsDialogTest::Type(const QString& text)
{
    QWidget* const search = dialog->findChild<QWidget*>(QStringLiteral("settings_search"));
    search->setFocus(Qt::OtherFocusReason);
    QTest::keyClicks(search, text);
}

void SettingsDialogTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : dialog.get(), key, modifiers);
}

void SettingsDialogTest::AnswerQuestion(const QString& button)
{
    auto* timer = new QTimer(dialog.get());
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, button] {
        QWidget* const question = QApplication::activeModalWidget();
        if (question == nullptr) {
            return;
        }
        const QList<QPushButton*> buttons = question->findChildren<QPushButton*>();
        for (QPushButton* const candidate : buttons) {
            if (candidate->text() == button) {
                timer->deleteLater();
                timer->stop();
                ++questions;
                QTest::mouseClick(candidate, Qt::LeftButton);
                return;
            }
        }
    });
    timer->start(10);
}
