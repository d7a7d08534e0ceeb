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
    /// The gateway refused a session, with `code`, before the main window was there: nothing stays saved, and
    /// the dialog says why it comes.
    void StartAgain(const QString& pin, const QString& code);
    void CloseDialog();

    /// Forgets the saved session and ends the token at the gateway, unless the gateway `refused` it. `ended`
    /// follows once, after 2 s at the latest.
    void End(const Session& session, bool refused, const std::function<void()>& ended);

    LoginFlow* GetFlow() const { return m_flow.get(); }
    SavedSession* GetSaved() const { return m_saved.get(); }

private:
    std::unique_ptr<IKeyStore> m_keyStore;
    std::unique_ptr<SavedSession> m_saved;
    std::unique_ptr<LoginService> m_service;
    std::unique_ptr<LoginFlow> m_flow;
};
