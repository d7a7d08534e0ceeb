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

/// Signs the user in, by the command line, the saved session or the dialog, and out again. GUI thread.
class ClientSession final : public QObject
{
    Q_OBJECT

public:
    explicit ClientSession(QObject* parent = nullptr);
    ~ClientSession() override;

    /// Signs in as the options say, otherwise with the saved session, otherwise through the dialog.
    void Start(const ClientOptions& options);
    void CloseDialog();

    /// The latest session; empty before the first, and after a refused one is dropped.
    const Session& Get() const noexcept { return m_session; }
    /// Call when the user is signed in with `session`.
    void Begin(const Session& session);

    /// Call when the gateway refuses the session; `code` is its reason.
    void SetRefusal(const QString& code) { m_refusal = code; }
    /// Empty while the gateway accepts the session.
    const QString& GetRefusal() const noexcept { return m_refusal; }
    /// Call when the session is refused before the main window is there. Drops it, also from the key store,
    /// and shows the dialog, which says why.
    void StartAgain();

    /// Forgets the saved session and ends the token at the gateway, unless the gateway refused it. Calls
    /// `ended` once, after 2 s at the latest.
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
