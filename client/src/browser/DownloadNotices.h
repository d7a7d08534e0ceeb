#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>

class IDownload;
class NoticeBar;

/// Asks where to save a file and shows the progress in a bar of its own, until the user closes it.
class DownloadNotices final : public QObject
{
    Q_OBJECT

public:
    /// Asks the user for a path, given a proposal; empty: do not save.
    using AskPath = std::function<QString(const QString& proposal)>;

    /// `bar` outlives this object.
    DownloadNotices(NoticeBar* bar, const AskPath& askPath, QObject* parent = nullptr);

    void HandleDownload(IDownload* download);

private:
    void ShowFinished(const QString& id, const QString& path, bool ok, const QString& error);

    NoticeBar* m_bar;
    AskPath m_askPath;
    QString m_folder; // where the last one was saved
    int m_count = 0;
};
