#include "gateway/GatewayWatch.h"

#include "gateway/GatewayCodes.h"
#include "system/IDelay.h"

#include "http/HttpCallReport.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::array<int, 5> Pauses{5000, 10000, 20000, 40000, 60000}; // [ms]

} // namespace

GatewayWatch::GatewayWatch(std::unique_ptr<IDelay> delay, std::function<void()> ask, QObject* parent)
    : QObject(parent), m_delay(std::move(delay)), m_ask(std::move(ask))
{}

GatewayWatch::~GatewayWatch() = default;

void GatewayWatch::HandleReport(const HttpCallReport& report)
{
    const QString code = report.fromCache ? report.failureCode : report.code;
    const bool failed = report.fromCache || (!report.ok && GatewayCodes::IsUnreachable(code));
    if (!failed) {
        m_delay->Stop();
        m_scheduled = false;
        m_round = 0;
        m_failure.clear();
        if (std::exchange(m_lost, false)) {
            m_fromCache = false;
            Q_EMIT SigFound();
        }
        return;
    }
    const QString failure = report.fromCache ? report.failure : report.description;
    const bool fromCache = m_fromCache || report.fromCache;
    const bool changed = !m_lost || fromCache != m_fromCache || failure != m_failure;
    m_lost = true;
    m_fromCache = fromCache;
    m_failure = failure;
    Schedule();
    if (changed) {
        Q_EMIT SigLost(m_failure, m_fromCache);
    }
}

void GatewayWatch::AskNow()
{
    if (m_lost) {
        m_delay->Stop();
        Ask();
    }
}

void GatewayWatch::Ask()
{
    m_scheduled = false;
    m_ask();
}

void GatewayWatch::Schedule()
{
    if (m_scheduled) {
        return; // several calls fail together
    }
    m_scheduled = true;
    const int pause = Pauses[std::min<std::size_t>(std::size_t(m_round), Pauses.size() - 1)];
    ++m_round;
    m_delay->Start(pause, [this] { Ask(); });
}
