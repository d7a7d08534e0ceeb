#pragma once

#include "ClientStage.h"

/// The stage of the client's life and the steps from one to the next. Anything may end at any time; only a
/// session that the gateway refuses before the main window is there leads back. GUI thread.
class ClientLife final
{
public:
    ClientStage GetStage() const noexcept { return m_stage; }
    /// Whether an end was decided on.
    bool IsEnding() const noexcept { return m_stage >= ClientStage::Ending; }

    [[nodiscard]] bool CanGo(ClientStage to) const noexcept;
    /// False for a step that is not allowed, and the stage stays as it is.
    bool Go(ClientStage to) noexcept;

private:
    ClientStage m_stage = ClientStage::Starting;
};
