#include "login/LoginFlow.h"

#include "login/IKeyStore.h"
#include "login/SavedSession.h"

#include "LoginDialog.h"

#include "base/DpiTool.h"

#include <QtCore/QPointer>
#include <QtGui/QWindow>

LoginFlow::LoginFlow(LoginService* service, SavedSession* saved, IKeyStore* keyStore, QObject* parent)
    : QObject(parent), m_service(service), m_saved(saved), m_keyStore(keyStore)
{
    connect(m_service, &LoginService::SigLoggedIn, this, &LoginFlow::HandleSession);
    connect(m_service, &LoginService::SigFailed, this,
            [this](const QString& pin, const LoginProblem& problem) {
                Q_EMIT SigFailed(pin, problem);
                ShowDialog(pin, problem);
            });
}

LoginFlow::~LoginFlow() = default;

void LoginFlow::Start(const QString& pin, const LoginProblem& problem)
{
    if (!m_saved->HasRecord()) {
        ShowDialog(pin, problem);
        return;
    }
    const QPointer<LoginFlow> guard(this);
    m_saved->Load([guard, pin](const Session& session, LoginProblem::Kind kind) {
        if (!guard) {
            return;
        }
        if (session.IsEmpty()) {
            guard->ShowDialog(pin, {kind, QString(), QDateTime()});
        } else {
            Q_EMIT guard->SigLoggedIn(session, Origin::Saved);
        }
    });
}

void LoginFlow::StartWith(const QString& pin, const QString& password)
{
    m_service->LogIn(pin, password);
}

void LoginFlow::ShowDialog(const QString& pin, const LoginProblem& problem)
{
    if (!m_dialog) {
        MakeDialog();
        m_dialog->SetPin(pin);
    }
    m_dialog->SetBusy(false);
    m_dialog->ShowProblem(problem);
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void LoginFlow::CloseDialog()
{
    if (m_dialog) {
        m_dialog->hide();
        m_dialog.release()->deleteLater(); // may be called from one of its own signals
    }
}

void LoginFlow::MakeDialog()
{
    Q_EMIT SigDialogComes();
    m_dialog = std::make_unique<LoginDialog>();
    // The scale follows the dialog's screen, which needs a native window.
    m_dialog->winId();
    DpiTool::FollowScreenOf(m_dialog->windowHandle());
    connect(m_dialog.get(), &LoginDialog::SigLogIn, this,
            [this](const QString& pin, const QString& password, bool stay) {
                m_stay = stay;
                m_dialog->SetBusy(true);
                m_service->LogIn(pin, password);
            });
    connect(m_dialog.get(), &LoginDialog::SigCancel, this, [this] {
        m_service->Cancel();
        m_dialog->SetBusy(false);
    });
    connect(m_dialog.get(), &LoginDialog::rejected, this, &LoginFlow::SigGivenUp);

    // Offer it only when the key store has answered.
    m_dialog->SetStaySignedInAvailable(false, tr("Looking for the system's key store…"));
    const QPointer<LoginDialog> dialog(m_dialog.get());
    m_keyStore->AskAvailable([dialog](bool available, const QString& reason) {
        if (dialog) {
            dialog->SetStaySignedInAvailable(available, reason);
        }
    });
}

void LoginFlow::HandleSession(const Session& session)
{
    if (m_dialog && m_stay) {
        const QPointer<LoginFlow> guard(this);
        m_saved->Save(session, [guard](bool ok) {
            if (guard && !ok) {
                Q_EMIT guard->SigSaveFailed();
            }
        });
    } else if (m_saved->HasRecord()) {
        m_saved->Forget([] {});
    }
    Q_EMIT SigLoggedIn(session, m_dialog ? Origin::Dialog : Origin::CommandLine);
}
