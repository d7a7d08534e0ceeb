#pragma once

#include <vector>

class IDpiAdapter;

/// The adapters that hear of changes of the scale, in the order in which they were made. GUI thread.
class DpiAdapters final
{
public:
    /// The one object of the process, there until its very end: adapters may be static objects themselves.
    static DpiAdapters& Instance();

    void Add(IDpiAdapter* adapter);
    /// An unknown one is ignored. During a call of adapters it takes effect at once.
    void Remove(IDpiAdapter* adapter);

    /// Calls those that are there now. A call that starts in the middle of another one calls everybody, so
    /// that the earlier one ends there.
    void AdjustAll();

private:
    DpiAdapters() = default;

    std::vector<IDpiAdapter*> m_adapters; // null where one was removed while they are being called
    unsigned m_lastCall = 0;
    int m_callDepth = 0;
};
