#include "SettingsDialogTest.h"

#include "WaitUntil.h"

#include "look/ScaleManager.h"
#include "monitoring/MonitorEventFile.h"

#include "look/LanguageManager.h"
#include "look/ThemeManager.h"

#include "base/DpiTool.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

namespace {

class PagesTest : public SettingsDialogTest
{
protected:
    template <class Widget>
    Widget* Find(const char* name) const
    {
        return m_dialog->findChild<Widget*>(QLatin1String(name));
    }
};

TEST_F(PagesTest, StandInTheOrderOfTheirGroups)
{
    Open();
    EXPECT_EQ(Titles(), (QStringList{QStringLiteral("Appearance"), QStringLiteral("Language"),
                                     QStringLiteral("Opening at start"), QStringLiteral("Privacy"),
                                     QStringLiteral("Monitoring"), QStringLiteral("About")}));
}

TEST_F(PagesTest, ASwitchedOffPageIsNotListedAndComesBackWithTheSwitch)
{
    m_factory.displayed = false;
    Make();
    OpenWithoutAnswer();
    EXPECT_FALSE(Titles().contains(QStringLiteral("Opening at start")));
    EXPECT_EQ(m_factory.made, 0);
    m_dialog->close();
    m_factory.displayed = true;
    Open();
    EXPECT_TRUE(Titles().contains(QStringLiteral("Opening at start")));
}

TEST_F(PagesTest, APageWithoutSearchWordsIsListedAndNotFoundByThem)
{
    m_factory.keywords.clear();
    Open();
    EXPECT_TRUE(Titles().contains(QStringLiteral("Opening at start")));
    Type(QStringLiteral("orders"));
    EXPECT_TRUE(Titles().isEmpty());
}

TEST_F(PagesTest, ThePageOfLastTimeIsTheFirstOneShown)
{
    Open();
    Choose(QStringLiteral("Privacy"));
    m_dialog->close();
    m_dialog.reset();
    Make();
    OpenWithoutAnswer();
    EXPECT_EQ(List()->currentItem()->text(), QStringLiteral("Privacy"));
}

TEST_F(PagesTest, APageOfLastTimeThatIsGoneGivesTheFirst)
{
    m_factory.displayed = false;
    Make();
    OpenWithoutAnswer();
    EXPECT_EQ(List()->currentItem()->text(), QStringLiteral("Appearance"));
}

TEST_F(PagesTest, TheSizeOfLastTimeIsRestored)
{
    Open();
    m_dialog->resize(700, 500);
    m_dialog->close();
    m_dialog.reset();
    Make();
    OpenWithoutAnswer();
    EXPECT_EQ(m_dialog->size(), QSize(700, 500));
}

TEST_F(PagesTest, AnInvalidGeometryGivesTheUsualSize)
{
    m_rememberedGeometry = QByteArray("nonsense");
    Make();
    OpenWithoutAnswer();
    EXPECT_GE(m_dialog->width(), 600);
}

TEST_F(PagesTest, GoingFromPageToPageLosesNothing)
{
    Open();
    const FakeSettingsPage* const before = Page();
    Choose(QStringLiteral("About"));
    Choose(QStringLiteral("Opening at start"));
    EXPECT_EQ(Page(), before);
    EXPECT_EQ(m_factory.made, 1);
}

TEST_F(PagesTest, APageIsReadyWhenItsRowsAreThereAndInputGoesToThem)
{
    Make();
    QSignalSpy ready(m_dialog.get(), &SettingsDialog::SigPageReady);
    bool visible = false;
    QObject::connect(m_dialog.get(), &SettingsDialog::SigPageReady, m_dialog.get(), [this, &visible] {
        visible = Page()->GetRowCount() == 3 && Page()->GetRow(2)->box->isVisible();
        Tick(0);
    });
    OpenWithoutAnswer();
    QCoreApplication::processEvents();
    EXPECT_EQ(ready.count(), 0) << "the gateway has not answered yet";
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([&ready] { return ready.count() == 1; }));
    EXPECT_EQ(ready.first().at(0).toString(), QStringLiteral("10,60"));
    EXPECT_FALSE(ready.first().at(1).toBool());
    EXPECT_TRUE(visible);
    EXPECT_TRUE(Page()->GetRow(0)->box->isChecked());
    AnswerAll();
}

TEST_F(PagesTest, ThemeAndLanguageAreChosenWithTheKeyboard)
{
    Open();
    Choose(QStringLiteral("Appearance"));
    Find<QComboBox>("theme_combo")->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Choose(QStringLiteral("Language"));
    Find<QComboBox>("language_combo")->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    EXPECT_EQ(m_choices, (QStringList{QStringLiteral("theme 1"), QStringLiteral("theme 2"),
                                      QStringLiteral("language zh_CN")}));
}

TEST_F(PagesTest, AChoiceMadeElsewhereShows)
{
    Open();
    Choose(QStringLiteral("Appearance"));
    m_dialog->SetTheme(Theme::Dark);
    m_dialog->SetScale(150);
    EXPECT_EQ(Find<QComboBox>("theme_combo")->currentText(), QStringLiteral("Dark"));
    EXPECT_EQ(Find<QComboBox>("scale_combo")->currentText(), QStringLiteral("150 %"));
    EXPECT_TRUE(m_choices.isEmpty());
}

TEST_F(PagesTest, TheDialogFollowsTheLanguageAndRebuildsTheModulesPage)
{
    Open();
    LanguageManager languages(QStringLiteral(TL_TRANSLATIONS_DIR));
    languages.Apply(QStringLiteral("zh_CN"));
    ASSERT_TRUE(WaitUntil([this] { return Titles().contains(QStringLiteral("启动时打开")); }));
    EXPECT_EQ(m_dialog->windowTitle(), QStringLiteral("设置"));
    EXPECT_EQ(Area()->findChild<QLabel*>(QStringLiteral("settings_page_title"))->text(),
              QStringLiteral("启动时打开"));
    EXPECT_TRUE(WaitUntil([this] { return m_factory.made == 2; }));
    languages.Apply(QStringLiteral("en"));
    EXPECT_TRUE(WaitUntil([this] { return Titles().contains(QStringLiteral("Opening at start")); }));
}

TEST_F(PagesTest, TheClientsOwnPagesFollowTheScaleInPlace)
{
    Open();
    Choose(QStringLiteral("Appearance"));
    auto* const theme = Find<QComboBox>("theme_combo");
    const int before = theme->sizeHint().height();
    DpiTool::SetScale(2.0);
    EXPECT_EQ(Find<QComboBox>("theme_combo"), theme);
    EXPECT_GT(theme->sizeHint().height(), before);
}

TEST_F(PagesTest, ScalesTheFontOfTheApplication)
{
    const QFont before = QApplication::font();
    {
        ScaleManager scales;
        const int size = QFontInfo(QApplication::font()).pixelSize();
        scales.Apply(200);
        EXPECT_EQ(QFontInfo(QApplication::font()).pixelSize(), 2 * size);
        EXPECT_EQ(scales.GetScale(), 200);
        scales.Apply(117);
        EXPECT_EQ(scales.GetScale(), 100);
        EXPECT_EQ(QFontInfo(QApplication::font()).pixelSize(), size);
    }
    QApplication::setFont(before);
}

TEST_F(PagesTest, LengthsInTheThemeFollowTheScale)
{
    ThemeManager themes;
    themes.Apply(Theme::Light);
    const QString before = qApp->styleSheet();
    EXPECT_FALSE(before.contains(QRegularExpression(QStringLiteral("\\d+dp\\b"))));
    EXPECT_TRUE(before.contains(QStringLiteral("min-height: 30px;")));
    DpiTool::SetScale(2.0);
    EXPECT_TRUE(qApp->styleSheet().contains(QStringLiteral("min-height: 60px;")));
    DpiTool::SetScale(1.0);
    EXPECT_EQ(qApp->styleSheet(), before);
    qApp->setStyleSheet(QString());
}

TEST_F(PagesTest, BrowsingDataIsClearedAfterAQuestion)
{
    Open();
    Choose(QStringLiteral("Privacy"));
    AnswerQuestion(QStringLiteral("Cancel"));
    QTest::mouseClick(Find<QPushButton>("clear_browsing_button"), Qt::LeftButton);
    EXPECT_TRUE(m_choices.isEmpty());
    AnswerQuestion(QStringLiteral("Clear"));
    QTest::mouseClick(Find<QPushButton>("clear_browsing_button"), Qt::LeftButton);
    EXPECT_EQ(m_choices, QStringList(QStringLiteral("browsing")));
    EXPECT_FALSE(Find<QPushButton>("clear_browsing_button")->isEnabled());
    EXPECT_EQ(Find<QPushButton>("clear_browsing_button")->text(), QStringLiteral("Cleared"));
}

TEST_F(PagesTest, DataThatCouldNotBeClearedCanBeTriedAgain)
{
    m_services.clearBrowsingData = [](const std::function<void(bool)>& done) { done(false); };
    Open();
    Choose(QStringLiteral("Privacy"));
    AnswerQuestion(QStringLiteral("Clear"));
    QTest::mouseClick(Find<QPushButton>("clear_browsing_button"), Qt::LeftButton);
    EXPECT_TRUE(Find<QPushButton>("clear_browsing_button")->isEnabled());
    EXPECT_EQ(Find<QPushButton>("clear_browsing_button")->text(), QStringLiteral("Try again"));
}

TEST_F(PagesTest, AnAnswerThatComesAfterTheDialogIsGoneDoesNoHarm)
{
    std::function<void(bool)> later;
    m_services.clearBrowsingData = [&later](const std::function<void(bool)>& done) { later = done; };
    Open();
    Choose(QStringLiteral("Privacy"));
    AnswerQuestion(QStringLiteral("Clear"));
    QTest::mouseClick(Find<QPushButton>("clear_browsing_button"), Qt::LeftButton);
    m_dialog.reset();
    ASSERT_TRUE(later);
    later(true);
}

TEST_F(PagesTest, SessionAndRepliesAreForgotten)
{
    Open();
    Choose(QStringLiteral("Privacy"));
    QTest::mouseClick(Find<QPushButton>("forget_session_button"), Qt::LeftButton);
    QTest::mouseClick(Find<QPushButton>("clear_replies_button"), Qt::LeftButton);
    EXPECT_EQ(m_choices, (QStringList{QStringLiteral("session"), QStringLiteral("replies")}));
}

TEST_F(PagesTest, WithoutASavedSessionThereIsNothingToForget)
{
    m_services.hasSavedSession = [] { return false; };
    Open();
    Choose(QStringLiteral("Privacy"));
    EXPECT_FALSE(Find<QPushButton>("forget_session_button")->isEnabled());
}

TEST_F(PagesTest, WhatTheClientCannotDoIsNotOffered)
{
    m_services.clearBrowsingData = {};
    m_services.forgetSession = {};
    m_services.clearCachedReplies = {};
    m_services.loadEvents = {};
    Open();
    EXPECT_EQ(Titles(), (QStringList{QStringLiteral("Appearance"), QStringLiteral("Language"),
                                     QStringLiteral("Opening at start"), QStringLiteral("About")}));
}

TEST_F(PagesTest, EventsStandInATableTheNewestFirst)
{
    Open();
    Choose(QStringLiteral("Monitoring"));
    const QAbstractItemModel* const model = Find<QAbstractItemView>("monitor_table")->model();
    ASSERT_EQ(model->rowCount(), 2);
    EXPECT_EQ(model->index(0, 1).data().toString(), QStringLiteral("Second"));
    EXPECT_EQ(model->index(0, 3).data().toString(), QStringLiteral("<b>x</b>"));
    EXPECT_EQ(model->index(0, 3).data(Qt::ToolTipRole).toString(),
              QStringLiteral("<p>&lt;b&gt;x&lt;/b&gt;</p>"));
}

TEST_F(PagesTest, ANewEventShowsAtOnceAndABunchIsReadOnce)
{
    QVector<MonitorEvent> events;
    int reads = 0;
    m_services.loadEvents = [&] {
        ++reads;
        return events;
    };
    Open();
    Choose(QStringLiteral("Monitoring"));
    reads = 0;
    events.append({QDateTime::currentDateTimeUtc(), QStringLiteral("New"), QStringLiteral("Home"), {}});
    for (int i = 0; i < 10; ++i) {
        m_dialog->UpdateEvents();
    }
    const QAbstractItemModel* const model = Find<QAbstractItemView>("monitor_table")->model();
    EXPECT_TRUE(WaitUntil([model] { return model->rowCount() == 1; }));
    EXPECT_EQ(reads, 1);
}

TEST_F(PagesTest, EventsAreReadFromFilesPastDamagedLines)
{
    const QTemporaryDir folder;
    const QString older = folder.filePath(QStringLiteral("events.1.jsonl"));
    const QString newer = folder.filePath(QStringLiteral("events.jsonl"));
    QFile first(older);
    ASSERT_TRUE(first.open(QIODevice::WriteOnly));
    first.write(R"({"time":"2026-11-21T08:00:00.000Z","id":"A","page":"P","parameters":["x","y"]})"
                "\nnot json\n{}\n[1]\n");
    first.close();
    QFile second(newer);
    ASSERT_TRUE(second.open(QIODevice::WriteOnly));
    second.write(R"({"time":"2026-11-21T08:00:01.000Z","id":"B","page":"P","parameters":[]})"
                 "\n"
                 R"({"time":"2026-11-21T08:00:02.000Z","id":"C","pa)");
    second.close();
    const QVector<MonitorEvent> events =
        MonitorEventFile::Load({older, newer, folder.filePath(QStringLiteral("missing"))});
    ASSERT_EQ(events.size(), 2);
    EXPECT_EQ(events.at(0).id, QStringLiteral("A"));
    EXPECT_EQ(events.at(0).parameters, (QStringList{QStringLiteral("x"), QStringLiteral("y")}));
    EXPECT_EQ(events.at(0).time, QDateTime(QDate(2026, 11, 21), QTime(8, 0), Qt::UTC));
    EXPECT_EQ(events.at(1).id, QStringLiteral("B"));
    EXPECT_EQ(MonitorEventFile::Load({older, newer}, 1).first().id, QStringLiteral("B"));
}

TEST_F(PagesTest, TheArrowsStepOverTheGapsBetweenGroups)
{
    m_rememberedPage = QStringLiteral("1,20");
    Make();
    OpenWithoutAnswer();
    List()->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    EXPECT_EQ(List()->currentItem()->text(), QStringLiteral("Opening at start"));
    Press(Qt::Key_Up);
    EXPECT_EQ(List()->currentItem()->text(), QStringLiteral("Language"));
}

TEST_F(PagesTest, OpeningEditingAndClosingLeavesNothingBehind)
{
    const auto cycle = [this] {
        m_rememberedPage = QStringLiteral("10,60");
        Open();
        Tick(0);
        AnswerAll();
        Choose(QStringLiteral("Monitoring"));
        m_dialog->close();
        EXPECT_FALSE(m_dialog->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    };
    for (int i = 0; i < 3; ++i) {
        cycle();
    }
    const int before = QApplication::allWidgets().size();
    for (int i = 0; i < 200; ++i) {
        cycle();
    }
    EXPECT_EQ(QApplication::allWidgets().size(), before);
    EXPECT_TRUE(m_factory.page.isNull());
}

TEST_F(PagesTest, TheLicencesAreThere)
{
    Open();
    Choose(QStringLiteral("About"));
    const QString text = Find<QPlainTextEdit>("licences_text")->toPlainText();
    for (const char* part : {"Qt WebEngine", "QtKeychain", "GNU LESSER GENERAL PUBLIC LICENSE"}) {
        EXPECT_TRUE(text.contains(QLatin1String(part))) << part;
    }
}

} // namespace
