#include "recovery/ReopenGuard.h"

#include "system/IDelay.h"

#include "settings-store/VXSettingManager.h"

#include <algorithm>

namespace {

const QString Section = QStringLiteral("CLIENT");
/// Empty, or the number of deaths there will have been if the client dies now.
const QString DeathsField = QStringLiteral("REOPEN_DEATHS");

} // namespace

ReopenGuard::ReopenGuard(std::unique_ptr<IDelay> delay, QObject* parent)
    : QObject(parent), m_delay(std::move(delay))
{}

ReopenGuard::~ReopenGuard() = default;

bool ReopenGuard::IsCareNeeded()
{
    const int stored = VXSettingManager::Instance()->GetUserValue(Section, DeathsField).toInt();
    m_deaths = std::clamp(stored, 0, DeathLimit);
    return m_deaths >= DeathLimit;
}

void ReopenGuard::HandleStart(bool reopened)
{
    m_started = true;
    if (reopened) {
        const int next = std::min(m_deaths + 1, DeathLimit);
        VXSettingManager::Instance()->SetUserValue(Section, DeathsField, QString::number(next));
    }
    m_delay->Start(Critical, [this] { HandleEnd(); });
}

void ReopenGuard::HandleEnd()
{
    m_delay->Stop();
    if (m_started && !VXSettingManager::Instance()->GetUserValue(Section, DeathsField).isEmpty()) {
        VXSettingManager::Instance()->SetUserValue(Section, DeathsField, QString());
    }
    m_deaths = 0;
}
