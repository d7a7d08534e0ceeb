#include "recovery/ReopenGuard.h"

#include "system/IDelay.h"

#include "settings-store/VXSettingManager.h"

#include <algorithm>

namespace {

const QString section = QStringLiteral("CLIENT");
/// Empty, or the number of deaths there will have been if the client dies now.
const QString deathsField = QStringLiteral("REOPEN_DEATHS");

} // namespace

ReopenGuard::ReopenGuard(std::unique_ptr<IDelay> delay, QObject* parent)
    : QObject(parent), m_delay(std::move(delay))
{}

ReopenGuard::~ReopenGuard() = default;

bool ReopenGuard::IsCareNeeded()
{
    const int stored = VXSettingManager::Instance()->GetUserValue(section, deathsField).toInt();
    m_deaths = std::clamp(stored, 0, deathLimit);
    return m_deaths >= deathLimit;
}

void ReopenGuard::TakeStart(bool reopened)
{
    m_started = true;
    if (reopened) {
        const int next = std::min(m_deaths + 1, deathLimit);
        VXSettingManager::Instance()->SetUserValue(section, deathsField, QString::number(next));
    }
    m_delay->Start(critical, [this] { TakeEnd(); });
}

void ReopenGuard::TakeEnd()
{
    m_delay->Stop();
    if (m_started && !VXSettingManager::Instance()->GetUserValue(section, deathsField).isEmpty()) {
        VXSettingManager::Instance()->SetUserValue(section, deathsField, QString());
    }
    m_deaths = 0;
}
