#pragma once

/// Keeps the stored login from being read at a glance. This is obfuscation with a fixed key, not encryption.
///
/// Each routine writes \a size bytes and then a zero byte to \a dst, which must therefore hold size + 1 bytes. The
/// results are binary and may hold zero bytes anywhere: handle them by their length. A negative \a size does nothing.

/// Scrambles \a src with a running key: a fixed word, continued by the plain text itself. \a dst may be \a src.
void encode(const char *src, char *dst, int size);

/// Undoes encode(). \a dst may be \a src.
void decode(const char *src, char *dst, int size);

/// Writes the bytes of \a src in reverse order. \a dst must not overlap \a src.
void reverse(const char *src, char *dst, int size);
