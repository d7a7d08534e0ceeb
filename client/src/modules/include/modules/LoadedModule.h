#pragma once

#include <QtCore/QString>

class IBusinessModule;

/// A module that runs. Owned by the loader.
struct LoadedModule
{
    QString key;
    QString file;
    IBusinessModule* module = nullptr;
};
