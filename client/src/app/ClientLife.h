#pragma once

#include "ClientStage.h"

/// The stage of the client's life and the allowed steps between stages. An end may come at any stage; the
/// only step back is to `LoggingIn`, when the gateway refuses a session before the main window is there.
/// GUI thread.
class ClientLife final
{
public:
    ClientStage GetStage() const noexcept { return m_stage; }
    /// Whether the client has decided to end.
    bool IsEnding() const noexcept { return m_stage >= ClientStage::Ending; }

    [[nodiscard]] bool CanGo(ClientStage to) const noexcept;
    /// Returns false and keeps the stage if the step is not allowed.
    bool Go(ClientStage to) noexcept;

private:
    ClientStage m_stage = ClientStage::Starting;
};
