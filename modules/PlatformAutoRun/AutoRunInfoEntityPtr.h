#pragma once

#include "AutoRunInfoEntity.h"

#include <QtCore/QSharedPointer>

/// How entries are held. Made with `AutoRunInfoEntityPtr::create()` (or from `new`, which the pointer
/// tracks as well), so that a weak pointer to the entry can be had from the plain QObject too.
using AutoRunInfoEntityPtr = QSharedPointer<AutoRunInfoEntity>;
