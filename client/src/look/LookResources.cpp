#include "look/LookResources.h"

#include <QtCore/QDir>

// The macro declares a function of the enclosing namespace, so it must not stand inside of one.
static void InitResources()
{
    Q_INIT_RESOURCE(client);
}

void LookResources::Ensure()
{
    InitResources();
}
