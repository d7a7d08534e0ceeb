#pragma once

#include "frame-core/FrameCoreExport.h"

#include <QtCore/QString>
#include <QtCore/qglobal.h>

class ModuleEvent;

/// Passes module events on. The client provides it through `Provided<IModuleEventDispatch>`. GUI thread;
/// delivery is synchronous.
class TL_FRAME_CORE_EXPORT IModuleEventDispatch
{
public:
    virtual ~IModuleEventDispatch();

    /// `sender` is the key of the sending module.
    virtual void DispatchModuleEvent(const QString& sender, const ModuleEvent& event) = 0;

    /// The provided object, or one that drops every event while none is provided. Never null.
    static IModuleEventDispatch* GetDispatch();

    static IModuleEventDispatch* Provided() noexcept;
    static void Provide(IModuleEventDispatch* dispatch) noexcept;

protected:
    IModuleEventDispatch() = default;
    Q_DISABLE_COPY(IModuleEventDispatch)
};
