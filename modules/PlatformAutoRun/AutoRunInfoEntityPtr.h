#pragma once

#include "AutoRunInfoEntity.h"

#include <QtCore/QSharedPointer>

/// The shared pointer that holds an entry. Make it with `AutoRunInfoEntityPtr::create()` or from `new`: both
/// tell the QObject of its shared owner, so that a `QPointer` to the plain object becomes null when the last
/// owner goes.
using AutoRunInfoEntityPtr = QSharedPointer<AutoRunInfoEntity>;
