#include "WebEngineFixture.h"

#include "browser/DownloadNotices.h"
#include "browser/IDownload.h"
#include "browser/ITabPage.h"
#include "browser/NoticeBar.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
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
                             m_notices.Take(download);
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
    std::unique_ptr<ITabPage> m_page;
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
