#include "HttpBody.h"

#include <algorithm>
#include <cstring>

HttpBody::HttpBody(const QByteArray& bytes, QObject* parent) : QIODevice(parent), m_bytes(bytes)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 HttpBody::size() const
{
    return m_bytes.size();
}

bool HttpBody::reset()
{
    return pos() == 0;
}

qint64 HttpBody::readData(char* data, qint64 maxSize)
{
    const qint64 count = std::min(maxSize, size() - pos());
    if (count <= 0) {
        return maxSize > 0 ? -1 : 0;
    }
    std::memcpy(data, m_bytes.constData() + pos(), static_cast<size_t>(count));
    return count;
}

qint64 HttpBody::writeData(const char* /*data*/, qint64 /*size*/)
{
    return -1;
}
