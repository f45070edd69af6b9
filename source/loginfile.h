// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The login that outlives a run, as the web application handed it over.
struct StoredLogin {
    QString username;
    QString password;
    QString rememberMe;
};

/// The file that keeps the login, fixed when the companion is built.
QString loginFilePath();

/// The login in the file at @p path, or nothing if that is missing, unreadable, not a plain file, or not whole and
/// sound: cut short, another record count, or a length that is negative or over 255. What follows the third record does
/// not matter.
std::optional<StoredLogin> loadLogin(const QString &path);

/// Makes @p login the contents of the file at @p path, readable by its owner only: the record count, then for each of
/// the three texts its length and its scrambled, reversed bytes; all numbers signed 32-bit little-endian. Each text is
/// stored as Latin-1 ("?" for what lies outside) with "%%" made "%", up to its first zero character and cut to 255
/// bytes.
///
/// Returns false and leaves an existing file untouched if that fails at any point. A symbolic link is followed; what is
/// not a plain file, or may not be written, is left alone. The file is replaced whole, except in a folder that takes no
/// new file: there it is written in place.
bool storeLogin(const QString &path, const StoredLogin &login);

/// Truncates the file at @p path to zero bytes, creating it if need be. Returns false if it cannot be opened.
bool forgetLogin(const QString &path);
