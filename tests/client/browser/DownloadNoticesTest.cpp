#include "DownloadNotices.h"
#include "notices/NoticeBar.h"
#include "pages/IDownload.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <gtest/gtest.h>

namespace {

class FakeDownload final : public IDownload
{
public:
    QString GetFileName() const override { return name; }
    QUrl GetUrl() const override { return {}; }
    QString GetPath() const override { return accepted; }
    void Accept(const QString& path) override { accepted = path; }
    void Cancel() override { ++cancelled; }

    QString name = QStringLiteral("report.pdf");
    QString accepted;
    int cancelled = 0;
};

class DownloadNoticesTest : public ::testing::Test
{
protected:
    DownloadNoticesTest()
        : m_notices(&m_bar, [this](const QString& proposal) {
            m_proposal = proposal;
            return m_answer;
        })
    {}

    const QString m_id = QStringLiteral("download/1");
    QString m_proposal;
    QString m_answer = QStringLiteral("/somewhere/else.pdf");
    NoticeBar m_bar;
    DownloadNotices m_notices;
    FakeDownload m_download;
};

} // namespace

TEST_F(DownloadNoticesTest, NothingIsSavedWhenTheUserDeclines)
{
    m_answer.clear();
    m_notices.HandleDownload(&m_download);
    EXPECT_EQ(m_download.cancelled, 1);
    EXPECT_EQ(m_download.accepted, QString());
    EXPECT_EQ(m_bar.GetCount(), 0);
}

TEST_F(DownloadNoticesTest, ANameThatLeadsElsewhereLosesItsPath)
{
    m_download.name = QStringLiteral("../../.bashrc");
    m_notices.HandleDownload(&m_download);
    EXPECT_EQ(QFileInfo(m_proposal).fileName(), QStringLiteral(".bashrc"));
    EXPECT_FALSE(m_proposal.contains(QStringLiteral("..")));
}

TEST_F(DownloadNoticesTest, WhatIsProposedIsInAFolderThatExists)
{
    // The home of the tests has no folder for downloads.
    m_notices.HandleDownload(&m_download);
    EXPECT_TRUE(QFileInfo(m_proposal).dir().exists()) << qPrintable(m_proposal);
}

TEST_F(DownloadNoticesTest, ANamelessFileGetsAName)
{
    m_download.name = QStringLiteral("folder/");
    m_notices.HandleDownload(&m_download);
    EXPECT_FALSE(QFileInfo(m_proposal).fileName().isEmpty());
}

TEST_F(DownloadNoticesTest, ShowsTheProgressAndThatTheFileWasSaved)
{
    m_notices.HandleDownload(&m_download);
    EXPECT_EQ(m_download.accepted, m_answer);
    Q_EMIT m_download.SigProgress(1000, 2000);
    EXPECT_TRUE(m_bar.GetText(m_id).contains(QStringLiteral("else.pdf")));
    Q_EMIT m_download.SigProgress(1000, -1);
    Q_EMIT m_download.SigFinished(true, QString());
    EXPECT_EQ(m_bar.GetText(m_id), QStringLiteral("else.pdf was saved."));
}

TEST_F(DownloadNoticesTest, AFailureSaysWhyAndACancelledOneGoesQuietly)
{
    m_notices.HandleDownload(&m_download);
    Q_EMIT m_download.SigFinished(false, QStringLiteral("disk full"));
    EXPECT_TRUE(m_bar.GetText(m_id).contains(QStringLiteral("disk full")));
    FakeDownload other;
    m_notices.HandleDownload(&other);
    EXPECT_EQ(m_bar.GetCount(), 2);
    Q_EMIT other.SigFinished(false, QString());
    EXPECT_EQ(m_bar.GetCount(), 1);
}

TEST_F(DownloadNoticesTest, TheNextProposalIsInTheFolderUsedBefore)
{
    m_notices.HandleDownload(&m_download);
    FakeDownload other;
    m_notices.HandleDownload(&other);
    EXPECT_EQ(QFileInfo(m_proposal).absolutePath(),
              QFileInfo(QStringLiteral("/somewhere")).absoluteFilePath());
}
