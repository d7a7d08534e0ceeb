#include "http/IHttpRequest.h"

IHttpRequest::IHttpRequest(QObject* parent) : QObject(parent) {}

IHttpRequest::~IHttpRequest() = default;

void IHttpRequest::SetIdentity(const QString& identity)
{
    m_identity = identity;
}

QString IHttpRequest::GetIdentity() const
{
    return m_identity;
}
