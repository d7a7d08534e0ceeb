#include "DpiAdapters.h"

#include "base/IDpiAdapter.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

DpiAdapters& DpiAdapters::Instance()
{
    static auto* const instance = new DpiAdapters;
    return *instance;
}

void DpiAdapters::Add(IDpiAdapter* adapter)
{
    m_adapters.push_back(adapter);
}

void DpiAdapters::Remove(IDpiAdapter* adapter)
{
    // As a rule, the last one made is the first to go.
    const auto found = std::find(m_adapters.rbegin(), m_adapters.rend(), adapter);
    if (found == m_adapters.rend()) {
        return;
    }
    if (m_callDepth > 0) {
        *found = nullptr;
    } else {
        m_adapters.erase(std::next(found).base());
    }
}

void DpiAdapters::AdjustAll()
{
    const unsigned call = ++m_lastCall;
    const std::size_t count = m_adapters.size(); // adapters made later already use the new scale
    ++m_callDepth;
    for (std::size_t i = 0; i < count && call == m_lastCall; ++i) {
        if (IDpiAdapter* const adapter = m_adapters[i]) {
            adapter->AdjustForDpi();
        }
    }
    --m_callDepth;
    if (m_callDepth == 0) {
        m_adapters.erase(std::remove(m_adapters.begin(), m_adapters.end(), nullptr), m_adapters.end());
    }
}
