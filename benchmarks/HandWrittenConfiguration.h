#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVector>

/// The same configuration as the module's records, read and written by hand with Qt's JSON classes, for
/// comparison.
struct HandWrittenConfiguration
{
    struct Entry
    {
        QString itemId;
        QString name;
        QString url;
        bool systemItem = false;
        bool checked = false;
        bool activeItem = false;
        int type = 0;
    };

    QVector<Entry> systemItems;
    QVector<Entry> customItems;
    QVector<Entry> pluginItems;

    /// False when the text is not a JSON object.
    bool Parse(const QByteArray& json);
    QByteArray ToJson() const;
};
