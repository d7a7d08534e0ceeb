#include "SettingsDialogTest.h"

#include "WaitUntil.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <algorithm>

namespace {

class SearchTest : public SettingsDialogTest
{
protected:
    /// Whether the pause that counts as the end of typing is over, and nothing is planned.
    bool IsQuiet() const
    {
        const QList<QTimer*> timers = Area()->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        return std::none_of(timers.begin(), timers.end(),
                            [](const QTimer* timer) { return timer->isActive(); });
    }
};

TEST_F(SearchTest, FindsAPageByTheSearchWordsOfItsModule)
{
    m_rememberedPage = QStringLiteral("1,10");
    Make();
    OpenWithoutAnswer();
    EXPECT_EQ(m_factory.made, 0);
    Type(QStringLiteral("ORDERS"));
    EXPECT_EQ(Titles(), QStringList(QStringLiteral("Opening at start")));
    ASSERT_NE(Page(), nullptr) << "the page found is shown at once";
    EXPECT_EQ(Page()->keyword, QStringLiteral("ORDERS"));
}

TEST_F(SearchTest, FindsTheClientsOwnPages)
{
    Open();
    Type(QStringLiteral("cookie"));
    EXPECT_EQ(Titles(), QStringList(QStringLiteral("Privacy")));
    Press(Qt::Key_Escape);
    EXPECT_TRUE(m_dialog->isVisible()) << "the first Escape empties the search";
    EXPECT_EQ(Titles().size(), 6);
    Type(QStringLiteral("dark"));
    EXPECT_EQ(Titles(), QStringList(QStringLiteral("Appearance")));
}

TEST_F(SearchTest, ThePageIsRebuiltSoThatItsRowsLearnTheWord)
{
    Open();
    Type(QStringLiteral("orders"));
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    AnswerAll();
    EXPECT_EQ(Page()->GetRow(0)->keyword, QStringLiteral("orders"));
}

TEST_F(SearchTest, TypingMakesThePageOnceNotWithEveryLetter)
{
    Open();
    Type(QStringLiteral("orders.ex"));
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2; }));
    AnswerAll();
    ASSERT_TRUE(WaitUntil([this] { return IsQuiet(); }));
    EXPECT_EQ(m_factory.made, 2);
    EXPECT_EQ(Page()->keyword, QStringLiteral("orders.ex"));
}

TEST_F(SearchTest, AnEmptiedSearchTakesTheWordAway)
{
    Open();
    Type(QStringLiteral("orders"));
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 2 && m_gateway.GetWaiting() == 1; }));
    AnswerAll();
    Press(Qt::Key_Escape);
    EXPECT_EQ(Page()->keyword, QString());
    ASSERT_TRUE(WaitUntil([this] { return m_factory.made == 3 && m_gateway.GetWaiting() == 1; }));
    AnswerAll();
    EXPECT_EQ(Page()->GetRow(0)->keyword, QString());
}

TEST_F(SearchTest, AChangeThatIsNotSavedIsNotDroppedForASearch)
{
    Open();
    m_gateway.failures = 1;
    Tick(0);
    m_gateway.Answer();
    Type(QStringLiteral("orders"));
    ASSERT_TRUE(WaitUntil([this] { return IsQuiet(); }));
    EXPECT_EQ(m_factory.made, 1);
    EXPECT_EQ(Page()->keyword, QStringLiteral("orders"));
    EXPECT_TRUE(NoticeText().startsWith(QStringLiteral("Not saved.")));
}

TEST_F(SearchTest, SaysThatNothingIsFoundAndKeepsThePageInFront)
{
    Open();
    Type(QStringLiteral("zzz"));
    EXPECT_TRUE(Titles().isEmpty());
    EXPECT_TRUE(m_dialog->findChild<QWidget*>(QStringLiteral("settings_nothing"))->isVisible());
    EXPECT_NE(Page(), nullptr);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Titles().size(), 6);
}

TEST_F(SearchTest, SpacesAroundTheWordDoNotCount)
{
    Open();
    Type(QStringLiteral("  cookie "));
    EXPECT_EQ(Titles(), QStringList(QStringLiteral("Privacy")));
}

TEST_F(SearchTest, ControlFComesBackToTheSearch)
{
    Open();
    Page()->GetRow(0)->box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("settings_search"));
}

TEST_F(SearchTest, EnterAndDownGoOnToThePagesFound)
{
    Open();
    Type(QStringLiteral("cookie"));
    Press(Qt::Key_Return);
    EXPECT_TRUE(List()->hasFocus());
    EXPECT_TRUE(m_dialog->isVisible());
}

} // namespace
