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

constexpr int FormatVersion = 1;
constexpr int WriteTimeout = 5000; // [ms]

const QString VersionKey = QStringLiteral("version");
const QString WrittenKey = QStringLiteral("written");
const QString PinKey = QStringLiteral("pin");
const QString BelongTypeKey = QStringLiteral("belongType");
const QString TokenKey = QStringLiteral("accessToken");
const QString ExpiresKey = QStringLiteral("expiresAt");
const QString OpenTabsKey = QStringLiteral("openTabs");

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
    return input.open(stdin, QIODevice::ReadOnly) ? input.readLine(SessionHandover::TextLimit) : QByteArray();
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
    return QJsonDocument({{VersionKey, FormatVersion},
                          {WrittenKey, ::ToText(now)},
                          {PinKey, session.pin},
                          {BelongTypeKey, session.belongType},
                          {TokenKey, session.accessToken},
                          {ExpiresKey, ::ToText(session.expiresAt)},
                          {OpenTabsKey, openTabs}})
               .toJson(QJsonDocument::Compact) +
           '\n';
}

std::optional<SessionHandover> SessionHandover::FromText(const QByteArray& text, const QDateTime& now)
{
    const QJsonObject object = QJsonDocument::fromJson(text).object();
    const QDateTime written = ToTime(object.value(WrittenKey));
    SessionHandover handover;
    handover.session.pin = object.value(PinKey).toString();
    handover.session.belongType = object.value(BelongTypeKey).toString();
    handover.session.accessToken = object.value(TokenKey).toString();
    handover.session.expiresAt = ToTime(object.value(ExpiresKey));
    handover.openTabs = object.value(OpenTabsKey).toBool();
    const bool fresh = written.isValid() && qAbs(written.secsTo(now)) <= LifeTime;
    if (object.value(VersionKey).toInt() != FormatVersion || !fresh || handover.session.IsEmpty() ||
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
    // Read on a thread of its own and abandon it after the time-out: the other end may never write or close.
    std::promise<QByteArray> promise;
    std::future<QByteArray> text = promise.get_future();
    std::thread([promise = std::move(promise)]() mutable { promise.set_value(ReadInput()); }).detach();
    if (text.wait_for(std::chrono::milliseconds(ReadTimeout)) != std::future_status::ready) {
        return std::nullopt;
    }
    return FromText(text.get(), QDateTime::currentDateTimeUtc());
}

bool SessionHandover::StartProcess(const QString& program, const QStringList& arguments) const
{
    // Never deleted: a QProcess kills its process in the destructor, and this one has to outlive us.
    static QProcess* const process = new QProcess;
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->start(program, arguments);
    if (!process->waitForStarted(WriteTimeout)) {
        return false;
    }
    process->write(ToText(QDateTime::currentDateTimeUtc()));
    // A process that does not take the session shows the log-in dialog; starting a second one would not help.
    while (process->bytesToWrite() > 0 && process->waitForBytesWritten(WriteTimeout)) {
    }
    process->closeWriteChannel();
    return true;
}
