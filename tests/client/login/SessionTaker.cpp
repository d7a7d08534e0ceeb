// A client reduced to the hand-over of a session. "start" hands a session over to another instance of this
// program and ends; "take" takes one from its standard input and reports what it got, and what the next
// process that reads the same input gets.

#include "login/SessionHandover.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>

#include <cstdio>

namespace {

void Say(const QString& name, const QJsonValue& value)
{
    QFile output;
    if (output.open(stdout, QIODevice::WriteOnly)) {
        output.write(QJsonDocument(QJsonObject{{name, value}}).toJson(QJsonDocument::Compact) + '\n');
    }
}

void SayTaken(const QString& name)
{
    const std::optional<SessionHandover> handover = SessionHandover::Take();
    if (!handover) {
        Say(name, QJsonValue());
        return;
    }
    const Session& session = handover->session;
    Say(name, QJsonArray{session.pin, session.belongType, session.accessToken,
                         session.expiresAt.toString(Qt::ISODateWithMs), handover->openTabs});
}

int Start()
{
    SessionHandover handover;
    handover.session.pin = QStringLiteral("demo");
    handover.session.belongType = QStringLiteral("merchant");
    handover.session.accessToken = QStringLiteral("a-token-to-look-for");
    handover.session.expiresAt = QDateTime(QDate(2030, 1, 2), QTime(3, 4, 5, 6), Qt::UTC);
    handover.openTabs = true;
    return handover.StartProcess(QCoreApplication::applicationFilePath(), {QStringLiteral("take")}) ? 0 : 1;
}

int Take()
{
    Say(QStringLiteral("arguments"), QJsonArray::fromStringList(QCoreApplication::arguments()));
    Say(QStringLiteral("environment"),
        QJsonArray::fromStringList(QProcessEnvironment::systemEnvironment().toStringList()));
    SayTaken(QStringLiteral("first"));
    QProcess second;
    second.setInputChannelMode(QProcess::ForwardedInputChannel);
    second.setProcessChannelMode(QProcess::ForwardedChannels);
    second.start(QCoreApplication::applicationFilePath(), {QStringLiteral("again")});
    Say(QStringLiteral("end"), second.waitForFinished());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString mode = QCoreApplication::arguments().value(1);
    if (mode == QLatin1String("start")) {
        return Start();
    }
    if (mode == QLatin1String("take")) {
        return Take();
    }
    SayTaken(QStringLiteral("second"));
    return 0;
}
