#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

/// The body of one attempt. It can be read only once: otherwise Qt would send the same bytes, with their old
/// signature, up to three more times when the server closes the connection.
class HttpBody final : public QIODevice
{
    Q_OBJECT

public:
    explicit HttpBody(const QByteArray& bytes, QObject* parent = nullptr);

    qint64 size() const override;
    bool reset() override;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    QByteArray m_bytes;
};
