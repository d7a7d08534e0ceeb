#pragma once

#include <QtCore/QString>

class IBusinessModule;

/// A running module. The loader owns it.
struct LoadedModule
{
    QString key;
    QString file;
    IBusinessModule* module = nullptr;
};
