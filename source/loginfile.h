// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
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

/// The contents of a login file: the record count, then for each of the three texts its length and its scrambled,
/// reversed bytes; all numbers signed 32-bit little-endian.
///
/// Each text is stored as Latin-1 ("?" for what lies outside) with "%%" made "%", up to its first zero character and
/// cut to 255 bytes.
QByteArray loginRecords(const StoredLogin &login);

/// The login in @p records, or nothing if these are not whole and sound: empty, cut short, another record count, or
/// a length that is negative or over 255. What follows the third record does not matter.
std::optional<StoredLogin> parseLoginRecords(const QByteArray &records);

/// Makes @p contents the contents of the file at @p path, readable by its owner only. Returns false and leaves an
/// existing file untouched if that fails at any point. A symbolic link is followed; what is not a plain file, or may
/// not be written, is left alone. The file is replaced whole, except in a folder that takes no new file: there it is
/// written in place.
bool writeLoginFile(const QString &path, const QByteArray &contents);

/// The contents of the file at @p path; empty if it is missing, unreadable or not a plain file. No more is
/// read than the largest login takes.
QByteArray readLoginFile(const QString &path);

/// Truncates the file at @p path to zero bytes, creating it if need be. Returns false if it cannot be opened.
bool clearLoginFile(const QString &path);
