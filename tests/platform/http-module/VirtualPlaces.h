#pragma once

#include <QtCore/QObject>

#include <cstddef>
#include <cstring>
#include <vector>

/// Where virtual operations stand in a vtable as GCC and Clang build it.
namespace VirtualPlaces {

/// The place of an operation of the object's first base; -1 when it is not virtual.
template <class Operation>
int Of(Operation operation)
{
    struct
    {
        std::ptrdiff_t pointer;
        std::ptrdiff_t adjustment;
    } parts;
    static_assert(sizeof(parts) == sizeof(operation), "a pointer to a member function is two words");
    std::memcpy(&parts, &operation, sizeof(parts));
#if defined(__arm__) || defined(__aarch64__)
    const bool isVirtual = (parts.adjustment & 1) != 0;
    const std::ptrdiff_t offset = parts.pointer;
#else
    const bool isVirtual = (parts.pointer & 1) != 0;
    const std::ptrdiff_t offset = parts.pointer - 1;
#endif
    return isVirtual ? static_cast<int>(offset / static_cast<std::ptrdiff_t>(sizeof(void*))) : -1;
}

/// The two places of the destructor come before this one.
inline int OfFirstEvent()
{
    return Of(&QObject::event);
}

/// The last place that is QObject's.
inline int OfLastOfQObject()
{
    struct Opened : QObject
    {
        static int Get() { return Of(&Opened::disconnectNotify); }
    };
    return Opened::Get();
}

/// The places among the first `count` in which the vtables of the two objects differ.
template <class Interface>
std::vector<int> Differences(const Interface& a, const Interface& b, int count)
{
    const void* const* first = nullptr;
    const void* const* second = nullptr;
    std::memcpy(&first, static_cast<const void*>(&a), sizeof(first));
    std::memcpy(&second, static_cast<const void*>(&b), sizeof(second));
    std::vector<int> places;
    for (int i = 0; i < count; ++i) {
        if (first[i] != second[i]) {
            places.push_back(i);
        }
    }
    return places;
}

} // namespace VirtualPlaces
