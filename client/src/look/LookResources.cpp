#include "look/LookResources.h"

#include <QtCore/QDir>

// The macro declares a function in the enclosing namespace, so it must be used outside any namespace.
static void InitResources()
{
    Q_INIT_RESOURCE(client);
}

void LookResources::Ensure()
{
    InitResources();
}
