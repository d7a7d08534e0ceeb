#pragma once

#include "login/LoginFlow.h"
#include "login/Session.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>
#include <memory>

class IKeyStore;
class LoginService;
class SavedSession;
struct ClientOptions;

/// How the user comes to a session and how it ends: by the command line, the saved session or the dialog, and
/// out again. GUI thread.
class ClientSession final : public QObject
{
    Q_OBJECT

public:
    explicit ClientSession(QObject* parent = nullptr);
    ~ClientSession() override;

    /// As the options say; otherwise the saved session, otherwise the dialog.
    void Start(const ClientOptions& options);
    void CloseDialog();

    /// The session that began last; empty before the first and after a refused one was dropped.
    const Session& Get() const noexcept { return m_session; }
    /// The user is signed in with this one.
    void Begin(const Session& session);

    /// The gateway refuses the session with this code.
    void SetRefusal(const QString& code) { m_refusal = code; }
    /// Empty while the gateway does not refuse it.
    const QString& GetRefusal() const noexcept { return m_refusal; }
    /// The session was refused before the main window was there: drops it, leaves none saved, and shows the
    /// dialog, which says why.
    void StartAgain();

    /// Forgets the saved session and ends the token at the gateway, unless the gateway refused it. `ended`
    /// follows once, after 2 s at the latest.
    void End(const std::function<void()>& ended);

    LoginFlow* GetFlow() const { return m_flow.get(); }
    SavedSession* GetSaved() const { return m_saved.get(); }

private:
    std::unique_ptr<IKeyStore> m_keyStore;
    std::unique_ptr<SavedSession> m_saved;
    std::unique_ptr<LoginService> m_service;
    std::unique_ptr<LoginFlow> m_flow;
    Session m_session;
    QString m_refusal;
};
