#pragma once

#include <cstddef>
#include <cstring>
#include <vector>

#if !defined(__GXX_ABI_VERSION)
#error "reads vtables in the layout of the Itanium C++ ABI (GCC and Clang, but not for MSVC)"
#endif

/// Reads the order of virtual operations from the built vtables. Counts places in the vtable from 0, where a
/// virtual destructor has two places; contracts count it as one slot. An operation that overrides one of a
/// second base class also has a place in the first base's vtable, but only in this ABI; so compare the order,
/// not the numbers, for classes with several bases.
namespace VTablePlaces {

/// How many places a virtual destructor takes.
inline constexpr int DestructorPlaces = 2;

/// The place of a virtual operation in the vtable of the class that declares it; -1 if it is not virtual.
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

/// Where a call through `entry` arrives. On Windows, the vtable may hold the address of a jump to an
/// operation that another library exports.
inline const void* Destination(const void* entry)
{
#if defined(_WIN64)
    constexpr unsigned char jumpThroughPointer[] = {0xFF, 0x25};
    const auto* const code = static_cast<const unsigned char*>(entry);
    if (code && std::memcmp(code, jumpThroughPointer, sizeof(jumpThroughPointer)) == 0) {
        constexpr int length = 6; // of the instruction; the distance counts from its end
        int distance = 0;
        std::memcpy(&distance, code + sizeof(jumpThroughPointer), sizeof(distance));
        std::memcpy(&entry, code + length + distance, sizeof(entry));
    }
#endif
    return entry;
}

/// The first `count` places of the vtable that `Class` has in the object. `Class` is the static type, so pass
/// a reference to the interface.
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
