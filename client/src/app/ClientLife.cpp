#include "ClientLife.h"

bool ClientLife::CanGo(ClientStage to) const noexcept
{
    switch (to) {
    case ClientStage::Starting:
        return false;
    case ClientStage::LoggingIn:
        return m_stage == ClientStage::Starting || m_stage == ClientStage::Entering;
    case ClientStage::Entering:
        // From `Starting`, too: a restarted client already has its session.
        return m_stage == ClientStage::Starting || m_stage == ClientStage::LoggingIn;
    case ClientStage::Working:
        return m_stage == ClientStage::Entering;
    case ClientStage::Ending:
        return m_stage < ClientStage::Ending;
    case ClientStage::Ended:
        // From any stage: something else may end the event loop.
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
