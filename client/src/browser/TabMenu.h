#pragma once

#include <QtWidgets/QMenu>

/// The menu of one tab. Deletes itself when it closes.
class TabMenu final : public QMenu
{
    Q_OBJECT

public:
    /// What the tab allows.
    struct State
    {
        bool canReload = false;
        bool canClose = false;
        bool hasOthers = false; ///< that could be closed
    };

    /// `reopen` brings back the tab that was closed last. Not owned.
    TabMenu(const State& state, QAction* reopen, QWidget* parent);

Q_SIGNALS:
    void SigReload();
    void SigClose();
    void SigCloseOthers();

private:
    QAction* Add(const QString& text, bool enabled);
};
