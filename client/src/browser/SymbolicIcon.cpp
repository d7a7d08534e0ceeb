#include "browser/SymbolicIcon.h"

#include "browser/SymbolicIconEngine.h"

QIcon SymbolicIcon::Make(const QString& name)
{
    return QIcon(new SymbolicIconEngine(name)); // the icon owns its engine
}
