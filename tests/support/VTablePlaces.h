#pragma once

#include <cstddef>
#include <cstring>
#include <vector>

#if !defined(__GXX_ABI_VERSION)
#error "reads vtables as the Itanium C++ ABI lays them out (GCC and Clang, but not for MSVC)"
#endif

/// Reads the order of virtual operations from what the compiler built. Places are counted from 0 in the
/// vtable, where a virtual destructor takes two places; contracts count it as one slot. An operation that
/// overrides one of a second base class has a place of its own in the first base's vtable as well, which
/// other ABIs do not give it; so compare the order, not the numbers, for classes with several bases.
namespace VTablePlaces {

/// How many places a virtual destructor takes.
inline constexpr int DestructorPlaces = 2;

/// The place of a virtual operation in the vtable of the class that declares it; -1: it is not virtual.
template <class Operation>
int PlaceOf(Operation operation)
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

/// The slot of an operation of an interface whose destructor is slot 0.
template <class Operation>
int SlotOf(Operation operation)
{
    return PlaceOf(operation) - DestructorPlaces + 1;
}

/// Where a call through `entry` arrives. Windows: what another library exports is reached through a jump of
/// one's own, which may stand in the vtable in its place.
inline const void* Destination(const void* entry)
{
#if defined(_WIN64)
    constexpr unsigned char jumpThroughPointer[] = {0xFF, 0x25};
    const auto* const code = static_cast<const unsigned char*>(entry);
    if (code && std::memcmp(code, jumpThroughPointer, sizeof(jumpThroughPointer)) == 0) {
        constexpr int length = 6; // of the instruction, at the end of which the distance begins to count
        int distance = 0;
        std::memcpy(&distance, code + sizeof(jumpThroughPointer), sizeof(distance));
        std::memcpy(&entry, code + length + distance, sizeof(entry));
    }
#endif
    return entry;
}

/// What stands in the first `count` places of the vtable that `Class` has inside the object; `Class` is
/// the static type, so pass a reference to the interface that is meant.
template <class Class>
std::vector<const void*> Read(const Class& object, int count)
{
    const void* const* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&object), sizeof(table));
    std::vector<const void*> places(table, table + count);
    for (const void*& place : places) {
        place = Destination(place);
    }
    return places;
}

/// The places in which the two differ.
inline std::vector<int> Differences(const std::vector<const void*>& a, const std::vector<const void*>& b)
{
    std::vector<int> places;
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
        if (a[i] != b[i]) {
            places.push_back(static_cast<int>(i));
        }
    }
    return places;
}

} // namespace VTablePlaces
