#pragma once

#include "core/CoreExport.h"

/// Something that sets more of its look than the theme can, and has to do so again when the theme changes.
/// GUI thread.
class TL_CORE_EXPORT IChangeSkinBase
{
public:
    IChangeSkinBase() = default;
    virtual ~IChangeSkinBase();

    IChangeSkinBase(const IChangeSkinBase&) = delete;
    IChangeSkinBase& operator=(const IChangeSkinBase&) = delete;

    /// Called after another theme was applied. Does nothing by default.
    virtual void ChangeSkin();
};
