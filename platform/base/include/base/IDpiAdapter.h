#pragma once

#include "base/BaseExport.h"

/// Something that sets sizes of its own from `DpiTool` and has to do it again when the scale changes.
/// GUI thread. The order of the operations is part of the contract.
class TL_BASE_EXPORT IDpiAdapter
{
public:
    /// With `followsScale` the object hears of every change of the scale from now on until it is destroyed.
    /// Otherwise it never does, which is for an object whose owner passes the change on.
    explicit IDpiAdapter(bool followsScale = true);
    virtual ~IDpiAdapter();

    IDpiAdapter(const IDpiAdapter&) = delete;
    IDpiAdapter& operator=(const IDpiAdapter&) = delete;

    /// After the scale changed; `DpiTool` gives the new one already. May destroy and make adapters, this one
    /// included; one made here is not called for this change. Does nothing by default.
    virtual void AdjustForDpi();
};
