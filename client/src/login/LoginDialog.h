#pragma once

#include "login/LoginProblem.h"

#include "base/IDpiAdapter.h"

#include <QtWidgets/QDialog>

#include <functional>
#include <memory>

namespace Ui {
class LoginDialog;
}

/// Asks for pin and password. Sends nothing itself: it says what the user wants and shows what came of
/// it. Escape, or closing it, cancels a log-in that runs, and is a rejection otherwise. Follows language,
/// theme and scale while it is shown. GUI thread.
class LoginDialog final : public QDialog, public IDpiAdapter
{
    Q_OBJECT

public:
    /// `screenHeight` says how high a window may be [px]; empty: as high as the dialog's screen has room for.
    explicit LoginDialog(QWidget* parent = nullptr, std::function<int()> screenHeight = {});
    ~LoginDialog() override;

    /// The account that is proposed. With one, the password is where typing begins.
    void SetPin(const QString& pin);
    /// Whether a session can be kept; `reason` says why not.
    void SetStaySignedInAvailable(bool available, const QString& reason);

    /// A log-in runs: nothing can be changed, and it can be cancelled.
    void SetBusy(bool busy);
    bool IsBusy() const noexcept { return m_busy; }

    /// Shows the problem, in the language of the moment, and puts the focus where it is mended.
    void ShowProblem(const LoginProblem& problem);
    void reject() override;

    void AdjustForDpi() override;

Q_SIGNALS:
    /// Both texts are filled in; the pin without blanks around it.
    void SigLogIn(const QString& pin, const QString& password, bool staySignedIn);
    /// The user does not want to wait for the log-in that runs.
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
