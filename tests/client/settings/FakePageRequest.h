#pragma once

#include "http/IHttpRequestBase.h"

/// A read or write of the whole list.
class FakePageRequest final : public IHttpRequestBase
{
public:
    FakePageRequest(const QByteArray& name, const QByteArray& content) : m_name(name), m_content(content) {}

    QString GetApiUrl() const override { return QStringLiteral("http://127.0.0.1:1/"); }
    QByteArray GetApiBody() override { return m_content; }
    QByteArray GetMethodName() const override { return m_name; }
    QString GetCacheKey() const override { return QString::fromLatin1(m_name); }

private:
    QByteArray m_name;
    QByteArray m_content;
};
