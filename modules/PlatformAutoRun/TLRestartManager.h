#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

template <class T>
class ProcessWide;

/// Carries the open tabs across a restart of the client: records them before it, and reopens them after it
/// without asking. The record is one of the signed-in user's settings and serves once. Lives until the module
/// is unloaded. GUI thread.
class TLRestartManager final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, on the GUI thread.
    static TLRestartManager* Instance();
    static void ReleaseInstance();

    /// Records the router URLs of the open tabs in their order, without the home tab, tabs that cannot be
    /// reopened, and tabs with the URL `ignoreUrl`, in any case. Empties the record when no tab is left.
    /// Without a browser it knows nothing, and leaves the record as it is.
    void Save(const QString& ignoreUrl);
    /// Empties the record and reopens its tabs if they belong to a user of the same belong type. An
    /// unreadable record counts as empty.
    void Restore();
    /// Empties the record. Called last after every log-in.
    void Clear();
    /// Stores `text` as the record, unchanged.
    void SetValue(const QString& text);

private:
    friend class ProcessWide<TLRestartManager>;

    TLRestartManager() = default;
    ~TLRestartManager() override = default;

    Q_DISABLE_COPY(TLRestartManager)
};
