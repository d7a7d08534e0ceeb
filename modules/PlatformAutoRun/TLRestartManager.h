#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

template <class T>
class ProcessWide;

/// Brings the open tabs over a restart that the client does by itself: written before it, reopened without
/// asking after it. The record stands among the signed-in user's settings and serves once. Lives until the
/// module is unloaded. GUI thread.
class TLRestartManager final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, which has to be on the GUI thread.
    static TLRestartManager* Instance();
    static void ReleaseInstance();

    /// Writes the router URLs of the open tabs, in their order: not of the home tab, not of tabs that
    /// cannot be reopened, and not of tabs with the URL `ignoreUrl`, whatever its letters' case. No tab
    /// left: the record is emptied. Without a browser nothing is known, and the record stays as it is.
    void Save(const QString& ignoreUrl);
    /// Empties the record and reopens its tabs, provided they are those of a user of the same belong type.
    /// A record that cannot be read is like none.
    void Restore();
    /// Empties the record. Called last after every log-in.
    void Clear();
    /// Stores `text` as the record, as it is.
    void SetValue(const QString& text);

private:
    friend class ProcessWide<TLRestartManager>;

    TLRestartManager() = default;
    ~TLRestartManager() override = default;

    Q_DISABLE_COPY(TLRestartManager)
};
