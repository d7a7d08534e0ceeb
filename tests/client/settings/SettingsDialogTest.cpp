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
    m_gateway.stored = QStringLiteral("alpha\t0\nbeta\t0\ngamma\t0");
    m_services.chooseTheme = [this](Theme theme) {
        m_choices.append(QStringLiteral("theme %1").arg(static_cast<int>(theme)));
    };
    m_services.chooseScale = [this](int scale) {
        m_choices.append(QStringLiteral("scale %1").arg(scale));
        DpiTool::SetScale(scale / 100.0);
    };
    m_services.chooseLanguage = [this](const QString& language) {
        m_choices.append(QStringLiteral("language ") + language);
    };
    m_services.clearBrowsingData = [this](const std::function<void(bool)>& done) {
        m_choices.append(QStringLiteral("browsing"));
        done(true);
    };
    m_services.hasSavedSession = [] { return true; };
    m_services.forgetSession = [this](const std::function<void()>& done) {
        m_choices.append(QStringLiteral("session"));
        done();
    };
    m_services.clearCachedReplies = [this] { m_choices.append(QStringLiteral("replies")); };
    m_services.loadEvents = [] {
        const QDateTime time(QDate(2026, 11, 21), QTime(8, 0), Qt::UTC);
        return QVector<MonitorEvent>{{time, QStringLiteral("First"), QStringLiteral("Home"), {}},
                                     {time.addSecs(60),
                                      QStringLiteral("Second"),
                                      QStringLiteral("Home"),
                                      {QStringLiteral("<b>x</b>")}}};
    };
    m_services.clearEvents = [this] { m_choices.append(QStringLiteral("events")); };
    m_services.versions = {{QStringLiteral("Client"), QStringLiteral("0.1.0")}};
    m_services.loadPage = [this] { return m_rememberedPage; };
    m_services.savePage = [this](const QString& page) { m_rememberedPage = page; };
    m_services.loadGeometry = [this] { return m_rememberedGeometry; };
    m_services.saveGeometry = [this](const QByteArray& geometry) { m_rememberedGeometry = geometry; };
}

SettingsDialogTest::~SettingsDialogTest()
{
    m_dialog.reset();
    DpiTool::SetScale(1.0);
}

void SettingsDialogTest::Make()
{
    m_dialog = std::make_unique<SettingsDialog>(m_services, QVector<ISysSettingFactory*>{&m_factory});
}

void SettingsDialogTest::OpenWithoutAnswer()
{
    if (!m_dialog) {
        Make();
    }
    m_dialog->show();
    m_dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
    m_dialog->move(200, 150); // not where the mouse is
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
    while (m_gateway.GetWaiting() > 0) {
        m_gateway.Answer();
    }
}

QListWidget* SettingsDialogTest::List() const
{
    return m_dialog->findChild<QListWidget*>(QStringLiteral("settings_list"));
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
    return m_dialog->findChild<QStackedWidget*>(QStringLiteral("settings_stack"))->currentWidget();
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
    QWidget* const search = m_dialog->findChild<QWidget*>(QStringLiteral("settings_search"));
    search->setFocus(Qt::OtherFocusReason);
    QTest::keyClicks(search, text);
}

void SettingsDialogTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : m_dialog.get(), key, modifiers);
}

void SettingsDialogTest::AnswerQuestion(const QString& button)
{
    auto* timer = new QTimer(m_dialog.get());
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
                ++m_questions;
                QTest::mouseClick(candidate, Qt::LeftButton);
                return;
            }
        }
    });
    timer->start(10);
}
