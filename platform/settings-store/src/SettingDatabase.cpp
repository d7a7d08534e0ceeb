#include "SettingDatabase.h"

#include <utility>

namespace {

// A text may be constant data of a module, and goes away with it: we keep none of its memory.
QString Own(const QString& text)
{
    return QString(text.constData(), text.size());
}

} // namespace

SettingFileReport SettingDatabase::Open(const QString& path, SettingWriter::Notify notify)
{
    m_writer = std::make_unique<SettingWriter>(Own(path), std::move(notify));
    SettingFileReport report = m_writer->Start(&m_values);
    for (auto it = m_homeless.cbegin(); it != m_homeless.cend(); ++it) {
        m_values.insert(it.key(), it.value());
    }
    if (!report.failure.isEmpty()) {
        m_writer.reset();
        return report;
    }
    for (auto it = m_homeless.cbegin(); it != m_homeless.cend(); ++it) {
        m_writer->Queue(it.key(), it.value());
    }
    m_homeless.clear();
    return report;
}

void SettingDatabase::Close()
{
    m_writer.reset();
    m_values.clear();
    m_homeless.clear();
}

bool SettingDatabase::IsOpen() const
{
    return m_writer != nullptr;
}

QString SettingDatabase::GetValue(const SettingKey& key) const
{
    return m_values.value(key);
}

void SettingDatabase::SetValue(const SettingKey& key, const QString& value)
{
    const auto found = m_values.constFind(key);
    const bool unchanged = found != m_values.constEnd() && *found == value;
    // Writes an unchanged value only to try again those that could not be written.
    if (unchanged && !(m_writer && m_writer->HasWaiting())) {
        return;
    }
    const SettingKey ownKey{key.ofUser, Own(key.user), Own(key.section), Own(key.field)};
    const QString ownValue = Own(value);
    m_values.insert(ownKey, ownValue);
    if (m_writer) {
        m_writer->Queue(ownKey, ownValue);
    } else {
        m_homeless.insert(ownKey, ownValue);
    }
}

bool SettingDatabase::Flush()
{
    return m_writer ? m_writer->Flush() : m_homeless.isEmpty();
}
