#pragma once

#include "http-module/IHttpRequestDsm.h"

#include <functional>

/// A read with something wrong about it.
class OddRequest final : public IHttpRequestDsm
{
public:
    QString GetApiUrl() const override { return url.isEmpty() ? IHttpRequestDsm::GetApiUrl() : url; }
    QByteArray GetApiBody() override { return IHttpRequestDsm::GetApiBody() + bodyEnd; }
    QString GetDsmMethod() const override { return method; }
    QByteArray GetBusinessParam() const override { return business; }
    void InitParam() override
    {
        IHttpRequestDsm::InitParam();
        if (edit) {
            edit(m_parameters);
            if (m_parameters.contains(QStringLiteral("sign"))) {
                m_parameters[QStringLiteral("sign")] =
                    QString::fromLatin1(Sign(m_parameters, GetDsmAppendix(DsmType::AppSecret)));
            }
        }
    }

    QString url; ///< empty: the gateway's
    QString method = QStringLiteral("dsm.tl.pc.auto.run.get");
    QByteArray business;
    QByteArray bodyEnd;
    std::function<void(QMap<QString, QString>&)> edit; ///< before the request is signed again
};
