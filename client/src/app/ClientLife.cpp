#include "ClientLife.h"

bool ClientLife::CanGo(ClientStage to) const noexcept
{
    switch (to) {
    case ClientStage::Starting:
        return false;
    case ClientStage::LoggingIn:
        return m_stage == ClientStage::Starting || m_stage == ClientStage::Entering;
    case ClientStage::Entering:
        // From the start, too: a restarted client is given its session.
        return m_stage == ClientStage::Starting || m_stage == ClientStage::LoggingIn;
    case ClientStage::Working:
        return m_stage == ClientStage::Entering;
    case ClientStage::Ending:
        return m_stage < ClientStage::Ending;
    case ClientStage::Ended:
        // From any stage: the event loop may be ended from outside.
        return m_stage < ClientStage::Ended;
    }
    return false;
}

bool ClientLife::Go(ClientStage to) noexcept
{
    if (!CanGo(to)) {
        return false;
    }
    m_stage = to;
    return true;
}
