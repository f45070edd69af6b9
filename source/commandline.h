// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Reads the numbers that the game passes, the way a C program of the game's own does: leading blanks and a sign are
/// taken, what follows the digits is ignored, text without digits is 0. Numbers that are too large saturate.
int toInt(const char *text);

/// As toInt() for a 64-bit mask. A mask with its highest bit set may also be written as the negative number of the same
/// 64 bits.
quint64 toMask(const char *text);

/// The language index for the second argument: anything outside 0 to 4 is 0, English.
int toLanguage(const char *text);
