#pragma once

#include <QtCore/QString>

/// One line of what the client is made of.
struct AboutEntry
{
    QString name;
    QString version; ///< empty: not known
};
