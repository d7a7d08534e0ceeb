#pragma once

/// The one way in which the client (or a test) supplies what only it can: an object of this class
/// provides `implementation` as `Interface` for as long as it lives, and puts back what was provided
/// before. `Interface` has two static operations, `Provide(Interface*)` and `Provided()`.
/// The implementation is not owned and must outlive this object. GUI thread.
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
