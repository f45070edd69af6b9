// SPDX-License-Identifier: MIT
#pragma once

/// Keeps the stored login from being read at a glance. This is obfuscation with a fixed key, not encryption.
///
/// Each routine writes @p size bytes and then a zero byte to @p dst, which must therefore hold size + 1 bytes. The
/// results are binary and may hold zero bytes anywhere: handle them by their length. A negative @p size does nothing.

/// Scrambles @p src with a running key: a fixed word, continued by the plain text itself. @p dst may be @p src.
void encode(const char *src, char *dst, int size);

/// Undoes encode(). @p dst may be @p src.
void decode(const char *src, char *dst, int size);

/// Writes the bytes of @p src in reverse order. @p dst must not overlap @p src.
void reverse(const char *src, char *dst, int size);
