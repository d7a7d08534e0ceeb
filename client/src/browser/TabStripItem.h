#pragma once

#include <QtCore/QString>
#include <QtGui/QIcon>

/// What the strip shows of one tab.
struct TabStripItem
{
    QString title;
    QIcon icon;
    bool closable = true;
    bool loading = false;
};
