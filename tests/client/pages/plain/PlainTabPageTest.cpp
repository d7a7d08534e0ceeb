#include "PlainPageContent.h"
#include "PlainPageView.h"
#include "plain/PlainPageFactory.h"

#include "ScriptedHttpServer.h"
#include "WaitUntil.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QDesktopServices>
#include <QtGui/QFontInfo>
#include <QtNetwork/QTcpServer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

#include <gtest/gtest.h>

namespace {

/// Notes the addresses that would open in the system's browser.
class OpenedAddresses final : public QObject
{
    Q_OBJECT

public:
    OpenedAddresses() { QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "Note"); }
    ~OpenedAddresses() override { QDesktopServices::unsetUrlHandler(QStringLiteral("http")); }

    QList<QUrl> addresses;

public Q_SLOTS:
    void Note(const QUrl& url) { addresses << url; }
};

class PlainTabPageTest : public ::testing::Test
{
protected:
    PlainTabPageTest() : factory(QStringLiteral("en")), page(factory.CreatePage(nullptr))
    {
        QObject::connect(page.get(), &ITabPage::SigFailed, page.get(),
                         [this](const PageFailure& failure) { failures << failure; });
    }

    void Load(const QUrl& url)
    {
        page->Load(url);
        ASSERT_TRUE(WaitUntil([this] { return !page->IsLoading(); }));
    }
    void LoadPage(const QString& path, const QByteArray& body)
    {
        server.Enqueue(ScriptedReply::Html(body));
        Load(server.GetUrl(path));
    }
    ScriptedReply Redirect(const QByteArray& target) const
    {
        return ScriptedReply::Html(QByteArray(), 302).With("Location", target);
    }
    QString Text() const { return page->GetWidget()->findChild<QPlainTextEdit*>()->toPlainText(); }
    template <class Widget>
    Widget* Find(const char* name) const
    {
        return page->GetWidget()->findChild<Widget*>(QLatin1String(name));
    }

    ScriptedHttpServer server;
    PlainPageFactory factory;
    std::unique_ptr<ITabPage> page;
    QList<PageFailure> failures;
};

} // namespace

TEST_F(PlainTabPageTest, ShowsTitleAddressAndTextOfAPage)
{
    QSignalSpy started(page.get(), &ITabPage::SigLoadStarted);
    QSignalSpy finished(page.get(), &ITabPage::SigLoadFinished);
    QSignalSpy titles(page.get(), &ITabPage::SigTitleChanged);
    LoadPage(QStringLiteral("/orders"), "<title>Orders</title><h1>Twelve</h1><p>of them</p>");
    EXPECT_EQ(page->GetTitle(), QStringLiteral("Orders"));
    EXPECT_EQ(page->GetUrl(), server.GetUrl(QStringLiteral("/orders")));
    EXPECT_EQ(Text(), QStringLiteral("Twelve\nof them"));
    EXPECT_EQ(Find<QLabel>("plain_page_title")->text(), QStringLiteral("Orders"));
    EXPECT_TRUE(Find<QLineEdit>("plain_page_address")->text().endsWith(QStringLiteral("/orders")));
    EXPECT_EQ(started.count(), 1);
    ASSERT_EQ(finished.count(), 1);
    EXPECT_TRUE(finished.first().first().toBool());
    EXPECT_EQ(titles.last().first().toString(), QStringLiteral("Orders"));
}

TEST_F(PlainTabPageTest, MarkupOfTheTitleIsShownAsText)
{
    LoadPage(QStringLiteral("/"), "<title>&lt;b&gt;x&lt;/b&gt;</title>");
    EXPECT_EQ(Find<QLabel>("plain_page_title")->textFormat(), Qt::PlainText);
    EXPECT_EQ(Find<QLabel>("plain_page_title")->text(), QStringLiteral("<b>x</b>"));
}

TEST_F(PlainTabPageTest, AsksInTheUsersLanguage)
{
    LoadPage(QStringLiteral("/"), "x");
    EXPECT_EQ(server.GetRequests().last().headers.value("accept-language"), QByteArray("en"));
    factory.SetLanguage(QStringLiteral("zh_CN"));
    LoadPage(QStringLiteral("/"), "x");
    EXPECT_EQ(server.GetRequests().last().headers.value("accept-language"), QByteArray("zh-CN,zh,en"));
}

TEST_F(PlainTabPageTest, OpensTheAddressInTheSystemsBrowserWhenAsked)
{
    OpenedAddresses opened;
    LoadPage(QStringLiteral("/a"), "x");
    EXPECT_TRUE(opened.addresses.isEmpty());
    Find<QPushButton>("plain_page_open")->click();
    EXPECT_EQ(opened.addresses, QList<QUrl>{server.GetUrl(QStringLiteral("/a"))});
}

TEST_F(PlainTabPageTest, BeforeTheFirstLoadThereIsNothingToOpen)
{
    EXPECT_FALSE(Find<QPushButton>("plain_page_open")->isEnabled());
    EXPECT_TRUE(page->GetUrl().isEmpty());
    EXPECT_FALSE(page->CanGoBack());
    EXPECT_FALSE(page->CanGoForward());
    page->Reload();
    page->Back();
    page->Stop();
    EXPECT_FALSE(page->IsLoading());
}

TEST_F(PlainTabPageTest, RefusesEveryAddressThatIsNotOfTheWeb)
{
    QSignalSpy blocked(page.get(), &ITabPage::SigBlocked);
    for (const char* const address : {"file:///etc/hostname", "ftp://127.0.0.1/", "javascript:alert(1)",
                                      "data:text/html,x", "qrc:/x", ""}) {
        page->Load(QUrl(QString::fromLatin1(address)));
    }
    EXPECT_EQ(blocked.count(), 6);
    EXPECT_FALSE(page->IsLoading());
    EXPECT_EQ(server.GetRequestCount(), 0);
}

TEST_F(PlainTabPageTest, GoesBackAndForwardThroughItsHistory)
{
    LoadPage(QStringLiteral("/1"), "one");
    LoadPage(QStringLiteral("/2"), "two");
    LoadPage(QStringLiteral("/3"), "three");
    EXPECT_FALSE(page->CanGoForward());
    server.SetStanding(ScriptedReply::Html("again"));
    page->Back();
    EXPECT_EQ(page->GetUrl().path(), QStringLiteral("/2"));
    ASSERT_TRUE(WaitUntil([this] { return !page->IsLoading(); }));
    page->Back();
    ASSERT_TRUE(WaitUntil([this] { return !page->IsLoading(); }));
    EXPECT_EQ(page->GetUrl().path(), QStringLiteral("/1"));
    EXPECT_FALSE(page->CanGoBack());
    page->Forward();
    ASSERT_TRUE(WaitUntil([this] { return !page->IsLoading(); }));
    EXPECT_EQ(page->GetUrl().path(), QStringLiteral("/2"));
    EXPECT_TRUE(page->CanGoForward());
    LoadPage(QStringLiteral("/4"), "four");
    EXPECT_FALSE(page->CanGoForward()) << "another way was taken";
}

TEST_F(PlainTabPageTest, ReloadAsksAgainAndAddsNothingToTheHistory)
{
    LoadPage(QStringLiteral("/1"), "one");
    server.Enqueue(ScriptedReply::Html("one, later"));
    page->Reload();
    ASSERT_TRUE(WaitUntil([this] { return !page->IsLoading(); }));
    EXPECT_EQ(Text(), QStringLiteral("one, later"));
    EXPECT_FALSE(page->CanGoBack());
}

TEST_F(PlainTabPageTest, FailedStepBackLeavesThePlaceInTheHistory)
{
    LoadPage(QStringLiteral("/1"), "one");
    LoadPage(QStringLiteral("/2"), "two");
    server.Enqueue(ScriptedReply::Of(ScriptedReply::Kind::Close));
    server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Close));
    page->Back();
    ASSERT_TRUE(WaitUntil([this] { return !page->IsLoading(); }));
    EXPECT_EQ(failures.size(), 1);
    EXPECT_EQ(page->GetUrl().path(), QStringLiteral("/2"));
    EXPECT_TRUE(page->CanGoBack());
}

TEST_F(PlainTabPageTest, FollowsRedirectsAndShowsTheLastAddress)
{
    server.Enqueue(Redirect("/b"));
    server.Enqueue(Redirect(server.GetUrl(QStringLiteral("/c")).toEncoded()));
    LoadPage(QStringLiteral("/a"), "there");
    EXPECT_EQ(Text(), QStringLiteral("there"));
    EXPECT_EQ(page->GetUrl().path(), QStringLiteral("/c"));
    EXPECT_FALSE(page->CanGoBack()) << "the stations on the way are no pages";
}

TEST_F(PlainTabPageTest, RedirectToAFileIsRefused)
{
    server.Enqueue(Redirect("file:///etc/hostname"));
    Load(server.GetUrl(QStringLiteral("/a")));
    ASSERT_EQ(failures.size(), 1);
    EXPECT_EQ(failures.first().kind, PageFailure::Kind::Blocked);
    EXPECT_EQ(failures.first().url.path(), QStringLiteral("/a"));
    EXPECT_EQ(Text(), QString());
}

TEST_F(PlainTabPageTest, RedirectsInACircleEnd)
{
    server.SetStanding(Redirect("/again"));
    Load(server.GetUrl(QStringLiteral("/again")));
    ASSERT_EQ(failures.size(), 1);
    EXPECT_EQ(failures.first().kind, PageFailure::Kind::TooManyRedirects);
    EXPECT_EQ(server.GetRequestCount(), 21);
}

TEST_F(PlainTabPageTest, AnErrorWithAPageOfItsOwnShowsThatPage)
{
    QSignalSpy finished(page.get(), &ITabPage::SigLoadFinished);
    server.Enqueue(ScriptedReply::Html("<title>Gone</title>Not here any more", 410));
    Load(server.GetUrl(QStringLiteral("/a")));
    EXPECT_TRUE(failures.isEmpty());
    EXPECT_EQ(Text(), QStringLiteral("Not here any more"));
    EXPECT_FALSE(finished.last().first().toBool());
}

TEST_F(PlainTabPageTest, AnErrorWithoutAPageIsAFailureThatNamesTheStatus)
{
    server.Enqueue(ScriptedReply::Html(QByteArray(), 503));
    Load(server.GetUrl(QStringLiteral("/a")));
    ASSERT_EQ(failures.size(), 1);
    EXPECT_EQ(failures.first().kind, PageFailure::Kind::HttpError);
    EXPECT_EQ(failures.first().detail, QStringLiteral("HTTP 503"));
}

TEST_F(PlainTabPageTest, NobodyListeningIsARefusedConnectionAndAReloadHeals)
{
    QUrl nobody = server.GetUrl(QStringLiteral("/a"));
    {
        QTcpServer probe;
        ASSERT_TRUE(probe.listen(QHostAddress::LocalHost));
        nobody.setPort(probe.serverPort());
    }
    QSignalSpy arrived(page.get(), &ITabPage::SigContentArrived);
    Load(nobody);
    ASSERT_EQ(failures.size(), 1);
    EXPECT_EQ(failures.first().kind, PageFailure::Kind::ConnectionRefused);
    EXPECT_EQ(failures.first().url, nobody);
    EXPECT_EQ(arrived.count(), 0);
    LoadPage(QStringLiteral("/a"), "here");
    EXPECT_EQ(arrived.count(), 1);
    EXPECT_EQ(Text(), QStringLiteral("here"));
}

TEST_F(PlainTabPageTest, ConnectionThatBreaksOffIsAFailure)
{
    server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Close));
    Load(server.GetUrl(QStringLiteral("/a")));
    ASSERT_EQ(failures.size(), 1);
    EXPECT_EQ(failures.first().kind, PageFailure::Kind::ConnectionLost);
}

TEST_F(PlainTabPageTest, AnEndlessPageIsCutAndSaysSo)
{
    server.Enqueue(ScriptedReply::Of(ScriptedReply::Kind::Endless));
    Load(server.GetUrl(QStringLiteral("/a")));
    EXPECT_TRUE(failures.isEmpty());
    EXPECT_FALSE(Text().isEmpty());
    EXPECT_LE(Text().size(), PlainPageContent::Limit);
    EXPECT_TRUE(
        Find<QLabel>("plain_page_note")->text().contains(QRegularExpression(QStringLiteral("1.*MiB"))))
        << Find<QLabel>("plain_page_note")->text().toStdString();
}

TEST_F(PlainTabPageTest, WhatIsNoTextIsDescribedAndNotFetched)
{
    server.Enqueue(ScriptedReply::Of(
        ScriptedReply::Kind::Raw,
        "HTTP/1.1 200 OK\r\nContent-Type: Image/PNG; x=y\r\nContent-Length: 5000000000\r\n\r\n\x89PNG"));
    Load(server.GetUrl(QStringLiteral("/a.png")));
    EXPECT_TRUE(failures.isEmpty());
    EXPECT_EQ(Text(), QString());
    EXPECT_TRUE(Find<QPlainTextEdit>("plain_page_text")->isHidden());
    EXPECT_TRUE(Find<QLabel>("plain_page_note")->text().contains(QStringLiteral("image/png")));
    EXPECT_TRUE(Find<QLabel>("plain_page_note")->text().contains(QStringLiteral("4.66 GiB")));
    ScriptedHttpServer another; // the first one is closing the connection
    another.Enqueue(ScriptedReply::Html("text"));
    Load(another.GetUrl(QStringLiteral("/b")));
    EXPECT_FALSE(Find<QPlainTextEdit>("plain_page_text")->isHidden());
    EXPECT_TRUE(Find<QLabel>("plain_page_note")->text().isEmpty());
}

TEST_F(PlainTabPageTest, BytesWithoutATypeThatAreNoTextAreDescribed)
{
    server.Enqueue(ScriptedReply::Of(ScriptedReply::Kind::Raw,
                                     QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n") +
                                         QByteArray("\x7F\0\0\0", 4)));
    Load(server.GetUrl(QStringLiteral("/a")));
    EXPECT_TRUE(Find<QLabel>("plain_page_note")->text().contains(QStringLiteral("unknown kind")));
}

TEST_F(PlainTabPageTest, StopEndsALoadAndKeepsThePageBefore)
{
    LoadPage(QStringLiteral("/1"), "one");
    QSignalSpy finished(page.get(), &ITabPage::SigLoadFinished);
    server.Enqueue(ScriptedReply::Of(ScriptedReply::Kind::Never));
    page->Load(server.GetUrl(QStringLiteral("/2")));
    ASSERT_TRUE(WaitUntil([this] { return server.GetRequestCount() == 2; }));
    page->Stop();
    EXPECT_FALSE(page->IsLoading());
    ASSERT_EQ(finished.count(), 1);
    EXPECT_FALSE(finished.first().first().toBool());
    EXPECT_TRUE(failures.isEmpty());
    EXPECT_EQ(page->GetUrl().path(), QStringLiteral("/1"));
    EXPECT_EQ(Text(), QStringLiteral("one"));
}

TEST_F(PlainTabPageTest, AnotherLoadTakesThePlaceOfOneThatRuns)
{
    QSignalSpy finished(page.get(), &ITabPage::SigLoadFinished);
    server.Enqueue(ScriptedReply::Of(ScriptedReply::Kind::Never));
    page->Load(server.GetUrl(QStringLiteral("/1")));
    ASSERT_TRUE(WaitUntil([this] { return server.GetRequestCount() == 1; }));
    LoadPage(QStringLiteral("/2"), "two");
    ASSERT_EQ(finished.count(), 2);
    EXPECT_FALSE(finished.first().first().toBool());
    EXPECT_TRUE(finished.last().first().toBool());
    EXPECT_EQ(Text(), QStringLiteral("two"));
    EXPECT_FALSE(page->CanGoBack());
}

TEST_F(PlainTabPageTest, StoppedAsSoonAsItStartsItAsksForNothing)
{
    LoadPage(QStringLiteral("/1"), "one");
    const auto stop =
        QObject::connect(page.get(), &ITabPage::SigLoadStarted, page.get(), [this] { page->Stop(); });
    page->Load(server.GetUrl(QStringLiteral("/2")));
    EXPECT_FALSE(page->IsLoading());
    EXPECT_EQ(page->GetUrl().path(), QStringLiteral("/1"));
    QObject::disconnect(stop);
    LoadPage(QStringLiteral("/3"), "three");
    EXPECT_EQ(server.GetRequestCount(), 2);
    EXPECT_EQ(Text(), QStringLiteral("three"));
}

TEST_F(PlainTabPageTest, AReceiverThatAsksForAnotherPageGetsThatOne)
{
    QObject::connect(page.get(), &ITabPage::SigLoadStarted, page.get(), [this] {
        if (page->GetUrl().path() == QStringLiteral("/1")) {
            page->Load(server.GetUrl(QStringLiteral("/2")));
        }
    });
    QSignalSpy started(page.get(), &ITabPage::SigLoadStarted);
    QSignalSpy finished(page.get(), &ITabPage::SigLoadFinished);
    server.SetStanding(ScriptedReply::Html("two"));
    Load(server.GetUrl(QStringLiteral("/1")));
    EXPECT_EQ(page->GetUrl().path(), QStringLiteral("/2"));
    EXPECT_EQ(server.GetRequestCount(), 1);
    EXPECT_EQ(started.count(), finished.count());
}

TEST_F(PlainTabPageTest, DestroyedWhileItLoadsItLeavesNothingBehind)
{
    server.Enqueue(ScriptedReply::Html("late").Held());
    page->Load(server.GetUrl(QStringLiteral("/1")));
    ASSERT_TRUE(WaitUntil([this] { return server.GetRequestCount() == 1; }));
    const QPointer<QWidget> widget = page->GetWidget();
    page.reset();
    EXPECT_TRUE(widget.isNull());
    ASSERT_TRUE(WaitUntil([this] { return server.GetOpenCount() == 0; }));
}

TEST_F(PlainTabPageTest, FindCountsTheHitsAndGoesRoundThem)
{
    LoadPage(QStringLiteral("/1"), "<p>Order a</p><p>order b</p><p>c</p>");
    QSignalSpy found(page.get(), &ITabPage::SigFound);
    auto* const text = Find<QPlainTextEdit>("plain_page_text");
    const auto line = [text] { return text->textCursor().blockNumber(); };
    page->Find(QStringLiteral("ORDER"), false);
    EXPECT_EQ(found.last().first().toInt(), 2);
    EXPECT_EQ(line(), 0);
    page->Find(QStringLiteral("ORDER"), false);
    EXPECT_EQ(line(), 1);
    page->Find(QStringLiteral("ORDER"), false);
    EXPECT_EQ(line(), 0) << "round the end";
    page->Find(QStringLiteral("ORDER"), true);
    EXPECT_EQ(line(), 1) << "round the beginning";
    page->Find(QStringLiteral("none"), false);
    EXPECT_EQ(found.last().first().toInt(), 0);
    page->Find(QString(), false);
    EXPECT_FALSE(text->textCursor().hasSelection());
}

TEST_F(PlainTabPageTest, ZoomScalesTheText)
{
    auto* const text = Find<QPlainTextEdit>("plain_page_text");
    const int before = QFontInfo(text->font()).pixelSize();
    page->SetZoom(1.5);
    EXPECT_DOUBLE_EQ(page->GetZoom(), 1.5);
    EXPECT_EQ(QFontInfo(text->font()).pixelSize(), qRound(before * 1.5));
    page->SetZoom(1.0);
    EXPECT_EQ(QFontInfo(text->font()).pixelSize(), before);
}

#include "PlainTabPageTest.moc"
