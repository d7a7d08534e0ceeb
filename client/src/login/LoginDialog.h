#pragma once

#include "login/LoginProblem.h"

#include "base/IDpiAdapter.h"

#include <QtWidgets/QDialog>

#include <functional>
#include <memory>

namespace Ui {
class LoginDialog;
}

/// Asks for pin and password. Sends nothing itself: emits what the user wants and shows what its owner
/// reports. Escape or closing the dialog cancels a running log-in, and otherwise rejects the dialog. Follows
/// language, theme and scale while it is open. GUI thread.
class LoginDialog final : public QDialog, public IDpiAdapter
{
    Q_OBJECT

public:
    /// `screenHeight` returns how high a window may be [px]; empty: the available height of the dialog's
    /// screen.
    explicit LoginDialog(QWidget* parent = nullptr, std::function<int()> screenHeight = {});
    ~LoginDialog() override;

    /// Fills in the account. Unless it is empty, the focus goes to the password.
    void SetPin(const QString& pin);
    /// Whether the client can save a session; `reason` says why not.
    void SetStaySignedInAvailable(bool available, const QString& reason);

    /// While a log-in runs, the user can change nothing, but can cancel.
    void SetBusy(bool busy);
    bool IsBusy() const noexcept { return m_busy; }

    /// Shows the problem and moves the focus to the field that the user has to change.
    void ShowProblem(const LoginProblem& problem);
    void reject() override;

    void AdjustForDpi() override;

Q_SIGNALS:
    /// Neither text is empty; the pin has no surrounding blanks.
    void SigLogIn(const QString& pin, const QString& password, bool staySignedIn);
    /// The user cancels the running log-in.
    void SigCancel();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void SlotLogIn();
    void ShowPassword(bool shown);
    void SetCapsLock(bool on);
    void UpdateTexts();
    void FocusFirstEmpty();

    const std::unique_ptr<Ui::LoginDialog> m_ui;
    const std::function<int()> m_screenHeight;
    LoginProblem m_problem;
    QString m_noKeyStoreReason;
    bool m_busy = false;
    bool m_canStaySignedIn = true;
};
