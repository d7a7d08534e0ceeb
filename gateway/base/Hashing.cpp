#include "base/Hashing.h"

#include <openssl/core_names.h>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/params.h>

#include <memory>
#include <stdexcept>

namespace TLGateway {

namespace {

constexpr std::size_t DigestSize = 32;

struct MacDeleter
{
    void operator()(EVP_MAC* mac) const noexcept { EVP_MAC_free(mac); }
    void operator()(EVP_MAC_CTX* context) const noexcept { EVP_MAC_CTX_free(context); }
};

const unsigned char* Bytes(std::string_view text) noexcept
{
    return reinterpret_cast<const unsigned char*>(text.data());
}

EVP_MAC* Hmac()
{
    static const std::unique_ptr<EVP_MAC, MacDeleter> mac(EVP_MAC_fetch(nullptr, "HMAC", nullptr));
    return mac.get();
}

} // namespace

std::string HmacSha256(std::string_view key, std::string_view data)
{
    const std::unique_ptr<EVP_MAC_CTX, MacDeleter> context(EVP_MAC_CTX_new(Hmac()));
    char digestName[] = "SHA256";
    const OSSL_PARAM parameters[] = {
        OSSL_PARAM_construct_utf8_string(OSSL_MAC_PARAM_DIGEST, digestName, 0),
        OSSL_PARAM_construct_end(),
    };
    // A null key would mean "the key of before", so an empty key must point somewhere.
    const unsigned char noKey = 0;
    std::string mac(DigestSize, '\0');
    std::size_t written = 0;
    const bool done =
        context &&
        EVP_MAC_init(context.get(), key.empty() ? &noKey : Bytes(key), key.size(), parameters) == 1 &&
        EVP_MAC_update(context.get(), Bytes(data), data.size()) == 1 &&
        EVP_MAC_final(context.get(), reinterpret_cast<unsigned char*>(mac.data()), &written, mac.size()) == 1;
    if (!done || written != DigestSize) {
        throw std::runtime_error("HMAC-SHA256 failed in the cryptographic library");
    }
    return mac;
}

std::string Sha256(std::string_view data)
{
    std::string digest(DigestSize, '\0');
    std::size_t written = 0;
    if (EVP_Q_digest(nullptr, "SHA256", nullptr, data.data(), data.size(),
                     reinterpret_cast<unsigned char*>(digest.data()), &written) != 1 ||
        written != DigestSize) {
        throw std::runtime_error("SHA-256 failed in the cryptographic library");
    }
    return digest;
}

bool EqualInConstantTime(std::string_view a, std::string_view b) noexcept
{
    return a.size() == b.size() && CRYPTO_memcmp(a.data(), b.data(), a.size()) == 0;
}

} // namespace TLGateway
