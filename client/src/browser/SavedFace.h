#pragma once

#include <QtCore/QString>

/// What is kept of a tab so that it can show itself before it is loaded again. Plain texts; either may be
/// empty.
struct SavedFace
{
    QString title;
    QString iconUrl;
};
