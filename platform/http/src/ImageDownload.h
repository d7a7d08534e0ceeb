#pragma once

#include "http/ImageCacheLimits.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>
#include <QtCore/QUrl>

class QNetworkAccessManager;
class QNetworkReply;

/// Downloads one file from the web, within limits on its size and time. Deleting it hangs up.
class ImageDownload final : public QObject
{
    Q_OBJECT

public:
    /// `network` must outlive the download.
    ImageDownload(QNetworkAccessManager& network, const ImageCacheLimits& limits);
    ~ImageDownload() override;

    /// Called once.
    void Start(const QUrl& url);

    QByteArray GetBytes() const { return m_bytes; }
    /// What went wrong, for the log; empty after a success.
    QString GetProblem() const { return m_problem; }

    /// The address as a URL to fetch a picture from: http or https, without user info. Empty when it is not
    /// one.
    static QUrl ToUrl(const QString& address);

Q_SIGNALS:
    /// Emitted once, from the event loop. The receiver may delete the download.
    void SigDone();

private:
    void OnMetaDataChanged();
    void OnReadyRead();
    void OnFinished();
    /// The server redirects to another address.
    void Follow();
    void DropReply();
    void Conclude(const QString& problem);

    QNetworkAccessManager& m_network;
    const qint64 m_maxSize;           // [bytes]
    QNetworkReply* m_reply = nullptr; // a child of m_network
    int m_redirects = 0;
    QTimer m_deadline;
    QByteArray m_bytes;
    QString m_problem;
};
