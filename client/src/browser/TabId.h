#pragma once

#include <QtCore/QtGlobal>

/// Names a tab for as long as it is open, wherever it moves.
using TabId = quint64;

constexpr TabId NoTab = 0;
