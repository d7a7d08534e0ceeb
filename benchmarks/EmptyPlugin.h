#pragma once

#include <QtCore/QObject>
#include <QtCore/QtPlugin>

/// A Qt plug-in that does nothing: the least that loading one costs.
class EmptyPlugin final : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "tl.benchmark.Empty/1.0")
};
