#include "look/SymbolicIcon.h"

#include "SymbolicIconEngine.h"

QIcon SymbolicIcon::Make(const QString& name)
{
    return QIcon(new SymbolicIconEngine(name)); // the icon owns its engine
}
