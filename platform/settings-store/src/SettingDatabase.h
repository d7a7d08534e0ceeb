#pragma once

#include "SettingWriter.h"

#include <memory>

/// All values in memory, so that reading never touches the disk, and the writer that brings them there.
/// One thread.
class SettingDatabase final
{
public:
    /// Values set before are newer than the file's and are written into it. After a failure all values
    /// stay in memory. `notify` is called on another thread.
    [[nodiscard]] SettingFileReport Open(const QString& path, SettingWriter::Notify notify);
    /// Writes all that waits and forgets all values.
    void Close();
    bool IsOpen() const;

    QString GetValue(const SettingKey& key) const;
    void SetValue(const SettingKey& key, const QString& value);
    /// False when something is not on disk.
    [[nodiscard]] bool Flush();

private:
    SettingValues m_values;
    SettingValues m_homeless; // set while there was no file
    std::unique_ptr<SettingWriter> m_writer;
};
