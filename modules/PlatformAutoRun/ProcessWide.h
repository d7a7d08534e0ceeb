#pragma once

#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>

#include <atomic>

/// Holds a class's one object in the process: makes it on first use, and deletes it in `Release` or, at the
/// latest, when this holder is destroyed. A class keeps its holder as a static object inside a function of
/// its own source file. The holder then ends with the module, at an unload or at the end of the process, and
/// needs no application object.
///
/// `Instance` and `Release` may be called from any thread. While `T` is being made or deleted, it must call
/// neither of them for its own class: the mutex is held.
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

    /// Does nothing without an object. The next `Instance` makes a new one.
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
