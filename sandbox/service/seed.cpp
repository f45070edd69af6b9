// SPDX-License-Identifier: MIT
#include "seed.h"

#include "secrets.h"
#include "statement.h"
#include "texts.h"

#include <ctime>

namespace {

struct SeedPlayer {
    const char *id;
    const char *login;
    const char *name;
    const char *city;
    const char *motto;
};

struct SeedGame {
    int id;
    const char *name;
    const char *taglines[languageCount];
};

struct SeedTrophy {
    int game;
    int bit;
    int points;
    const char *names[languageCount];
};

struct SeedPair {
    const char *one;
    const char *other;
};

struct SeedMessage {
    int minutesAgo;
    const char *sender;
    const char *recipients[3];
    bool read;
    const char *text;
};

struct SeedWin {
    const char *player;
    int game;
    int bit;
    int hoursAgo;
};

struct SeedRating {
    const char *rater;
    const char *rated;
    bool up;
};

// clang-format off
constexpr SeedPlayer players[] = {
    {"u101", "emma", "Emma Lindqvist", "Göteborg", "One more level, then bed."},
    {"u102", "luca", "Luca Bianchi", "Torino", "Chi si ferma è perduto."},
    {"u103", "marie", "Marie Lefèvre", "Lyon", "Jamais sans mon café."},
    {"u104", "jonas", "Jonas Müller", "Köln", "Straßenbahnfahrer aus Überzeugung"},
    {"u105", "carmen", "Carmen Ruiz", "Sevilla", "¿Otra partida?"},
    {"u106", "oliver", "Oliver Hughes", "Bristol", "Slow and steady"},
    {"u107", "ines", "Inês Carvalho", "Porto", "Sempre a somar"},
    {"u108", "mateusz", "Mateusz Kowalski", "Łódź", "Gram na czas"},
    {"u109", "sofia", "Sofia Papadaki", "Θεσσαλονίκη", "Σιγά σιγά"},
    {"u110", "noah", "Noah van Dijk", "Utrecht", "Altijd op de fiets"},
    {"u111", "yuki", "Yuki Tanaka", "Ōsaka", "Mō ikkai!"},
    {"u112", "amara", "Amara Okafor", "Lagos", "Play fair, win big"},
};

constexpr SeedGame games[] = {
    {3, "Kite Harbour", {"Fly high above the windy port.", "Prenez de la hauteur sur le port.", "Hoch hinaus über dem windigen Hafen.", "Vola alto sul porto ventoso.", "Vuela alto sobre el puerto."}},
    {5, "Pebble Kings", {"Stack your stones before the tide.", "Empilez vos galets avant la marée.", "Stapel deine Steine vor der Flut.", "Impila i sassi prima della marea.", "Apila tus piedras antes de la marea."}},
    {7, "Torvane", {"Find your way through the sunken towers.", "Trouvez le chemin des tours englouties.", "Finde den Weg durch die versunkenen Türme.", "Trova la via tra le torri sommerse.", "Halla el camino entre las torres hundidas."}},
    {11, "Night Tram", {"Bring the last passengers home.", "Ramenez les derniers passagers.", "Bring die letzten Fahrgäste heim.", "Porta a casa gli ultimi passeggeri.", "Lleva a casa a los últimos pasajeros."}},
    {12, "Orchard Rush", {"Pick it, pack it, race to market.", "Cueillez, emballez, filez au marché.", "Pflücken, packen, ab zum Markt.", "Raccogli, imballa, corri al mercato.", "Recoge, empaqueta y corre al mercado."}},
    {15, "Deep Lantern", {"Light up the mines, room by room.", "Éclairez la mine, salle après salle.", "Bring Licht in die Stollen.", "Illumina la miniera, stanza per stanza.", "Ilumina la mina, sala a sala."}},
};

constexpr SeedTrophy trophies[] = {
    {3, 0, 10, {"First flight", "Premier envol", "Erster Flug", "Primo volo", "Primer vuelo"}},
    {3, 2, 20, {"Against the wind", "Contre le vent", "Gegen den Wind", "Controvento", "Contra el viento"}},
    {3, 3, 50, {"Above the clouds", "Au-dessus des nuages", "Über den Wolken", "Sopra le nuvole", "Sobre las nubes"}},
    {5, 0, 10, {"Three in a pile", "Trois d'un coup", "Drei auf einen Streich", "Tre in pila", "Tres en pila"}},
    {5, 1, 20, {"Dry feet", "Pieds au sec", "Trockene Füße", "Piedi asciutti", "Pies secos"}},
    {5, 9, 50, {"King of the beach", "Roi de la plage", "König des Strands", "Re della spiaggia", "Rey de la playa"}},
    {7, 0, 10, {"First steps", "Premiers pas", "Erste Schritte", "Primi passi", "Primeros pasos"}},
    {7, 1, 10, {"Key bearer", "Porteur de clé", "Schlüsselträger", "Custode della chiave", "Portador de la llave"}},
    {7, 5, 20, {"Deep breath", "Grande inspiration", "Tief Luft geholt", "Un bel respiro", "Respira hondo"}},
    {7, 12, 20, {"Bell ringer", "Sonneur de cloches", "Glöckner", "Campanaro", "Campanero"}},
    {7, 40, 30, {"Night diver", "Plongeur de nuit", "Nachttaucher", "Tuffatore notturno", "Buceador nocturno"}},
    {7, 63, 100, {"Master of the towers", "Maître des tours", "Meister der Türme", "Signore delle torri", "Señor de las torres"}},
    {11, 0, 10, {"On time", "À l'heure", "Pünktlich", "In orario", "Puntual"}},
    {11, 4, 20, {"Full house", "Complet", "Voller Wagen", "Tutto esaurito", "Lleno total"}},
    {11, 8, 50, {"Last stop", "Terminus", "Endstation", "Capolinea", "Última parada"}},
    {12, 0, 10, {"Windfall", "Fruit tombé", "Fallobst", "Caduta dal cielo", "Fruta caída"}},
    {12, 6, 30, {"Market day", "Jour de marché", "Markttag", "Giorno di mercato", "Día de mercado"}},
    {15, 0, 10, {"A light in the dark", "Une lueur", "Ein Licht im Dunkeln", "Una luce nel buio", "Una luz en lo oscuro"}},
    {15, 7, 20, {"Canary", "Canari", "Kanarienvogel", "Canarino", "Canario"}},
    {15, 31, 50, {"Heart of the mountain", "Cœur de la montagne", "Herz des Berges", "Cuore della montagna", "Corazón de la montaña"}},
};

constexpr SeedPair friendships[] = {
    {"u101", "u102"}, {"u101", "u103"}, {"u101", "u104"}, {"u101", "u105"}, {"u101", "u106"}, {"u101", "u111"},
    {"u102", "u103"}, {"u102", "u105"}, {"u102", "u112"}, {"u103", "u104"}, {"u103", "u107"}, {"u104", "u108"},
    {"u104", "u110"}, {"u105", "u107"}, {"u106", "u110"}, {"u107", "u109"}, {"u108", "u109"}, {"u110", "u111"},
    {"u111", "u112"},
};

// The friends that the second one has not looked at yet.
constexpr SeedPair newFriends[] = {{"u111", "u101"}, {"u105", "u102"}, {"u110", "u104"}};

constexpr SeedMessage messages[] = {
    {9000, "u101", {"u102"}, true, "Ciao Luca! Have you found the second key in Torvane yet?"},
    {8900, "u102", {"u101"}, true, "Yes! Behind the bell tower, you have to dive twice."},
    {8800, "u101", {"u102"}, true, "Thank you, I would never have looked there."},
    {4500, "u103", {"u101", "u104"}, true, "On joue tous ensemble samedi soir ? J'apporte les crêpes."},
    {4400, "u104", {"u103", "u101"}, true, "Bin dabei! Ich bringe Limonade mit."},
    {2900, "u106", {"u101"}, true, "That was a close race. Same time next week?"},
    {2000, "u101", {"u106"}, true, "Of course. This time I will win :-)"},
    {1500, "u104", {"u102"}, true, "Schaffst du die Endstation in Night Tram ohne Umweg?"},
    {700, "u105", {"u101"}, false, "¡Enhorabuena por el trofeo! ¿Me enseñas el truco?"},
    {300, "u102", {"u101", "u103", "u105"}, false, "Who is in for a round of Pebble Kings tonight?\n\nBianchi vs. the rest of the world & his dog."},
    {95, "u111", {"u101"}, false, "Hajimemashite! Nice to meet you, Emma. Your high score in Kite Harbour is amazing."},
    {40, "u107", {"u103"}, false, "Marie, tens uma chave a mais?"},
};

constexpr SeedWin wins[] = {
    {"u101", 3, 0, 400}, {"u101", 3, 2, 200}, {"u101", 5, 0, 300}, {"u101", 11, 0, 150}, {"u101", 15, 0, 90},
    {"u101", 7, 1, 600}, {"u102", 7, 0, 500}, {"u102", 7, 1, 480}, {"u102", 7, 12, 5}, {"u102", 5, 0, 100},
    {"u102", 5, 9, 30}, {"u103", 12, 0, 70}, {"u103", 12, 6, 26}, {"u103", 7, 0, 52}, {"u104", 11, 0, 300},
    {"u104", 11, 4, 44}, {"u104", 11, 8, 2}, {"u105", 7, 0, 80}, {"u105", 3, 0, 60}, {"u106", 15, 0, 100},
    {"u106", 15, 7, 20}, {"u106", 3, 3, 10}, {"u107", 12, 0, 33}, {"u108", 11, 0, 21}, {"u109", 5, 1, 14},
    {"u110", 3, 0, 12}, {"u111", 7, 0, 9}, {"u111", 7, 40, 8}, {"u111", 3, 2, 3}, {"u112", 15, 31, 7},
};

constexpr SeedRating ratings[] = {
    {"u101", "u102", true}, {"u103", "u102", true}, {"u105", "u102", true}, {"u112", "u102", false},
    {"u102", "u101", true}, {"u104", "u101", true}, {"u101", "u104", true}, {"u103", "u104", true},
    {"u108", "u104", false}, {"u102", "u105", true}, {"u110", "u106", true}, {"u110", "u111", true},
};
// clang-format on

void seedPlayers(sqlite3 *connection)
{
    for (const SeedPlayer &player : players) {
        // Documented, so that everybody can sign in as anybody: the login name followed by 123.
        const std::string hash = passwordHash(std::string(player.login) + "123");
        Statement(connection, "INSERT INTO player(id, login, password, name, motto, city) VALUES(?, ?, ?, ?, ?, ?)",
                  player.id, player.login, hash, player.name, player.motto, player.city)
            .next();
    }
}

void seedGames(sqlite3 *connection)
{
    for (const SeedGame &game : games) {
        Statement(connection, "INSERT INTO game VALUES(?, ?)", game.id, game.name).next();
        for (int language = 0; language < languageCount; ++language)
            Statement(connection, "INSERT INTO tagline VALUES(?, ?, ?)", game.id, language, game.taglines[language])
                .next();
    }
    for (const SeedTrophy &trophy : trophies) {
        Statement(connection, "INSERT INTO trophy VALUES(?, ?, ?)", trophy.game, trophy.bit, trophy.points).next();
        for (int language = 0; language < languageCount; ++language) {
            Statement(connection, "INSERT INTO trophy_name VALUES(?, ?, ?, ?)", trophy.game, trophy.bit, language,
                      trophy.names[language])
                .next();
        }
    }
}

void seedFriends(sqlite3 *connection)
{
    for (const SeedPair &pair : friendships) {
        Statement(connection, "INSERT INTO friendship VALUES(?1, ?2, 1), (?2, ?1, 1)", pair.one, pair.other).next();
    }
    for (const SeedPair &pair : newFriends) {
        Statement(connection, "UPDATE friendship SET seen = 0 WHERE player = ? AND friend = ?", pair.other, pair.one)
            .next();
    }
    for (const SeedRating &rating : ratings)
        Statement(connection, "INSERT INTO rating VALUES(?, ?, ?)", rating.rater, rating.rated, rating.up ? 1 : 0)
            .next();
}

void seedMessages(sqlite3 *connection, std::time_t now)
{
    for (const SeedMessage &message : messages) {
        Statement(connection, "INSERT INTO message(sender, game, text, sent) VALUES(?, 7, ?, ?)", message.sender,
                  message.text, now - message.minutesAgo * 60)
            .next();
        const std::int64_t id = sqlite3_last_insert_rowid(connection);
        int position = 0;
        for (const char *recipient : message.recipients) {
            if (recipient) {
                Statement(connection, "INSERT INTO delivery VALUES(?, ?, ?, ?)", id, recipient, position++,
                          message.read ? 1 : 0)
                    .next();
            }
        }
    }
}

} // namespace

void seed(sqlite3 *connection)
{
    const std::time_t now = std::time(nullptr);
    seedPlayers(connection);
    seedGames(connection);
    seedFriends(connection);
    seedMessages(connection, now);
    for (const SeedWin &win : wins) {
        Statement(connection, "INSERT INTO won VALUES(?, ?, ?, ?, 1)", win.player, win.game, win.bit,
                  now - win.hoursAgo * 3600)
            .next();
    }
}
