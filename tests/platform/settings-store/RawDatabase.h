#pragma once

#include <QtCore/QString>
#include <QtCore/QVariant>

/// A second connection to a database file, as another program would have it. Does not wait for locks.
class RawDatabase final
{
public:
    explicit RawDatabase(const QString& file);
    ~RawDatabase();

    RawDatabase(const RawDatabase&) = delete;
    RawDatabase& operator=(const RawDatabase&) = delete;

    /// Runs a statement and returns the first column of its first row, invalid when there is none.
    /// A statement that fails is a failure of the test.
    QVariant Run(const QString& statement);

private:
    QString m_connection;
};
