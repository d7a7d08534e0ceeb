#pragma once

#include <QtCore/QString>

/// Reads the settings of a profile from disk without disturbing a client that has them open. What it finds
/// survives a kill of the client.
class StoredSettings final
{
public:
    explicit StoredSettings(const QString& profile);

    /// Empty when there is no such value.
    [[nodiscard]] QString GetUserValue(const QString& pin, const QString& section,
                                       const QString& field) const;
    [[nodiscard]] QString GetGlobalValue(const QString& section, const QString& field) const;

private:
    QString Read(int scope, const QString& user, const QString& section, const QString& field) const;

    QString m_file;
};
