#pragma once

#include "http/HttpExport.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

/// One call of a service. The manager holds it by a shared pointer from the sending until the completion has
/// run. GUI thread.
class TL_HTTP_EXPORT IHttpRequest : public QObject
{
    Q_OBJECT

public:
    explicit IHttpRequest(QObject* parent = nullptr);
    ~IHttpRequest() override;

    /// Where the call goes: an http or https URL.
    virtual QString GetApiUrl() const = 0;
    /// The host to connect to in place of the URL's, which still goes into the Host header. Empty: the URL's.
    virtual QString GetHostIp() const = 0;
    /// The body of the POST for this attempt; asked for once per attempt, after `DoReset`.
    virtual QByteArray GetApiBody() = 0;
    /// The name of the call for logs and traces; holds no secrets.
    virtual QByteArray GetMethodName() const = 0;
    /// One line for the log; never holds a password, token or secret.
    virtual QString GetLogInfo() const = 0;
    /// Whether the service is switched off on purpose. The call then fails at once, with
    /// `GetDegradeDescription` as its error, and nothing is sent.
    virtual bool IsDegradeApi() const = 0;
    virtual QString GetDegradeDescription() const = 0;
    /// Called before each attempt: drops what belongs to the previous one, such as its time stamp.
    virtual void DoReset() = 0;

    /// A tag by which the sender recognises its own call when the completion is announced to everyone. Empty:
    /// untagged.
    void SetIdentity(const QString& identity);
    QString GetIdentity() const;

private:
    QString m_identity;
};
