#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>

/// The key of a stored text. A value of no user differs from a value of the user "".
struct SettingKey
{
    bool ofUser = false;
    QString user; ///< empty when the value belongs to no user
    QString section;
    QString field;

    friend bool operator==(const SettingKey& a, const SettingKey& b)
    {
        return a.ofUser == b.ofUser && a.user == b.user && a.section == b.section && a.field == b.field;
    }
    friend uint qHash(const SettingKey& key, uint seed = 0)
    {
        const uint owner = ::qHash(key.user, seed) ^ uint(key.ofUser);
        return ::qHash(qMakePair(owner, qMakePair(key.section, key.field)), seed);
    }
};

using SettingValues = QHash<SettingKey, QString>;
