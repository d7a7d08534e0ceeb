#pragma once

#include "login/LoginService.h"
#include "login/Session.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class IKeyStore;
class SavedSession;
class LoginDialog;

/// The way to a session: the one that was kept, the account and password of the command line, or the
/// dialog, in the order that the caller chooses. GUI thread.
class LoginFlow final : public QObject
{
    Q_OBJECT

public:
    enum class Origin
    {
        Dialog,
        CommandLine,
        Saved,
        Restart ///< not this class: the process before handed it over
    };

    /// Nothing is owned.
    LoginFlow(LoginService* service, SavedSession* kept, IKeyStore* keyStore, QObject* parent = nullptr);
    ~LoginFlow() override;

    /// Takes the kept session when there is one; otherwise the dialog comes, proposing `pin` and saying
    /// `problem`.
    void Start(const QString& pin, const LoginProblem& problem);
    /// Signs in without the dialog, which comes when that fails.
    void StartWith(const QString& pin, const QString& password);
    /// The dialog, saying why it comes; again after it was closed by `CloseDialog`, too.
    void ShowDialog(const QString& pin, const LoginProblem& problem);

    /// Once the session is taken: the dialog goes.
    void CloseDialog();
    /// The dialog while it is there; null otherwise.
    LoginDialog* GetDialog() const { return m_dialog.get(); }

Q_SIGNALS:
    /// The dialog is about to be made.
    void SigDialogComes();
    /// A dialog stays, busy, until `CloseDialog`.
    void SigLoggedIn(const Session& session, LoginFlow::Origin origin);
    void SigFailed(const QString& pin, const LoginProblem& problem);
    /// A session was to be kept and could not be.
    void SigKeepFailed();
    /// The user closed the dialog.
    void SigGivenUp();

private:
    void MakeDialog();
    void TakeSession(const Session& session);

    LoginService* m_service;
    SavedSession* m_kept;
    IKeyStore* m_keyStore;
    std::unique_ptr<LoginDialog> m_dialog;
    bool m_stay = false;
};
