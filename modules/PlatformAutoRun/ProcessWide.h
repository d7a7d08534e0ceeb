#pragma once

#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>

#include <atomic>

/// Holds the one object of a class in the process: made on first use, deleted by `Release`, and at the
/// latest when this holder is destroyed. A class keeps its holder as a static object inside a function of
/// its own source file; the holder then ends with the module, be that an unload or the end of the process,
/// and needs no application object.
///
/// `Instance` and `Release` may be called from any thread. `T` must call neither of them for its own class
/// while it is made or deleted: the mutex is held.
template <class T>
class ProcessWide final
{
public:
    ProcessWide() = default;
    ~ProcessWide() { Release(); }

    ProcessWide(const ProcessWide&) = delete;
    ProcessWide& operator=(const ProcessWide&) = delete;

    T* Instance()
    {
        T* instance = m_instance.load(std::memory_order_acquire);
        if (!instance) {
            const QMutexLocker lock(&m_mutex);
            instance = m_instance.load(std::memory_order_relaxed);
            if (!instance) {
                instance = new T;
                m_instance.store(instance, std::memory_order_release);
            }
        }
        return instance;
    }

    /// Without an object, nothing happens. The next `Instance` makes a new one.
    void Release()
    {
        if (!m_instance.load(std::memory_order_acquire)) {
            return;
        }
        const QMutexLocker lock(&m_mutex);
        delete m_instance.exchange(nullptr, std::memory_order_acq_rel);
    }

private:
    QMutex m_mutex;
    std::atomic<T*> m_instance{nullptr};
};
