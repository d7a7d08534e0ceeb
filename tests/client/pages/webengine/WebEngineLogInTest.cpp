#include "WebEngineFixture.h"

#include "pages/PageDialog.h"

#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace {

/// A site with a log-in of the protocol's own, and a user who answers it.
class WebEngineLogInTest : public WebEngineFixture
{
protected:
    WebEngineLogInTest()
    {
        m_server.SetPage(QStringLiteral("/orders"), "<title>Your orders</title>");
        m_server.Protect(QStringLiteral("/orders"), "ann:secret");
        QObject::connect(
            &m_watch, &QTimer::timeout, &m_watch, [this] { Answer(); }, Qt::QueuedConnection);
        m_watch.start(5);
    }

    /// Types the next of the names and passwords into the dialog; without one, Escape.
    void Answer()
    {
        auto* dialog = m_window->findChild<PageDialog*>();
        if (!dialog || !dialog->isVisible()) {
            return; // or answered already
        }
        ++m_asked;
        const auto labels = dialog->findChildren<QLabel*>();
        for (const QLabel* label : labels) {
            m_texts << label->text();
        }
        if (m_answers.isEmpty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        const QStringList answer = m_answers.takeFirst().split(QLatin1Char(':'));
        const auto fields = dialog->findChildren<QLineEdit*>();
        ASSERT_EQ(fields.size(), 2);
        QTest::keyClicks(fields.at(0), answer.at(0));
        QTest::keyClicks(fields.at(1), answer.at(1));
        QTest::keyClick(fields.at(1), Qt::Key_Return);
    }

    QTimer m_watch;
    QStringList m_answers;
    QStringList m_texts;
    int m_asked = 0;
};

} // namespace

TEST_F(WebEngineLogInTest, NameAndPasswordOpenThePage)
{
    m_answers = QStringList{QStringLiteral("ann:secret")};
    EXPECT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/orders"))));
    EXPECT_TRUE(WaitForTitle(1, QStringLiteral("Your orders")));
    EXPECT_EQ(m_asked, 1);
    EXPECT_TRUE(m_texts.contains(QStringLiteral("“127.0.0.1” asks for a user name and password.")));
    EXPECT_TRUE(m_texts.contains(QStringLiteral("Orders")));
    EXPECT_TRUE(m_texts.join(QLatin1Char(' ')).contains(QStringLiteral("not encrypted")));
}

TEST_F(WebEngineLogInTest, AWrongPasswordIsAskedForAgain)
{
    m_answers = QStringList{QStringLiteral("ann:wrong"), QStringLiteral("ann:secret")};
    EXPECT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/orders"))));
    EXPECT_TRUE(WaitForTitle(1, QStringLiteral("Your orders")));
    EXPECT_EQ(m_asked, 2);
}

TEST_F(WebEngineLogInTest, WhoDoesNotAnswerSeesWhatStrangersSee)
{
    QSignalSpy loaded(m_window.get(), &MainWindow::SigPageLoaded);
    Open(m_server.GetUrl(QStringLiteral("/orders")));
    ASSERT_TRUE(!loaded.isEmpty() || loaded.wait(Deadline));
    EXPECT_TRUE(WaitUntil([this] { return GetTitle(1) == QStringLiteral("stranger"); }));
    EXPECT_EQ(m_asked, 1);
}
