#pragma once

#include "base/BaseExport.h"

/// Something that takes sizes from `DpiTool` and has to set them again when the scale changes. GUI thread.
/// The order of the operations is part of the contract.
class TL_BASE_EXPORT IDpiAdapter
{
public:
    /// With `followsScale`, the object hears of every change of the scale until it is destroyed. Without, it
    /// never does: its owner passes changes on.
    explicit IDpiAdapter(bool followsScale = true);
    virtual ~IDpiAdapter();

    IDpiAdapter(const IDpiAdapter&) = delete;
    IDpiAdapter& operator=(const IDpiAdapter&) = delete;

    /// Called after the scale changed; `DpiTool` already gives the new one. May destroy and make adapters,
    /// this one included; an adapter made here is not called for this change. Does nothing by default.
    virtual void AdjustForDpi();
};
