#pragma once

#include "http/IHttpResponse.h"

/// A response that has no say about keeping replies, and takes what it is given for a success.
class PlainResponse final : public IHttpResponse
{
public:
    void SetData(const QByteArray&) override { m_code = GetSuccessCode(); }
    bool IsSuccess() const override { return m_code == GetSuccessCode(); }
    QString GetErrorCode() const override { return m_code; }
    QString GetErrorDesc() const override { return m_description; }
    bool ShouldRetry() const override { return false; }
    void DoReset() override
    {
        m_code.clear();
        m_description.clear();
    }
    QString GetSuccessCode() const override { return QStringLiteral("0"); }
    void SetNetworkError(int error, const QString& description) override
    {
        m_code = QString::number(error);
        m_description = description;
    }

private:
    QString m_code;
    QString m_description;
};
