#pragma once

#include "http-module/DsmType.h"
#include "http-module/HttpModuleExport.h"
#include "http/IHttpRequestBase.h"

#include <QtCore/QMap>

/// A call of the signed gateway. A derived class contributes a method name and a business JSON; this class
/// does the rest. The form POST carries the envelope of docs/gateway-protocol.md, signed with HMAC-SHA256.
class TL_HTTP_MODULE_EXPORT IHttpRequestDsm : public IHttpRequestBase
{
    Q_OBJECT

public:
    explicit IHttpRequestDsm(QObject* parent = nullptr);
    ~IHttpRequestDsm() override;

    /// The gateway's address; where it has no path, this adds the path of the gateway's one resource.
    QString GetApiUrl() const override;
    QByteArray GetApiBody() override;
    QByteArray GetMethodName() const override;
    void DoReset() override;

    /// The gateway method, such as "dsm.tl.pc.auto.run.get".
    virtual QString GetDsmMethod() const = 0;
    /// The business JSON as compact text; one object.
    virtual QByteArray GetBusinessParam() const = 0;
    /// The envelope's value for `type`; from the provided gateway's configuration by default.
    virtual QString GetDsmAppendix(DsmType type) const;
    /// Builds the envelope's parameters, signature included, for this attempt.
    virtual void InitParam();
    /// SHA-256 over user, gateway, method and business JSON, in hexadecimal. Empty while nobody is signed in.
    /// Declared after the operations above because some compilers give it a slot among them.
    QString GetCacheKey() const override;

    /// The signature over `parameters`, leaving out `sign` itself: lower-case hexadecimal HMAC-SHA256 (RFC
    /// 2104), keyed with the UTF-8 bytes of `secret`, over name, "=", value, "\n" of each parameter, sorted
    /// by name.
    static QByteArray Sign(const QMap<QString, QString>& parameters, const QString& secret);

protected:
    /// The parameters of this attempt: `InitParam` fills them, `DoReset` empties them.
    QMap<QString, QString> m_parameters;
};
