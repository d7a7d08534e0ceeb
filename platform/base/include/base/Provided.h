#pragma once

/// Provides `implementation` as `Interface` for as long as this object lives, then restores what was provided
/// before: the one way in which the client, or a test, supplies what only it has. `Interface` has two static
/// operations, `Provide(Interface*)` and `Provided()`. Does not own the implementation, which must outlive
/// this object. GUI thread.
template <class Interface>
class Provided final
{
public:
    explicit Provided(Interface* implementation) : m_before(Interface::Provided())
    {
        Interface::Provide(implementation);
    }
    ~Provided() { Interface::Provide(m_before); }

    Provided(const Provided&) = delete;
    Provided& operator=(const Provided&) = delete;

private:
    Interface* m_before;
};
