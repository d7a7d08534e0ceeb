#pragma once

#include "clientpages/ClientPage.h"

class TLPushButton;
struct SettingsServices;

/// What the client stores about the user, and how to clear it.
class PrivacyPage final : public ClientPage
{
    Q_OBJECT

public:
    /// `services` is not owned.
    explicit PrivacyPage(const SettingsServices* services);
    ~PrivacyPage() override;

    static QStringList GetKeywords();
    void ShowState() override;

private:
    enum class State
    {
        Ready,
        Busy,
        Done,
        Failed
    };

    void ClearBrowsing();
    void ForgetSession();
    void Show(TLPushButton* button, State state);

    const SettingsServices* m_services;
    TLPushButton* m_browsing;
    TLPushButton* m_session;
    TLPushButton* m_replies;
    State m_browsingState = State::Ready;
    State m_sessionState = State::Ready;
    State m_repliesState = State::Ready;
};
