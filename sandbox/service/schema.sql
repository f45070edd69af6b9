-- SPDX-License-Identifier: MIT
-- Everything that lasts. Columns named after a language hold its text.
CREATE TABLE player(id TEXT PRIMARY KEY, login TEXT UNIQUE NOT NULL, password TEXT NOT NULL DEFAULT '',
    name TEXT NOT NULL, motto TEXT NOT NULL, city TEXT NOT NULL);
CREATE TABLE login_token(hash TEXT PRIMARY KEY, player TEXT NOT NULL REFERENCES player);
CREATE TABLE session(hash TEXT PRIMARY KEY, player TEXT NOT NULL, language INTEGER NOT NULL, game INTEGER NOT NULL,
    sealed_token TEXT NOT NULL, notice TEXT NOT NULL, search TEXT NOT NULL, login_unknown INTEGER NOT NULL,
    used INTEGER NOT NULL);
CREATE INDEX session_used ON session(used);
CREATE TABLE friendship(player TEXT REFERENCES player, friend TEXT REFERENCES player, seen INTEGER NOT NULL,
    PRIMARY KEY(player, friend), CHECK(player <> friend)) WITHOUT ROWID;
CREATE TABLE rating(rater TEXT REFERENCES player, rated TEXT REFERENCES player, up INTEGER NOT NULL,
    PRIMARY KEY(rater, rated)) WITHOUT ROWID;
CREATE TABLE game(id INTEGER PRIMARY KEY, name TEXT NOT NULL, EN TEXT NOT NULL, FR TEXT NOT NULL, DE TEXT NOT NULL,
    IT TEXT NOT NULL, SP TEXT NOT NULL);
CREATE TABLE trophy(game INTEGER REFERENCES game, bit INTEGER CHECK(bit BETWEEN 0 AND 63), points INTEGER NOT NULL,
    EN TEXT NOT NULL, FR TEXT NOT NULL, DE TEXT NOT NULL, IT TEXT NOT NULL, SP TEXT NOT NULL,
    PRIMARY KEY(game, bit)) WITHOUT ROWID;
CREATE TABLE won(player TEXT REFERENCES player, game INTEGER, bit INTEGER, at INTEGER NOT NULL, seen INTEGER NOT NULL,
    PRIMARY KEY(player, game, bit), FOREIGN KEY(game, bit) REFERENCES trophy) WITHOUT ROWID;
CREATE TABLE message(id INTEGER PRIMARY KEY, sender TEXT NOT NULL REFERENCES player, game INTEGER NOT NULL,
    text TEXT NOT NULL, sent INTEGER NOT NULL);
CREATE INDEX message_sender ON message(sender);
CREATE TABLE delivery(message INTEGER REFERENCES message, recipient TEXT REFERENCES player, position INTEGER NOT NULL,
    read INTEGER NOT NULL, PRIMARY KEY(message, recipient)) WITHOUT ROWID;
CREATE INDEX delivery_recipient ON delivery(recipient, read);
CREATE TABLE invitation(id INTEGER PRIMARY KEY, sender TEXT NOT NULL REFERENCES player, game INTEGER NOT NULL,
    name TEXT NOT NULL, address TEXT NOT NULL, sent INTEGER NOT NULL);

-- A player as the pages show one: the initials, of the first and the last word, and the colour (0 to 7) make the picture.
CREATE VIEW person AS SELECT id AS UID, name AS NAME, motto AS MOTTO, city AS CITY, unicode(substr(id, -1)) % 8 AS HUE,
    substr(name, 1, 1) || CASE instr(name, ' ') WHEN 0 THEN ''
        ELSE substr(replace(name, rtrim(name, replace(name, ' ', '')), ''), 1, 1) END AS INITIALS
    FROM player;
-- A game with the trophies of each player in it.
CREATE VIEW played AS SELECT game.id AS GID, game.name AS GAME, player.id AS player, count(*) AS TROPHIES,
    count(won.at) AS WON, count(won.at) * 100 / count(*) AS PERCENT, sum(won.seen = 0) AS FRESH
    FROM game JOIN trophy ON trophy.game = game.id CROSS JOIN player
    LEFT JOIN won ON won.game = game.id AND won.bit = trophy.bit AND won.player = player.id
    GROUP BY game.id, player.id;
-- How others rate a player: each rater has one vote.
CREATE VIEW standing AS SELECT player.id AS UID, count(CASE up WHEN 1 THEN 1 END) AS UP,
    count(CASE up WHEN 0 THEN 1 END) AS DOWN, count(up) AS VOTES, count(up) = 0 AS UNRATED,
    sum(up) * 100 / count(up) AS UP_PERCENT
    FROM player LEFT JOIN rating ON rated = player.id GROUP BY player.id;
-- What the tabs of the companion show.
CREATE VIEW unread AS SELECT id AS player,
    (SELECT count(*) FROM delivery WHERE recipient = player.id AND read = 0) AS iInboxMessages,
    (SELECT count(*) FROM won WHERE player = player.id AND seen = 0) AS iGamesMessages,
    (SELECT count(*) FROM friendship WHERE player = player.id AND seen = 0) AS iFriendsMessages
    FROM player;
