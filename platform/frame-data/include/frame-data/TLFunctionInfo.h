#pragma once

#include "frame-data/FrameDataExport.h"

/// One function switch. A switch that the operator never set is neither valid nor displayed.
class TL_FRAME_DATA_EXPORT TLFunctionInfo final
{
public:
    TLFunctionInfo() = default;
    TLFunctionInfo(bool valid, bool display) noexcept;

    /// Whether the function may be used.
    bool IsValid() const noexcept;
    /// Whether the function is shown at all.
    bool IsDisplay() const noexcept;

private:
    bool m_valid = false;
    bool m_display = false;
};
