// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// What keeps passwords and sessions safe.

/// A fresh random value of 256 bits as 64 lower-case hexadecimal digits. Throws std::runtime_error when the system has
/// no randomness to give.
std::string randomToken();

/// Salted, slow hash of a password, in a form that says how it was made.
std::string passwordHash(const std::string &password);

/// Whether @p password is the one that @p hash was made from. A hash in an unknown form matches nothing.
bool passwordMatches(const std::string &password, const std::string &hash);

/// Hash under which a random token is kept. Tokens hold enough randomness themselves, so it is neither salted nor slow.
std::string tokenHash(const std::string &token);
