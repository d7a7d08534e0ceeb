#include "clientpages/PrivacyPage.h"

#include "settings/SettingsServices.h"

#include "base-ui/PackagedMsgBox.h"
#include "base-ui/TLPushButton.h"
#include "base-ui/TLToast.h"

#include <QtCore/QPointer>

PrivacyPage::PrivacyPage(const SettingsServices* services)
    : m_services(services)
    , m_browsing(new TLPushButton(this))
    , m_session(new TLPushButton(this))
    , m_replies(new TLPushButton(this))
{
    m_browsing->setObjectName(QStringLiteral("clear_browsing_button"));
    m_session->setObjectName(QStringLiteral("forget_session_button"));
    m_replies->setObjectName(QStringLiteral("clear_replies_button"));
    for (TLPushButton* const button : {m_browsing, m_session, m_replies}) {
        button->m_sizeClass = 1;
        button->SetButtonType(ButtonType::Secondary);
        button->setAutoDefault(false);
        button->hide();
    }
    AddCard();
    if (services->clearBrowsingData) {
        AddRow([] { return tr("Browsing data"); },
               [] { return tr("Clears cookies now; the cache and other data of pages at the next start."); },
               m_browsing);
        m_browsing->show();
    }
    if (services->forgetSession) {
        AddRow([] { return tr("Stay signed in"); },
               [] { return tr("The session that lets you in without a password next time."); }, m_session);
        m_session->show();
    }
    if (services->clearCachedReplies) {
        AddRow([] { return tr("Last known configuration"); },
               [] { return tr("What the client shows while the gateway cannot be reached."); }, m_replies);
        m_replies->show();
    }
    AddTexts([this] { ShowState(); });
    connect(m_browsing, &QPushButton::clicked, this, &PrivacyPage::ClearBrowsing);
    connect(m_session, &QPushButton::clicked, this, &PrivacyPage::ForgetSession);
    connect(m_replies, &QPushButton::clicked, this, [this] {
        m_services->clearCachedReplies();
        m_repliesState = State::Done;
        ShowState();
    });
}

PrivacyPage::~PrivacyPage() = default;

QStringList PrivacyPage::GetKeywords()
{
    return {tr("Privacy"),        tr("Cookies"),  tr("Cache"), tr("Browsing data"),
            tr("Stay signed in"), tr("Password"), tr("Clear"), tr("Last known configuration")};
}

void PrivacyPage::ShowState()
{
    Show(m_browsing, m_browsingState);
    Show(m_session, m_sessionState);
    Show(m_replies, m_repliesState);
    m_browsing->setText(m_browsingState == State::Done     ? tr("Cleared")
                        : m_browsingState == State::Failed ? tr("Try again")
                                                           : tr("Clear"));
    m_replies->setText(m_repliesState == State::Done ? tr("Cleared") : tr("Clear"));
    const bool saved = m_services->hasSavedSession && m_services->hasSavedSession();
    m_session->setText(m_sessionState == State::Done ? tr("Forgotten") : tr("Forget"));
    if (m_sessionState == State::Ready) {
        m_session->setEnabled(saved);
    }
}

void PrivacyPage::ClearBrowsing()
{
    const QPointer<PrivacyPage> guard(this);
    const auto answer =
        PackagedMsgBox::question(tr("This signs you out of the pages you opened. Clear their data?"), this,
                                 QMessageBox::Yes | QMessageBox::No, {tr("Clear"), tr("Cancel")});
    if (!guard || answer != QMessageBox::Yes) {
        return;
    }
    m_browsingState = State::Busy;
    ShowState();
    m_services->clearBrowsingData([self = QPointer<PrivacyPage>(this)](bool ok) {
        if (!self) {
            return;
        }
        self->m_browsingState = ok ? State::Done : State::Failed;
        self->ShowState();
        if (!ok) {
            TLToast::Show(tr("The data could not be cleared."), ToastType::Error);
        }
    });
}

void PrivacyPage::ForgetSession()
{
    m_sessionState = State::Busy;
    ShowState();
    m_services->forgetSession([self = QPointer<PrivacyPage>(this)] {
        if (!self) {
            return;
        }
        self->m_sessionState = State::Done;
        self->ShowState();
    });
}

void PrivacyPage::Show(TLPushButton* button, State state)
{
    button->setEnabled(state == State::Ready || state == State::Failed);
}
