#pragma once

#include <vector>

class IDpiAdapter;

/// The adapters that hear of changes of the scale, in the order in which they were made. GUI thread.
class DpiAdapters final
{
public:
    /// The one object of the process, which lives until the process ends: adapters may be static objects.
    static DpiAdapters& Instance();

    void Add(IDpiAdapter* adapter);
    /// Ignores an unknown adapter. Takes effect at once, even while adapters are being called.
    void Remove(IDpiAdapter* adapter);

    /// Calls all adapters that exist now. A call inside another one reaches every adapter, so the outer one
    /// stops there.
    void AdjustAll();

private:
    DpiAdapters() = default;

    std::vector<IDpiAdapter*> m_adapters; // null where one was removed during a call
    unsigned m_lastCall = 0;
    int m_callDepth = 0;
};
