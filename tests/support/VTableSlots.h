#pragma once

#if !defined(__GXX_ABI_VERSION)
#error "calls through vtables in the layout of the Itanium C++ ABI (GCC and Clang, but not for MSVC)"
#endif

/// Calls virtual operations by their place in the built vtable instead of by name, as a module from another
/// build does. Counts slots as a contract does: from 0, with the destructor as one. The caller has to give
/// the `Result` and `Arguments` of the operation in that slot.
template <class Interface>
class VTableSlots final
{
public:
    /// Does not own the object; `CallDeletingDestructor` deletes it.
    explicit VTableSlots(Interface* object, int destructorSlot = 0)
        : m_object(object), m_destructorSlot(destructorSlot)
    {}

    template <class Result = void, class... Arguments>
    Result Call(int slot, Arguments... arguments) const
    {
        return CallPlace<Result, Arguments...>(PlaceOf(slot), static_cast<Arguments>(arguments)...);
    }

    /// Deletes the object through its vtable; make no calls afterwards.
    void CallDeletingDestructor() const { CallPlace<void>(m_destructorSlot + 1); }

private:
    /// A virtual destructor has two places: the first destroys, the second also deletes.
    int PlaceOf(int slot) const { return slot > m_destructorSlot ? slot + 1 : slot; }

    template <class Result, class... Arguments>
    Result CallPlace(int place, Arguments... arguments) const
    {
        using Operation = Result (*)(Interface*, Arguments...);
        void* const* table = *reinterpret_cast<void* const* const*>(m_object);
        return reinterpret_cast<Operation>(table[place])(m_object, static_cast<Arguments>(arguments)...);
    }

    Interface* m_object;
    int m_destructorSlot;
};
