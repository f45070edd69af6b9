// SPDX-License-Identifier: MIT
#pragma once

#include "texts.h"

#include <cstdint>
#include <ctime>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct sqlite3;

struct Player {
    std::string id;
    std::string login;
    std::string name;
    std::string motto;
    std::string city;
};

/// A player in the list of somebody's friends.
struct Friend {
    Player player;
    /// Came to the list since the owner last looked at it.
    bool isNew = false;
};

/// How others rate a player: each rater has one vote.
struct Standing {
    int up = 0;
    int down = 0;
};

/// A game, with the trophies of one player in it.
struct Game {
    int id = 0;
    std::string name;
    std::string tagline;
    int trophies = 0;
    int won = 0;
    /// Won, and not yet looked at.
    int fresh = 0;
};

struct Trophy {
    std::string name;
    int points = 0;
    /// When the player won it; 0 for a trophy not won.
    std::time_t wonAt = 0;
};

/// The last message between a player and another one.
struct Conversation {
    Player other;
    std::string excerpt;
    std::time_t sent = 0;
    bool mine = false;
    int unread = 0;
};

struct Message {
    /// The other player: for a message of several recipients the first.
    Player other;
    /// Names of all recipients.
    std::string recipients;
    std::string text;
    std::time_t sent = 0;
    bool mine = false;
};

struct Invitation {
    std::string address;
    std::string game;
    std::time_t sent = 0;
};

/// A trophy that a friend won.
struct News {
    Player player;
    std::string trophy;
    std::string game;
    std::time_t at = 0;
};

/// What the tabs of the companion show.
struct Unread {
    int messages = 0;
    int games = 0;
    int friends = 0;
};

/// Everything that lasts. Any thread may call any operation: each runs alone, and a change is made whole or not at all.
/// Ids that do not exist give empty results, and changes that name them change nothing. A database that cannot be read
/// or written throws std::runtime_error.
class Database {
public:
    /// Opens @p file, created when it is not there, and fills it with the sandbox's players and games when it holds no
    /// player. An empty name gives a database in memory.
    explicit Database(const std::string &file);
    ~Database();

    // Accounts
    std::optional<Player> player(const std::string &id);
    std::optional<Player> playerByLogin(const std::string &login);
    std::string passwordHashOf(const std::string &playerId);
    void updatePlayer(const Player &player);
    /// Sets the hash of the password; every login token of the player stops working.
    void setPasswordHash(const std::string &playerId, const std::string &hash);
    void addLoginToken(const std::string &playerId, const std::string &hash);
    bool hasLoginToken(const std::string &playerId, const std::string &hash);
    void removeLoginToken(const std::string &hash);

    // Friends
    std::vector<Friend> friends(const std::string &playerId, int first, int most);
    int friendCount(const std::string &playerId);
    bool areFriends(const std::string &one, const std::string &other);
    void addFriend(const std::string &playerId, const std::string &otherId);
    void deleteFriend(const std::string &playerId, const std::string &otherId);
    void markFriendsSeen(const std::string &playerId);
    /// Players other than @p playerId whose name or login holds @p text, at most 50.
    std::vector<Player> search(const std::string &playerId, const std::string &text);
    /// Players who are no friends of @p playerId yet, those with most common friends first, at most 10.
    std::vector<Player> suggestions(const std::string &playerId);
    void rate(const std::string &raterId, const std::string &ratedId, bool up);
    Standing standing(const std::string &playerId);

    // Messages
    std::vector<Conversation> conversations(const std::string &playerId);
    /// The messages between two players, the newest first, at most 200.
    std::vector<Message> conversation(const std::string &playerId, const std::string &otherId);
    void markRead(const std::string &playerId, const std::string &otherId);
    std::vector<Message> sentMessages(const std::string &playerId);
    /// Stores one message for all recipients, each counted once. False, and nothing stored, when one does not exist.
    bool addMessage(const std::string &senderId, int game, const std::vector<std::string> &recipients,
                    const std::string &text);
    /// Stores invitations as pairs of name and address. For a game shared on a network that is the network's name.
    void addInvitations(const std::string &senderId, int game,
                        const std::vector<std::pair<std::string, std::string>> &invited);
    std::vector<Invitation> invitations(const std::string &senderId);

    // Games
    std::vector<Game> games(const std::string &playerId, Language language);
    std::optional<Game> game(int id, const std::string &playerId, Language language);
    std::vector<Trophy> trophies(int game, const std::string &playerId, Language language);
    void markTrophiesSeen(int game, const std::string &playerId);
    /// Records the trophies at these bits as won now; those won before or unknown to the game are passed over. Returns
    /// how many were new.
    int addTrophies(const std::string &playerId, int game, const std::vector<int> &bits);
    std::vector<Player> friendsInGame(int game, const std::string &playerId);
    std::vector<News> news(const std::string &playerId, Language language);

    Unread unread(const std::string &playerId);

private:
    struct Closer {
        void operator()(sqlite3 *connection) const;
    };
    class Transaction;

    std::unique_ptr<sqlite3, Closer> m_connection;
    std::mutex m_mutex;
};
