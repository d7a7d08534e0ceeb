#include "monitoring/MonitorRecorder.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

namespace {

QVector<QJsonObject> Lines(const QString& name)
{
    QVector<QJsonObject> lines;
    QFile file(name);
    if (file.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> texts = file.readAll().split('\n');
        for (const QByteArray& text : texts) {
            if (!text.isEmpty()) {
                lines.append(QJsonDocument::fromJson(text).object());
            }
        }
    }
    return lines;
}

} // namespace

TEST(MonitorRecorderTest, EventIsRecordedWithTimeAndParameters)
{
    const QTemporaryDir folder;
    MonitorRecorder recorder(folder.filePath(QStringLiteral("monitor")));
    QSignalSpy reported(&recorder, &MonitorRecorder::SigReported);
    recorder.ReportEvent(QStringLiteral("Add"), QStringLiteral("Home"), {QStringLiteral("a\nb"), QString()});
    const QVector<QJsonObject> lines = Lines(recorder.GetFile());
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines[0].value(QStringLiteral("id")).toString(), QStringLiteral("Add"));
    EXPECT_EQ(lines[0].value(QStringLiteral("page")).toString(), QStringLiteral("Home"));
    EXPECT_EQ(lines[0].value(QStringLiteral("parameters")).toArray(),
              (QJsonArray{QStringLiteral("a\nb"), QString()}));
    EXPECT_TRUE(QDateTime::fromString(lines[0].value(QStringLiteral("time")).toString(), Qt::ISODateWithMs)
                    .isValid());
    EXPECT_EQ(reported.count(), 1);
}

TEST(MonitorRecorderTest, NextRunGoesOn)
{
    const QTemporaryDir folder;
    MonitorRecorder(folder.path()).ReportEvent(QStringLiteral("1"), QString(), {});
    MonitorRecorder second(folder.path());
    second.ReportEvent(QStringLiteral("2"), QString(), {});
    EXPECT_EQ(Lines(second.GetFile()).size(), 2);
}

TEST(MonitorRecorderTest, SizeIsBoundedAndTheNewestEventsStay)
{
    const QTemporaryDir folder;
    MonitorRecorder recorder(folder.path(), 1000);
    for (int i = 0; i < 200; ++i) {
        recorder.ReportEvent(QString::number(i), QStringLiteral("page"), {});
        EXPECT_LE(QFileInfo(recorder.GetFile()).size(), 1000);
        EXPECT_LE(QFileInfo(recorder.GetOlderFile()).size(), 1000);
    }
    const QVector<QJsonObject> kept = Lines(recorder.GetOlderFile()) + Lines(recorder.GetFile());
    ASSERT_GE(kept.size(), 10);
    for (int i = 0; i < kept.size(); ++i) {
        EXPECT_EQ(kept[i].value(QStringLiteral("id")).toString(), QString::number(200 - kept.size() + i));
    }
}

TEST(MonitorRecorderTest, FolderThatCannotBeMadeDoesNotDisturb)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    MonitorRecorder recorder(folder.filePath(QStringLiteral("file/monitor")));
    QSignalSpy reported(&recorder, &MonitorRecorder::SigReported);
    recorder.ReportEvent(QStringLiteral("1"), QString(), {});
    EXPECT_EQ(reported.count(), 1);
}
