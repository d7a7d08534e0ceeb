#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

/// A file that a page wants to save. Owned by the page factory; lives until it has finished and the last
/// signal was delivered. GUI thread.
class IDownload : public QObject
{
    Q_OBJECT

public:
    ~IDownload() override = default;

    /// The name that the server proposes, without a folder.
    virtual QString GetFileName() const = 0;
    virtual QUrl GetUrl() const = 0;
    /// Where it is saved; empty before `Accept`.
    virtual QString GetPath() const = 0;

    /// Only while the factory announces the download.
    virtual void Accept(const QString& path) = 0;
    virtual void Cancel() = 0;

Q_SIGNALS:
    /// In bytes; `total` is -1 while it is not known.
    void SigProgress(qint64 received, qint64 total);
    /// Not ok when it was cancelled or failed; `error` is empty for a cancelled one.
    void SigFinished(bool ok, const QString& error);

protected:
    explicit IDownload(QObject* parent = nullptr) : QObject(parent) {}
    Q_DISABLE_COPY(IDownload)
};
