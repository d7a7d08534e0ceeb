#pragma once

#include "login/LoginService.h"
#include "login/Session.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class IKeyStore;
class SavedSession;
class LoginDialog;

/// Gets a session: the saved one, or by the command line's account and password, or by the dialog; the caller
/// chooses the order. GUI thread.
class LoginFlow final : public QObject
{
    Q_OBJECT

public:
    enum class Origin
    {
        Dialog,
        CommandLine,
        Saved,
        Restart ///< not by this class: handed over by the previous process
    };

    /// Owns none of the objects.
    LoginFlow(LoginService* service, SavedSession* saved, IKeyStore* keyStore, QObject* parent = nullptr);
    ~LoginFlow() override;

    /// Uses the saved session if there is one; otherwise shows the dialog with `pin` and `problem`.
    void Start(const QString& pin, const LoginProblem& problem);
    /// Logs in without the dialog, and shows it when that fails.
    void StartWith(const QString& pin, const QString& password);
    /// Shows the dialog with the reason for it, also again after `CloseDialog`.
    void ShowDialog(const QString& pin, const LoginProblem& problem);

    /// Call when the session is in use.
    void CloseDialog();
    /// Null when there is no dialog.
    LoginDialog* GetDialog() const { return m_dialog.get(); }

Q_SIGNALS:
    /// Emitted just before the dialog is created.
    void SigDialogComes();
    /// An open dialog stays busy until `CloseDialog`.
    void SigLoggedIn(const Session& session, LoginFlow::Origin origin);
    void SigFailed(const QString& pin, const LoginProblem& problem);
    /// The user wanted to stay signed in, but the session could not be saved.
    void SigSaveFailed();
    /// The user closed the dialog.
    void SigGivenUp();

private:
    void MakeDialog();
    void HandleSession(const Session& session);

    LoginService* m_service;
    SavedSession* m_saved;
    IKeyStore* m_keyStore;
    std::unique_ptr<LoginDialog> m_dialog;
    bool m_stay = false;
};
