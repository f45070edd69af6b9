// SPDX-License-Identifier: MIT
#pragma once

#include "texts.h"

#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <string>

/// What the service knows about one visitor between two requests.
struct Session {
    /// Id of the signed-in player; empty for a visitor who is not signed in.
    std::string player;
    Language language = Language::English;
    /// Number of the game that opened the companion; 0 when it is not one of ours.
    int game = 0;
    /// Handed to the companion in place of the password; empty when the login is not to be remembered.
    std::string loginToken;
    /// Text that the next page shows once.
    std::string notice;

    bool operator==(const Session &other) const;
};

/// The sessions of all visitors. They live as long as the process; any thread may use them.
class Sessions {
public:
    std::optional<Session> find(const std::string &id);
    /// Keeps @p session under a new id, which it returns.
    std::string create(const Session &session);
    /// Changes the session of that id. One that has ended stays ended.
    void update(const std::string &id, const Session &session);
    void remove(const std::string &id);
    /// Ends every other session of @p player than @p id.
    void removeOthers(const std::string &player, const std::string &id);

private:
    struct Entry {
        Session session;
        std::chrono::steady_clock::time_point lastUse;
    };

    void dropStale();

    std::mutex m_mutex;
    std::map<std::string, Entry> m_entries;
};
