#pragma once

#include <cstdint>
#include <string>

namespace TLGateway {

// Argon2id. Every operation takes tens of milliseconds and the memory below: never on the network's thread.
class PasswordHasher final
{
public:
    struct Cost
    {
        std::uint32_t passes = 2;
        std::uint32_t memoryKiB = 19456;
        std::uint32_t lanes = 1;
    };

    PasswordHasher();
    explicit PasswordHasher(Cost cost);

    // The hash with its salt and cost, in Argon2's text form. Throws std::runtime_error.
    [[nodiscard]] std::string Hash(const std::string& password) const;

    // False also for a hash that cannot be read.
    [[nodiscard]] bool Verify(const std::string& password, const std::string& hash) const;

    // A hash of no known password, at the same cost. Unknown pins are checked against it, so that they take
    // as long as known ones.
    [[nodiscard]] const std::string& Decoy() const noexcept { return m_decoy; }

private:
    const Cost m_cost;
    const std::string m_decoy;
};

} // namespace TLGateway
