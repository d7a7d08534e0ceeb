#include "WebEngineFixture.h"

#include "DownloadNotices.h"
#include "notices/NoticeBar.h"
#include "pages/IDownload.h"
#include "pages/ITabPage.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QPushButton>

namespace {

const QString Path = QStringLiteral("/file");
const QByteArray Header = "Content-Type: application/octet-stream\r\n"
                          "Content-Disposition: attachment; filename=numbers.bin\r\n";
const QByteArray HalfAFile = "HTTP/1.1 200 OK\r\n" + Header + "Content-Length: 1000000\r\n\r\nonly this much";

/// A page that leads to a file. The window's own question is a dialog; here the first receiver answers for
/// the user.
class WebEngineDownloadTest : public WebEngineFixture
{
protected:
    WebEngineDownloadTest()
    {
        m_window.reset();
        m_bar.show();
        QObject::connect(m_pages.get(), &IPageFactory::SigDownloadRequested, &m_notices,
                         [this](IDownload* download) {
                             m_download = download;
                             m_notices.HandleDownload(download);
                         });
        m_page = m_pages->CreatePage(nullptr);
    }

    void Load() { m_page->Load(m_server.GetUrl(Path)); }
    QString GetText() const { return m_bar.GetText(QStringLiteral("download/1")); }
    bool IsFolderEmpty() const { return QDir(m_folder).isEmpty(); }
    QByteArray ReadSaved() const
    {
        QFile file(m_answer);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// A page that wants to save the files of these addresses, one each 5 ms, over and over again.
    void LoadInsistent(const QString& addresses)
    {
        m_server.SetPage(Path, "12345", "200 OK", Header);
        m_server.SetPage(
            QStringLiteral("/insistent"),
            "<title>page</title><body><a id=a download></a><script>var i = 0, all = [" + addresses.toUtf8() +
                "]; setInterval(() => { a.href = all[i++ % all.length]; a.click(); document.title = i }, 5)"
                "</script>");
        QObject::connect(m_page.get(), &ITabPage::SigPermissionRequested, &m_context,
                         [this](const PermissionRequest& request) {
                             EXPECT_EQ(request.kind, PermissionRequest::Kind::SeveralDownloads);
                             m_several << request.answer;
                         });
        m_page->GetWidget()->show();
        m_page->Load(m_server.GetUrl(QStringLiteral("/insistent")));
    }
    /// Lets the page insist for a while.
    void LetInsist()
    {
        const int from = m_page->GetTitle().toInt();
        EXPECT_TRUE(WaitUntil([&] { return m_page->GetTitle().toInt() > from + 20; }));
    }

    const QString m_folder = MakeFolder();
    QString m_answer = m_folder + QStringLiteral("/saved.bin"); // empty: the user does not want it
    std::function<void()> m_whenAsked;
    QStringList m_proposals;
    NoticeBar m_bar;
    DownloadNotices m_notices{&m_bar, [this](const QString& proposal) {
                                  m_proposals << QFileInfo(proposal).fileName();
                                  if (m_whenAsked)
                                      m_whenAsked();
                                  return m_answer;
                              }};
    QPointer<IDownload> m_download;
    QVector<std::function<void(bool)>> m_several; // the questions whether several may be saved
    std::unique_ptr<ITabPage> m_page;
    QObject m_context; // goes before what its receivers look at
};

} // namespace

TEST_F(WebEngineDownloadTest, IsAskedForAndSaved)
{
    m_server.SetPage(Path, "12345", "200 OK", Header);
    QSignalSpy failed(m_page.get(), &ITabPage::SigFailed);
    QSignalSpy finished(m_page.get(), &ITabPage::SigLoadFinished);
    Load();
    EXPECT_TRUE(WaitUntil([this] { return GetText() == QStringLiteral("saved.bin was saved."); }));
    EXPECT_EQ(m_proposals, QStringList{QStringLiteral("numbers.bin")});
    EXPECT_EQ(ReadSaved(), "12345");
    EXPECT_TRUE(WaitUntil([&] { return !finished.isEmpty(); }));
    EXPECT_TRUE(failed.isEmpty()) << "a download was taken for a page that could not be loaded";
}

TEST_F(WebEngineDownloadTest, ThatBreaksOffIsSaidAndAskedForOnce)
{
    m_server.SetReply(Path, HalfAFile);
    Load();
    EXPECT_TRUE(WaitUntil([this] {
        return GetText() == QStringLiteral("saved.bin could not be saved: the connection broke off.");
    }));
    EXPECT_EQ(m_proposals.size(), 1) << "the engine tries again by itself";
    EXPECT_EQ(m_bar.GetCount(), 1);
    EXPECT_TRUE(WaitUntil([this] { return IsFolderEmpty(); })) << "half a file looks like a whole one";
}

TEST_F(WebEngineDownloadTest, ThatBrokeOffGoesOnWhereTheUserWantedIt)
{
    m_server.SetReply(Path, HalfAFile);
    m_whenAsked = [this] { m_server.SetPage(Path, "this time all of it", "200 OK", Header); };
    Load();
    EXPECT_TRUE(WaitUntil([this] { return GetText() == QStringLiteral("saved.bin was saved."); }));
    EXPECT_EQ(ReadSaved(), "this time all of it");
    EXPECT_GT(m_server.GetRequests().count(Path), 1);
}

TEST_F(WebEngineDownloadTest, ThatTheUserCancelsLeavesNothingBehind)
{
    m_server.SetReply(Path, HalfAFile, WebServer::AfterReply::Wait);
    Load();
    ASSERT_TRUE(WaitUntil([this] { return m_bar.GetCount() == 1 && !IsFolderEmpty(); }));
    QTest::mouseClick(m_bar.findChild<QPushButton*>(QStringLiteral("notice_button")), Qt::LeftButton);
    EXPECT_TRUE(WaitUntil([this] { return !m_download && IsFolderEmpty(); }));
    EXPECT_EQ(m_bar.GetCount(), 0);
}

TEST_F(WebEngineDownloadTest, ThatTheUserDoesNotWantLeavesNothingBehind)
{
    m_answer.clear();
    m_server.SetPage(Path, "12345", "200 OK", Header);
    Load();
    EXPECT_TRUE(WaitUntil([this] { return !m_proposals.isEmpty() && !m_download; }));
    EXPECT_EQ(m_bar.GetCount(), 0);
}

TEST_F(WebEngineDownloadTest, NoneIsAskedForAfterANoUntilTheUserDoesSomething)
{
    m_answer.clear();
    LoadInsistent(QStringLiteral("'/file'"));
    ASSERT_TRUE(WaitUntil([this] { return !m_proposals.isEmpty(); }));
    LetInsist();
    EXPECT_EQ(m_proposals.size(), 1) << "the user is held in one dialog after another";
    ASSERT_TRUE(WaitUntil([this] { return !m_several.isEmpty(); }));

    m_several.first()(false);
    LetInsist();
    EXPECT_EQ(m_proposals.size(), 1);
    EXPECT_EQ(m_several.size(), 1) << "a No that holds for nothing";

    QTest::mouseClick(m_page->GetWidget()->focusProxy(), Qt::LeftButton);
    EXPECT_TRUE(WaitUntil([this] { return m_proposals.size() == 2; })) << "what the user clicks for is asked";
    LetInsist();
    EXPECT_EQ(m_proposals.size(), 2);
}

TEST_F(WebEngineDownloadTest, SeveralAreSavedWhenTheUserAllowsIt)
{
    m_server.SetPage(QStringLiteral("/second"), "67890", "200 OK", Header);
    m_whenAsked = [this] {
        const bool wanted = m_proposals.size() == 2 || m_proposals.size() == 3;
        m_answer = wanted ? m_folder + QStringLiteral("/%1.bin").arg(m_proposals.size()) : QString();
    };
    LoadInsistent(QStringLiteral("'/file', '/second'"));
    ASSERT_TRUE(WaitUntil([this] { return !m_several.isEmpty(); }));
    m_several.first()(true);
    EXPECT_TRUE(WaitUntil([this] { return m_proposals.size() == 4; }));
    LetInsist();
    EXPECT_EQ(m_proposals.size(), 4) << "a No ends it";
    // Among so many the engine may give one of them up; what counts is that the answers are followed.
    EXPECT_TRUE(WaitUntil([this] { return !QDir(m_folder).entryList({QStringLiteral("*.bin")}).isEmpty(); }));
}

TEST_F(WebEngineDownloadTest, TheTabThatWasOpenedForItGoes)
{
    m_page.reset();
    MakeWindow();
    m_server.SetPage(Path, "12345", "200 OK", Header);
    m_server.SetPage(QStringLiteral("/links"),
                     "<title>links</title><body style='margin:0'>"
                     "<a href='/file' target=_blank style='display:block;height:300px'>save</a>");
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/links"))));
    // The window asks, too, after the first receiver has answered.
    QTimer watch;
    QObject::connect(
        &watch, &QTimer::timeout, &watch,
        [] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                dialog->reject();
        },
        Qt::QueuedConnection);
    watch.start(5);
    QSignalSpy opened(m_window.get(), &MainWindow::SigTabOpened);
    Click(QPoint(50, 50));
    ASSERT_TRUE(WaitUntil([this] { return !m_proposals.isEmpty(); }));
    EXPECT_TRUE(WaitUntil([this] { return m_window->GetTabCount() == 2; })) << "an empty tab stays in front";
    EXPECT_EQ(opened.size(), 1);
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
}
