// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// What keeps passwords and sessions safe. A token is a random value of 256 bits as 64 lower-case hexadecimal digits.

/// A fresh token. Throws std::runtime_error when the system has no randomness to give.
std::string randomToken();

/// Hash under which a token is kept. Tokens hold enough randomness themselves, so it is neither salted nor slow.
std::string tokenHash(const std::string &token);

/// @p token made unreadable with another token as the key, or made readable again; empty stays empty.
std::string sealed(const std::string &token, const std::string &key);

/// Salted, slow hash of a password, in a form that says how it was made.
std::string passwordHash(const std::string &password);

/// Whether @p password is the one that @p hash was made from. A hash in an unknown form matches nothing, and takes as
/// long to say so.
bool passwordMatches(const std::string &password, const std::string &hash);
