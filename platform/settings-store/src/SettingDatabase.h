#pragma once

#include "SettingWriter.h"

#include <memory>

/// Holds all values in memory, so that reading never touches the disk, and the writer that stores them. One
/// thread.
class SettingDatabase final
{
public:
    /// Values set before are newer than the file's, so they are written into it. After a failure all values
    /// stay in memory. `notify` is called on any thread.
    [[nodiscard]] SettingFileReport Open(const QString& path, SettingWriter::Notify notify);
    /// Writes all waiting values and forgets all values.
    void Close();
    bool IsOpen() const;

    QString GetValue(const SettingKey& key) const;
    /// Copies all texts.
    void SetValue(const SettingKey& key, const QString& value);
    /// False when a value is not on disk. Waits for 5 s at most.
    [[nodiscard]] bool Flush();

private:
    SettingValues m_values;
    SettingValues m_homeless; // set before there was a file
    std::unique_ptr<SettingWriter> m_writer;
};
