#pragma once

#include "AutoRunInfoEntity.h"

#include <QtCore/QSharedPointer>

/// How entries are held. Made with `AutoRunInfoEntityPtr::create()` or from `new`: both tell the QObject of
/// its shared owner, so that a `QPointer` made from the plain object follows the last owner's end.
using AutoRunInfoEntityPtr = QSharedPointer<AutoRunInfoEntity>;
