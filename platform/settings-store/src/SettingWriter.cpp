#include "SettingWriter.h"

#include "SettingFile.h"

#include <chrono>
#include <utility>

namespace {

// How long to gather values before writing them together, when nobody waits for them.
constexpr std::chrono::milliseconds GatherTime(20);
// How long a flush waits for the disk.
constexpr std::chrono::seconds FlushBound(5);

} // namespace

SettingWriter::SettingWriter(const QString& path, Notify notify) : m_path(path), m_notify(std::move(notify))
{}

SettingWriter::~SettingWriter()
{
    Stop();
}

SettingFileReport SettingWriter::Start(SettingValues* values)
{
    m_thread = std::thread([this] { Run(); });
    std::unique_lock<std::mutex> lock(m_mutex);
    m_done.wait(lock, [this] { return m_opened; });
    *values = std::move(m_loaded);
    m_loaded.clear();
    return m_openReport;
}

void SettingWriter::Queue(const SettingKey& key, const QString& value)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_waiting.insert(key, value);
    ++m_queued;
    m_attemptWanted = true;
    m_wake.notify_one();
}

bool SettingWriter::HasWaiting() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_written != m_queued;
}

bool SettingWriter::Flush()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_written == m_queued) {
        return true;
    }
    const quint64 mine = ++m_queued;
    m_attemptWanted = true;
    m_hurry = true;
    m_wake.notify_one();
    const auto bound = m_isStalled ? std::chrono::seconds(0) : FlushBound;
    if (m_done.wait_for(lock, bound, [this, mine] { return m_attempted >= mine; })) {
        return m_written >= mine;
    }
    const bool isNews = !m_isStalled;
    m_isStalled = true;
    lock.unlock();
    if (isNews) {
        SettingFileReport report;
        report.failure = tr("The disk is not responding. Settings will be saved as soon as it does.");
        m_notify(report);
    }
    return false;
}

void SettingWriter::Stop()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_attemptWanted = m_attemptWanted || m_written != m_queued;
        m_stop = true;
        m_wake.notify_one();
    }
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

void SettingWriter::Run()
{
    SettingFile file(m_path);
    const SettingFileReport openReport = file.Open();

    std::unique_lock<std::mutex> lock(m_mutex);
    m_openReport = openReport;
    m_loaded = file.GetValues();
    m_opened = true;
    m_done.notify_all();
    if (!openReport.failure.isEmpty()) {
        return;
    }

    QString lastFailure;
    for (;;) {
        m_wake.wait(lock, [this] { return m_attemptWanted || m_stop; });
        if (!m_attemptWanted) {
            return;
        }
        m_wake.wait_for(lock, GatherTime, [this] { return m_hurry || m_stop; });
        const SettingValues batch = std::exchange(m_waiting, SettingValues());
        const quint64 upTo = m_queued;
        m_attemptWanted = false;
        m_hurry = false;

        lock.unlock();
        const SettingFileReport report = file.Write(batch);
        if (!report.setAsideFile.isEmpty() || (!report.failure.isEmpty() && report.failure != lastFailure)) {
            m_notify(report);
        }
        lastFailure = report.failure;
        lock.lock();

        m_attempted = upTo;
        m_isStalled = false;
        if (report.failure.isEmpty()) {
            m_written = upTo;
        } else {
            for (auto it = batch.cbegin(); it != batch.cend(); ++it) {
                if (!m_waiting.contains(it.key())) {
                    m_waiting.insert(it.key(), it.value());
                }
            }
        }
        m_done.notify_all();
    }
}
