#pragma once

#include "frame-core/IModuleEventDispatch.h"

#include <QtCore/QObject>

/// Passes module events on as a signal.
class ModuleEventDispatch final : public QObject, public IModuleEventDispatch
{
    Q_OBJECT

public:
    explicit ModuleEventDispatch(QObject* parent = nullptr) : QObject(parent) {}

    void DispatchModuleEvent(const QString& sender, const ModuleEvent& event) override
    {
        Q_EMIT SigModuleEvent(sender, event);
    }

Q_SIGNALS:
    void SigModuleEvent(const QString& sender, const ModuleEvent& event);
};
