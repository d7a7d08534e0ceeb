#include "trace/TraceWriter.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

class TraceWriterTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_writer.Open(m_file, &m_problem)) << m_problem.toStdString(); }

    QByteArray Content() const
    {
        QFile file(m_file);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    QJsonObject LastLine() const
    {
        return QJsonDocument::fromJson(Content().trimmed().split('\n').last()).object();
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("trace.jsonl"));
    QString m_problem;
    TraceWriter m_writer;
};

TEST_F(TraceWriterTest, LineIsInTheFileAtOnce)
{
    m_writer.Write(QStringLiteral("login"),
                   {{QStringLiteral("ok"), true}, {QStringLiteral("pin"), QStringLiteral("商家")}});
    const QByteArray content = Content();
    EXPECT_TRUE(content.endsWith('\n'));
    EXPECT_EQ(content.count('\n'), 1);
    const QJsonObject line = LastLine();
    EXPECT_EQ(line.value(QStringLiteral("event")).toString(), QStringLiteral("login"));
    EXPECT_EQ(line.value(QStringLiteral("pin")).toString(), QStringLiteral("商家"));
    EXPECT_TRUE(line.value(QStringLiteral("ok")).toBool());
    EXPECT_TRUE(line.value(QStringLiteral("t")).isDouble());
}

TEST_F(TraceWriterTest, TextWithLineFeedsStaysOneLine)
{
    m_writer.Write(QStringLiteral("notice"), {{QStringLiteral("text"), QStringLiteral("a\nb\r\nc")}});
    EXPECT_EQ(Content().count('\n'), 1);
    EXPECT_EQ(LastLine().value(QStringLiteral("text")).toString(), QStringLiteral("a\nb\r\nc"));
}

TEST_F(TraceWriterTest, SecondWriterGoesOnInTheSameFile)
{
    m_writer.Write(QStringLiteral("exit"), {});
    TraceWriter second;
    ASSERT_TRUE(second.Open(m_file, &m_problem));
    second.Write(QStringLiteral("login"), {});
    EXPECT_EQ(Content().count('\n'), 2);
}

TEST_F(TraceWriterTest, SecretIsNeverWrittenWhereverItStands)
{
    m_writer.AddSecret(QStringLiteral("tok en+1"));
    m_writer.Write(QStringLiteral("tab.opened"),
                   {{QStringLiteral("url"), QStringLiteral("https://a/?t=tok%20en%2B1&x=tok en+1")}});
    m_writer.Write(QStringLiteral("monitor"),
                   {{QStringLiteral("parameters"), QJsonArray{QStringLiteral("a tok en+1 b")}}});
    m_writer.Write(
        QStringLiteral("notice"),
        {{QStringLiteral("text"), QJsonObject{{QStringLiteral("in"), QStringLiteral("tok en+1")}}}});
    const QByteArray content = Content();
    EXPECT_FALSE(content.contains("tok en+1")) << content.toStdString();
    EXPECT_FALSE(content.contains("tok%20en%2B1")) << content.toStdString();
    EXPECT_EQ(content.count("***"), 4) << content.toStdString();
}

TEST_F(TraceWriterTest, EmptySecretChangesNothing)
{
    m_writer.AddSecret(QString());
    m_writer.Write(QStringLiteral("notice"), {{QStringLiteral("text"), QStringLiteral("plain")}});
    EXPECT_EQ(LastLine().value(QStringLiteral("text")).toString(), QStringLiteral("plain"));
}

TEST_F(TraceWriterTest, LongerSecretLeavesNoRestOfAShorterOne)
{
    m_writer.AddSecret(QStringLiteral("abcd"));
    m_writer.AddSecret(QStringLiteral("abcdefgh"));
    m_writer.Write(QStringLiteral("notice"), {{QStringLiteral("text"), QStringLiteral("abcdefgh")}});
    EXPECT_EQ(LastLine().value(QStringLiteral("text")).toString(), QStringLiteral("***"));
}

TEST(TraceWriterWithoutFileTest, FolderThatDoesNotExistIsAProblemWithAReason)
{
    const QTemporaryDir folder;
    TraceWriter writer;
    QString problem;
    EXPECT_FALSE(writer.Open(folder.filePath(QStringLiteral("none/trace")), &problem));
    EXPECT_FALSE(problem.isEmpty());
    writer.Write(QStringLiteral("exit"), {}); // goes nowhere
    EXPECT_FALSE(writer.IsOpen());
}
