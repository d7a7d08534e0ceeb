#include "login/SessionHandover.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>

#include <chrono>
#include <cstdio>
#include <future>
#include <thread>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

constexpr int formatVersion = 1;
constexpr int writeTimeout = 5000; // [ms]

const QString versionKey = QStringLiteral("version");
const QString writtenKey = QStringLiteral("written");
const QString pinKey = QStringLiteral("pin");
const QString belongTypeKey = QStringLiteral("belongType");
const QString tokenKey = QStringLiteral("accessToken");
const QString expiresKey = QStringLiteral("expiresAt");
const QString openTabsKey = QStringLiteral("openTabs");

bool IsTerminal()
{
#ifdef Q_OS_WIN
    return ::_isatty(::_fileno(stdin)) != 0;
#else
    return ::isatty(::fileno(stdin)) != 0;
#endif
}

QByteArray ReadInput()
{
    QFile input;
    return input.open(stdin, QIODevice::ReadOnly) ? input.readLine(SessionHandover::textLimit) : QByteArray();
}

QString ToText(const QDateTime& time)
{
    return time.isValid() ? time.toUTC().toString(Qt::ISODateWithMs) : QString();
}

QDateTime ToTime(const QJsonValue& value)
{
    return QDateTime::fromString(value.toString(), Qt::ISODateWithMs);
}

} // namespace

QByteArray SessionHandover::ToText(const QDateTime& now) const
{
    return QJsonDocument({{versionKey, formatVersion},
                          {writtenKey, ::ToText(now)},
                          {pinKey, session.pin},
                          {belongTypeKey, session.belongType},
                          {tokenKey, session.accessToken},
                          {expiresKey, ::ToText(session.expiresAt)},
                          {openTabsKey, openTabs}})
               .toJson(QJsonDocument::Compact) +
           '\n';
}

std::optional<SessionHandover> SessionHandover::FromText(const QByteArray& text, const QDateTime& now)
{
    const QJsonObject object = QJsonDocument::fromJson(text).object();
    const QDateTime written = ToTime(object.value(writtenKey));
    SessionHandover handover;
    handover.session.pin = object.value(pinKey).toString();
    handover.session.belongType = object.value(belongTypeKey).toString();
    handover.session.accessToken = object.value(tokenKey).toString();
    handover.session.expiresAt = ToTime(object.value(expiresKey));
    handover.openTabs = object.value(openTabsKey).toBool();
    const bool fresh = written.isValid() && qAbs(written.secsTo(now)) <= lifeTime;
    if (object.value(versionKey).toInt() != formatVersion || !fresh || handover.session.IsEmpty() ||
        handover.session.pin.isEmpty()) {
        return std::nullopt;
    }
    return handover;
}

std::optional<SessionHandover> SessionHandover::Take()
{
    if (IsTerminal()) {
        return std::nullopt;
    }
    // A thread of its own, left behind if need be: nobody can be made to write or to close the other end.
    std::promise<QByteArray> promise;
    std::future<QByteArray> text = promise.get_future();
    std::thread([promise = std::move(promise)]() mutable { promise.set_value(ReadInput()); }).detach();
    if (text.wait_for(std::chrono::milliseconds(readTimeout)) != std::future_status::ready) {
        return std::nullopt;
    }
    return FromText(text.get(), QDateTime::currentDateTimeUtc());
}

bool SessionHandover::StartProcess(const QString& program, const QStringList& arguments) const
{
    // The destructor of a QProcess ends the process, and this one is to outlive us: so it is never deleted.
    static QProcess* const process = new QProcess;
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->start(program, arguments);
    if (!process->waitForStarted(writeTimeout)) {
        return false;
    }
    process->write(ToText(QDateTime::currentDateTimeUtc()));
    // What does not take the session comes up at the log-in dialog; a second process beside it would not
    // help.
    while (process->bytesToWrite() > 0 && process->waitForBytesWritten(writeTimeout)) {
    }
    process->closeWriteChannel();
    return true;
}
