#pragma once

#include "SettingWriter.h"

#include <memory>

/// All values in memory, so that reading never touches the disk, and the writer that brings them there.
/// One thread.
class SettingDatabase final
{
public:
    /// Values set before are newer than the file's and are written into it. After a failure all values
    /// stay in memory. `notify` is called on any thread.
    [[nodiscard]] SettingFileReport Open(const QString& path, SettingWriter::Notify notify);
    /// Writes all that waits and forgets all values.
    void Close();
    bool IsOpen() const;

    QString GetValue(const SettingKey& key) const;
    /// Keeps copies of its own of all texts.
    void SetValue(const SettingKey& key, const QString& value);
    /// False when something is not on disk. Waits for at most 5 s.
    [[nodiscard]] bool Flush();

private:
    SettingValues m_values;
    SettingValues m_homeless; // set while there was no file
    std::unique_ptr<SettingWriter> m_writer;
};
