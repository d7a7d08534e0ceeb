#include "MainWindowTest.h"

#include "MessagePage.h"
#include "notices/NoticeBar.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include <algorithm>

class PageEventsTest : public MainWindowTest
{
protected:
    PageEventsTest()
    {
        OpenUrl(QStringLiteral("https://a.example/x"));
        m_window->SelectTab(1);
    }
    FakePage& GetPage(int number = 0) { return *m_pages.pages.at(number); }
    MessagePage* GetMessagePage()
    {
        const auto messages = m_window->findChildren<MessagePage*>();
        for (MessagePage* message : messages) {
            if (message->isVisible()) {
                return message;
            }
        }
        return nullptr;
    }
    void TypeAddress(const QString& address)
    {
        QTest::keyClick(m_window.get(), Qt::Key_L, Qt::ControlModifier);
        auto* bar = m_window->findChild<QLineEdit*>(QStringLiteral("address_bar"));
        QTest::keyClicks(bar, address);
        QTest::keyClick(bar, Qt::Key_Return);
    }
    /// The visible notice button with this text.
    QPushButton* GetNoticeButton(const QString& text)
    {
        QCoreApplication::processEvents(); // buttons that replace others show with the next turn
        const auto buttons = m_window->findChildren<QPushButton*>(QStringLiteral("notice_button"));
        for (QPushButton* button : buttons) {
            if (button->isVisible() && button->text() == text) {
                return button;
            }
        }
        return nullptr;
    }
};

TEST_F(PageEventsTest, AFailureSaysWhatHappenedAndTriesAgain)
{
    QSignalSpy loaded(m_window.get(), &MainWindow::SigPageLoaded);
    GetPage().Fail(PageFailure::Kind::ConnectionRefused, QUrl(QStringLiteral("https://a.example/x")));
    EXPECT_EQ(loaded.value(0), QVariantList({1, QStringLiteral("https://a.example/x"), false}));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("The site refused the connection"));
    EXPECT_EQ(GetMessage().value(2), QStringLiteral("https://a.example/x"));
    EXPECT_EQ(GetRouterUrl(1), QStringLiteral("tl://browser/open?url=https%3A%2F%2Fa.example%2Fx"));

    QTest::mouseClick(GetMessagePage()->GetButton(), Qt::LeftButton);
    EXPECT_EQ(GetPage().loads.size(), 2);
    EXPECT_FALSE(GetMessage().isEmpty()) << "the message went before there is a page";
    GetPage().Arrive(QUrl(QStringLiteral("https://a.example/x")), QStringLiteral("X"));
    EXPECT_TRUE(GetMessage().isEmpty());
    EXPECT_EQ(GetData(1).GetTitle(), QStringLiteral("X"));
}

TEST_F(PageEventsTest, EveryKindOfFailureHasWordsOfItsOwn)
{
    using Kind = PageFailure::Kind;
    QStringList headlines;
    for (const Kind kind :
         {Kind::Unknown, Kind::HostNotFound, Kind::ConnectionRefused, Kind::TimedOut, Kind::Certificate,
          Kind::NoNetwork, Kind::ConnectionLost, Kind::TooManyRedirects, Kind::HttpError, Kind::Blocked}) {
        GetPage().Start();
        GetPage().Fail(kind, QUrl(QStringLiteral("https://a.example/x")));
        headlines << GetMessage().value(0);
        EXPECT_FALSE(GetMessage().value(1).isEmpty());
    }
    EXPECT_EQ(headlines.removeDuplicates(), 0);
    EXPECT_FALSE(headlines.contains(QString()));
}

TEST_F(PageEventsTest, APageThatBeginsToShowTakesTheMessageAway)
{
    GetPage().Fail(PageFailure::Kind::TimedOut, QUrl(QStringLiteral("https://a.example/x")));
    GetPage().Start();
    EXPECT_FALSE(GetMessage().isEmpty());
    Q_EMIT GetPage().SigContentArrived();
    EXPECT_TRUE(GetMessage().isEmpty());
}

TEST_F(PageEventsTest, AStoppedLoadIsNoFailure)
{
    GetPage().Stop();
    EXPECT_TRUE(GetMessage().isEmpty());
}

TEST_F(PageEventsTest, ADeadRendererIsShownWithAWayOut)
{
    GetPage().Arrive(QUrl(QStringLiteral("https://a.example/x")), QStringLiteral("X"));
    Q_EMIT GetPage().SigRendererDied();
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("This page has stopped working"));
    EXPECT_EQ(m_window->GetTabCount(), 2);
    QTest::mouseClick(GetMessagePage()->GetButton(), Qt::LeftButton);
    EXPECT_EQ(GetPage().reloads, 1);
}

TEST_F(PageEventsTest, IdleIsAnnouncedOnceWhenTheLastPageHasLoaded)
{
    OpenUrl(QStringLiteral("https://b.example/"));
    QSignalSpy idle(m_window.get(), &MainWindow::SigIdle);
    GetPage(0).Arrive(QUrl(QStringLiteral("https://a.example/x")), QStringLiteral("X"));
    EXPECT_TRUE(m_window->IsLoading());
    EXPECT_TRUE(idle.isEmpty());
    GetPage(1).Fail(PageFailure::Kind::TimedOut, QUrl(QStringLiteral("https://b.example/")));
    EXPECT_FALSE(m_window->IsLoading());
    EXPECT_EQ(idle.size(), 1);
}

TEST_F(PageEventsTest, ClosingTheLastLoadingTabIsIdleToo)
{
    QSignalSpy idle(m_window.get(), &MainWindow::SigIdle);
    m_window->CloseTab(1);
    EXPECT_EQ(idle.size(), 1);
}

TEST_F(PageEventsTest, APopUpBecomesATabNextToItsOpener)
{
    OpenUrl(QStringLiteral("https://b.example/"));
    const auto ask = [this](ITabPage::NewTabKind kind) {
        auto offer = std::make_shared<std::unique_ptr<ITabPage>>(m_pages.CreatePage(nullptr));
        Q_EMIT GetPage(0).SigNewTabRequested(offer, kind);
        return *offer == nullptr;
    };
    EXPECT_TRUE(ask(ITabPage::NewTabKind::Background));
    EXPECT_EQ(m_window->GetTabCount(), 4);
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
    EXPECT_EQ(m_window->GetTabAddress(3), QStringLiteral("https://b.example/"));
    EXPECT_TRUE(ask(ITabPage::NewTabKind::Foreground));
    EXPECT_EQ(m_window->GetCurrentTab(), 2);
    GetPage(3).Arrive(QUrl(QStringLiteral("https://pop.example/")), QStringLiteral("Pop"));
    EXPECT_EQ(GetData(2).GetTitle(), QStringLiteral("Pop"));
    Q_EMIT GetPage(3).SigCloseRequested();
    EXPECT_EQ(m_window->GetTabCount(), 4);
}

TEST_F(PageEventsTest, APermissionIsAskedInABarAndDeniedWhenTheBarIsClosed)
{
    QList<bool> answers;
    PermissionRequest request;
    request.kind = PermissionRequest::Kind::Location;
    request.origin = QUrl(QStringLiteral("https://map.example/"));
    request.answer = [&answers](bool allow) { answers << allow; };

    Q_EMIT GetPage().SigPermissionRequested(request);
    EXPECT_TRUE(answers.isEmpty());
    ASSERT_NE(GetNoticeButton(QStringLiteral("Allow")), nullptr);
    QTest::mouseClick(GetNoticeButton(QStringLiteral("Allow")), Qt::LeftButton);
    EXPECT_EQ(answers, QList<bool>({true}));

    Q_EMIT GetPage().SigPermissionRequested(request);
    QTest::mouseClick(GetNoticeButton(QStringLiteral("Do not allow")), Qt::LeftButton);
    Q_EMIT GetPage().SigPermissionRequested(request);
    const auto closers = m_window->findChildren<QToolButton*>(QStringLiteral("notice_close"));
    for (QToolButton* closer : closers) {
        if (closer->isVisible()) {
            QTest::mouseClick(closer, Qt::LeftButton);
        }
    }
    EXPECT_EQ(answers, QList<bool>({true, false, false}));
}

TEST_F(PageEventsTest, TwoSitesInOnePageGetSeparateAnswers)
{
    QStringList answers;
    PermissionRequest request;
    request.kind = PermissionRequest::Kind::Location;
    for (const QString& host : {QStringLiteral("map.example"), QStringLiteral("frame.example")}) {
        request.origin = QUrl(QStringLiteral("https://%1/").arg(host));
        request.answer = [&answers, host](bool allow) {
            answers << QStringLiteral("%1 %2").arg(host).arg(allow);
        };
        Q_EMIT GetPage().SigPermissionRequested(request);
    }
    QTest::mouseClick(GetNoticeButton(QStringLiteral("Allow")), Qt::LeftButton);
    QTest::mouseClick(GetNoticeButton(QStringLiteral("Do not allow")), Qt::LeftButton);
    EXPECT_EQ(answers, QStringList({QStringLiteral("map.example 1"), QStringLiteral("frame.example 0")}));
}

TEST_F(PageEventsTest, AQuestionGoesWithThePageThatAsked)
{
    GetPage().Arrive(QUrl(QStringLiteral("https://map.example/")), QStringLiteral("Map"));
    PermissionRequest request;
    request.origin = QUrl(QStringLiteral("https://map.example/"));
    bool answered = false;
    request.answer = [&answered](bool) { answered = true; };
    Q_EMIT GetPage().SigPermissionRequested(request);
    GetPage().Arrive(QUrl(QStringLiteral("https://map.example/#here")), QStringLiteral("Map"));
    EXPECT_NE(GetNoticeButton(QStringLiteral("Allow")), nullptr) << "the page is still there";
    GetPage().Arrive(QUrl(QStringLiteral("https://other.example/")), QStringLiteral("Other"));
    EXPECT_EQ(GetNoticeButton(QStringLiteral("Allow")), nullptr);
    EXPECT_FALSE(answered) << "a refusal that nobody spoke would be remembered";
}

TEST_F(PageEventsTest, AQuestionGoesAlsoWhenTheUserTypesAnotherAddress)
{
    GetPage().Arrive(QUrl(QStringLiteral("https://map.example/")), QStringLiteral("Map"));
    PermissionRequest request;
    request.kind = PermissionRequest::Kind::Camera;
    request.origin = QUrl(QStringLiteral("https://map.example/"));
    int answers = 0;
    int withdrawals = 0;
    request.answer = [&answers](bool) { ++answers; };
    request.withdraw = [&withdrawals] { ++withdrawals; };
    Q_EMIT GetPage().SigPermissionRequested(request);
    Q_EMIT GetPage().SigPermissionRequested(request);
    TypeAddress(QStringLiteral("https://other.example/"));
    EXPECT_NE(GetNoticeButton(QStringLiteral("Allow")), nullptr) << "the page is still there";
    GetPage().Arrive(QUrl(QStringLiteral("https://other.example/")), QStringLiteral("Other"));
    EXPECT_EQ(GetNoticeButton(QStringLiteral("Allow")), nullptr);
    EXPECT_EQ(withdrawals, 2) << "the engine waits for an answer";
    EXPECT_EQ(answers, 0);

    // Answered is answered.
    Q_EMIT GetPage().SigPermissionRequested(request);
    Q_EMIT GetPage().SigPermissionRequested(request);
    QTest::mouseClick(GetNoticeButton(QStringLiteral("Allow")), Qt::LeftButton);
    EXPECT_EQ(answers, 2);
    GetPage().Arrive(QUrl(QStringLiteral("https://map.example/")), QStringLiteral("Map"));
    EXPECT_EQ(withdrawals, 2);

    Q_EMIT GetPage().SigPermissionRequested(request);
    Q_EMIT GetPage().SigRendererDied();
    EXPECT_EQ(GetNoticeButton(QStringLiteral("Allow")), nullptr);
    EXPECT_EQ(withdrawals, 3);
}

TEST_F(PageEventsTest, AQuestionAboutAnotherProgramGoesWithThePage)
{
    GetPage().Arrive(QUrl(QStringLiteral("https://a.example/contact")), QStringLiteral("Contact"));
    Q_EMIT GetPage().SigExternalRequested(QUrl(QStringLiteral("mailto:a@b.example")));
    GetPage().Arrive(QUrl(QStringLiteral("https://a.example/contact#")), QStringLiteral("Contact"));
    EXPECT_NE(GetNoticeButton(QStringLiteral("Open")), nullptr) << "the page is still there";
    GetPage().Arrive(QUrl(QStringLiteral("https://a.example/home")), QStringLiteral("Home"));
    EXPECT_EQ(GetNoticeButton(QStringLiteral("Open")), nullptr);
}

TEST_F(PageEventsTest, ABlockedAddressIsNamedAndThePageStays)
{
    Q_EMIT GetPage().SigBlocked(QUrl(QStringLiteral("file:///etc/passwd")));
    bool named = false;
    const auto bars = m_window->findChildren<NoticeBar*>();
    for (const NoticeBar* bar : bars) {
        named =
            named || bar->GetText(QStringLiteral("blocked")).contains(QStringLiteral("file:///etc/passwd"));
    }
    EXPECT_TRUE(named);
    EXPECT_TRUE(GetMessage().isEmpty());
}

TEST_F(PageEventsTest, FullScreenHidesTheToolsAndEscapeLeavesIt)
{
    Q_EMIT GetPage().SigFullScreenRequested(true);
    EXPECT_TRUE(m_window->isFullScreen());
    EXPECT_FALSE(m_window->findChild<QWidget*>(QStringLiteral("toolbar"))->isVisible());
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    EXPECT_FALSE(m_window->isFullScreen());
    EXPECT_TRUE(m_window->findChild<QWidget*>(QStringLiteral("toolbar"))->isVisible());
}

TEST_F(PageEventsTest, ATabInTheBackgroundCannotTakeTheScreen)
{
    m_window->SelectTab(0);
    Q_EMIT GetPage().SigFullScreenRequested(true);
    EXPECT_FALSE(m_window->isFullScreen());
}

TEST_F(PageEventsTest, TheCloseGuardKeepsTheWindowOpen)
{
    QSignalSpy quit(m_window.get(), &MainWindow::SigQuitRequested);
    bool mayClose = false;
    m_window->SetCloseGuard([&mayClose] { return mayClose; });
    EXPECT_FALSE(m_window->close());
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(quit.size(), 1);
    mayClose = true;
    EXPECT_TRUE(m_window->close());
    EXPECT_EQ(quit.size(), 1);
}

TEST_F(PageEventsTest, AReceiverMayCloseTheTabThatIsAnnounced)
{
    QObject::connect(m_window.get(), &MainWindow::SigPageLoaded, m_window.get(),
                     [this](int index) { m_window->CloseTab(index); });
    GetPage().Arrive(QUrl(QStringLiteral("https://a.example/x")), QStringLiteral("X"));
    EXPECT_EQ(m_window->GetTabCount(), 1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_pages.CountAlive() == 0; }));
}

TEST_F(PageEventsTest, WhatAPageMadeByItselfDoesNotTakeThePlaceOfItsAddress)
{
    const QString routerUrl = GetRouterUrl(1);
    GetPage().Arrive(QUrl(QStringLiteral("blob:https://a.example/0f3c")), QStringLiteral("Invoice"));
    EXPECT_EQ(GetRouterUrl(1), routerUrl) << "a blob is gone with the page, and the tab could not come back";
    m_window->CloseTab(1);
    QTest::keyClick(m_window.get(), Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(m_window->GetTabCount(), 2);
    EXPECT_EQ(GetRouterUrl(1), routerUrl);
    GetPage(1).Arrive(QUrl(QStringLiteral("https://a.example/y")), QStringLiteral("Y"));
    EXPECT_NE(GetRouterUrl(1), routerUrl);
}

TEST_F(PageEventsTest, ALookalikeHostIsShownAsAsciiInAPermissionQuestion)
{
    PermissionRequest request;
    request.kind = PermissionRequest::Kind::Camera;
    request.origin = QUrl(QString::fromUtf8("https://\xd0\xb0pple.com/")); // begins with a Cyrillic letter
    request.answer = [](bool) {};
    Q_EMIT GetPage().SigPermissionRequested(request);
    const auto labels = m_window->findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.cbegin(), labels.cend(), [](const QLabel* label) {
        return label->isVisible() && label->text().startsWith(QStringLiteral("xn--pple-43d.com wants"));
    }));
}
