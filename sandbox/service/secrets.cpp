// SPDX-License-Identifier: MIT
#include "secrets.h"

#include <array>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>
#include <openssl/sha.h>
#include <stdexcept>

namespace {

constexpr int iterations = 20000;
const std::string scheme = "pbkdf2-sha256:20000:";
constexpr std::size_t saltLength = 32;
constexpr char digits[] = "0123456789abcdef";

using Digest = std::array<unsigned char, SHA256_DIGEST_LENGTH>;

std::string hex(const Digest &bytes)
{
    std::string text;
    for (const unsigned char byte : bytes)
        text += {digits[byte >> 4], digits[byte & 15]};
    return text;
}

std::string derived(const std::string &password, const std::string &salt)
{
    Digest key;
    if (PKCS5_PBKDF2_HMAC(password.data(), static_cast<int>(password.size()),
                          reinterpret_cast<const unsigned char *>(salt.data()), static_cast<int>(salt.size()),
                          iterations, EVP_sha256(), static_cast<int>(key.size()), key.data())
        != 1)
        throw std::runtime_error("cannot hash a password");
    return scheme + salt + ':' + hex(key);
}

} // namespace

std::string randomToken()
{
    Digest bytes;
    if (RAND_bytes(bytes.data(), static_cast<int>(bytes.size())) != 1)
        throw std::runtime_error("no randomness available");
    return hex(bytes);
}

std::string tokenHash(const std::string &token)
{
    Digest digest;
    SHA256(reinterpret_cast<const unsigned char *>(token.data()), token.size(), digest.data());
    return hex(digest);
}

std::string sealed(const std::string &token, const std::string &key)
{
    const auto number = [](char digit) { return digit <= '9' ? digit - '0' : digit - 'a' + 10; };
    const std::string pad = tokenHash("seal " + key);
    std::string result;
    for (std::size_t i = 0; i < token.size() && i < pad.size(); ++i)
        result += digits[(number(token[i]) ^ number(pad[i])) & 15];
    return result;
}

std::string passwordHash(const std::string &password)
{
    return derived(password, randomToken().substr(0, saltLength));
}

bool passwordMatches(const std::string &password, const std::string &hash)
{
    const bool isKnown = hash.compare(0, scheme.size(), scheme) == 0;
    const std::string again = derived(password, isKnown ? hash.substr(scheme.size(), saltLength) : scheme);
    return again.size() == hash.size() && CRYPTO_memcmp(again.data(), hash.data(), hash.size()) == 0;
}
