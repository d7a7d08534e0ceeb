#pragma once

#include "Security.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QUrl>
#include <QtWidgets/QWidget>

class AddressBar;
class QHBoxLayout;
class QToolButton;

/// The row below the tabs: back, forward, reload, address and menu. Shows what it is told; user actions come
/// out as signals.
class Toolbar final : public QWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    /// What it shows of the current tab.
    struct State
    {
        QUrl address;
        Security security = Security::None;
        bool canGoBack = false;
        bool canGoForward = false;
        bool canReload = false;
        bool loading = false;
    };

    explicit Toolbar(QWidget* parent = nullptr);

    void SetState(const State& state);
    /// Shows the tab's address instead of what was typed and not loaded.
    void ShowAddress();
    /// Gives the keyboard to the address.
    void StartTyping();
    void ClickMenu();

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigBack();
    void SigForward();
    void SigReload();
    void SigStop();
    void SigAddressEntered(const QString& text);
    /// The user wants the menu, below `anchor`.
    void SigMenuRequested(QWidget* anchor);

protected:
    void changeEvent(QEvent* event) override;

private:
    void Retranslate();

    State m_state;
    QToolButton* m_back;
    QToolButton* m_forward;
    QToolButton* m_reload;
    QToolButton* m_menu;
    AddressBar* m_address;
    QHBoxLayout* m_addressRoom; // keeps some room free beside the address
};
