#include "methods/PasswordHasher.h"

#include "base/Random.h"

#include <argon2.h>

#include <stdexcept>

namespace TLGateway {

namespace {

constexpr std::size_t SaltSize = 16;
constexpr std::size_t HashSize = 32;

} // namespace

PasswordHasher::PasswordHasher() : PasswordHasher(Cost()) {}

PasswordHasher::PasswordHasher(Cost cost) : m_cost(cost), m_decoy(Hash(RandomBytes(HashSize))) {}

std::string PasswordHasher::Hash(const std::string& password) const
{
    const std::string salt = RandomBytes(SaltSize);
    std::string encoded(
        argon2_encodedlen(m_cost.passes, m_cost.memoryKiB, m_cost.lanes, SaltSize, HashSize, Argon2_id),
        '\0');
    const int result =
        argon2id_hash_encoded(m_cost.passes, m_cost.memoryKiB, m_cost.lanes, password.data(), password.size(),
                              salt.data(), salt.size(), HashSize, encoded.data(), encoded.size());
    if (result != ARGON2_OK) {
        throw std::runtime_error(std::string("hashing a password failed: ") + argon2_error_message(result));
    }
    encoded.resize(encoded.find('\0'));
    return encoded;
}

bool PasswordHasher::Verify(const std::string& password, const std::string& hash) const
{
    return argon2id_verify(hash.c_str(), password.data(), password.size()) == ARGON2_OK;
}

} // namespace TLGateway
