// SPDX-License-Identifier: MIT
#pragma once

struct sqlite3;

/// Fills an empty database with the sandbox's players, games, friendships, ratings, messages and trophies. The caller
/// holds the transaction. Throws std::runtime_error when the database refuses.
void seed(sqlite3 *connection);
