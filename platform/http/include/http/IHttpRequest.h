#pragma once

#include "http/HttpExport.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

/// One call of a service. Held by a shared pointer from the sending to the end of the delivery.
/// GUI thread.
class TL_HTTP_EXPORT IHttpRequest : public QObject
{
    Q_OBJECT

public:
    explicit IHttpRequest(QObject* parent = nullptr);
    ~IHttpRequest() override;

    /// Where the call goes: an http or https URL.
    virtual QString GetApiUrl() const = 0;
    /// A host to connect to instead of the one in the URL, which is still sent as the Host header.
    /// Empty: the one in the URL.
    virtual QString GetHostIp() const = 0;
    /// The body of the POST, built for this attempt; asked for once per attempt, after `DoReset`.
    virtual QByteArray GetApiBody() = 0;
    /// The name of the call for logs and traces; no secrets.
    virtual QByteArray GetMethodName() const = 0;
    /// One line for the log: never a password, token or secret.
    virtual QString GetLogInfo() const = 0;
    /// Whether the service is switched off on purpose: the call then fails at once, with
    /// `GetDegradeDescription` as its error, and nothing is sent.
    virtual bool IsDegradeApi() const = 0;
    virtual QString GetDegradeDescription() const = 0;
    /// Called before each attempt: drops what belongs to the attempt before, such as its time stamp.
    virtual void DoReset() = 0;

    /// A tag by which the sender recognises its own call when the completion is announced to all.
    /// Empty: untagged.
    void SetIdentity(const QString& identity);
    QString GetIdentity() const;

private:
    QString m_identity;
};
