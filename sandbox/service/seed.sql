-- SPDX-License-Identifier: MIT
-- Who lives in a new database. Moments are told by their age, so that the world is fresh whenever it begins.

-- The password is the user name followed by 123; it is hashed when the database is made.
INSERT INTO player(id, login, name, city, motto) VALUES
('u101', 'emma', 'Emma Lindqvist', 'Göteborg', 'One more level, then bed.'),
('u102', 'luca', 'Luca Bianchi', 'Torino', 'Chi si ferma è perduto.'),
('u103', 'marie', 'Marie Lefèvre', 'Lyon', 'Jamais sans mon café.'),
('u104', 'jonas', 'Jonas Müller', 'Köln', 'Straßenbahnfahrer aus Überzeugung'),
('u105', 'carmen', 'Carmen Ruiz', 'Sevilla', '¿Otra partida?'),
('u106', 'oliver', 'Oliver Hughes', 'Bristol', 'Slow and steady'),
('u107', 'ines', 'Inês Carvalho', 'Porto', 'Sempre a somar'),
('u108', 'mateusz', 'Mateusz Kowalski', 'Łódź', 'Gram na czas'),
('u109', 'sofia', 'Sofia Papadaki', 'Θεσσαλονίκη', 'Σιγά σιγά'),
('u110', 'noah', 'Noah van Dijk', 'Utrecht', 'Altijd op de fiets'),
('u111', 'yuki', 'Yuki Tanaka', 'Ōsaka', 'Mō ikkai!'),
('u112', 'amara', 'Amara Okafor', 'Lagos', 'Play fair, win big');

INSERT INTO game(id, name, EN, FR, DE, IT, SP) VALUES
(3, 'Kite Harbour', 'Fly high above the windy port.', 'Prenez de la hauteur sur le port.', 'Hoch hinaus über dem windigen Hafen.', 'Vola alto sul porto ventoso.', 'Vuela alto sobre el puerto.'),
(5, 'Pebble Kings', 'Stack your stones before the tide.', 'Empilez vos galets avant la marée.', 'Stapel deine Steine vor der Flut.', 'Impila i sassi prima della marea.', 'Apila tus piedras antes de la marea.'),
(7, 'Torvane', 'Find your way through the sunken towers.', 'Trouvez le chemin des tours englouties.', 'Finde den Weg durch die versunkenen Türme.', 'Trova la via tra le torri sommerse.', 'Halla el camino entre las torres hundidas.'),
(11, 'Night Tram', 'Bring the last passengers home.', 'Ramenez les derniers passagers.', 'Bring die letzten Fahrgäste heim.', 'Porta a casa gli ultimi passeggeri.', 'Lleva a casa a los últimos pasajeros.'),
(12, 'Orchard Rush', 'Pick it, pack it, race to market.', 'Cueillez, emballez, filez au marché.', 'Pflücken, packen, ab zum Markt.', 'Raccogli, imballa, corri al mercato.', 'Recoge, empaqueta y corre al mercado.'),
(15, 'Deep Lantern', 'Light up the mines, room by room.', 'Éclairez la mine, salle après salle.', 'Bring Licht in die Stollen.', 'Illumina la miniera, stanza per stanza.', 'Ilumina la mina, sala a sala.');

INSERT INTO trophy(game, bit, points, EN, FR, DE, IT, SP) VALUES
(3, 0, 10, 'First flight', 'Premier envol', 'Erster Flug', 'Primo volo', 'Primer vuelo'),
(3, 2, 20, 'Against the wind', 'Contre le vent', 'Gegen den Wind', 'Controvento', 'Contra el viento'),
(3, 3, 50, 'Above the clouds', 'Au-dessus des nuages', 'Über den Wolken', 'Sopra le nuvole', 'Sobre las nubes'),
(5, 0, 10, 'Three in a pile', 'Trois d''un coup', 'Drei auf einen Streich', 'Tre in pila', 'Tres en pila'),
(5, 1, 20, 'Dry feet', 'Pieds au sec', 'Trockene Füße', 'Piedi asciutti', 'Pies secos'),
(5, 9, 50, 'King of the beach', 'Roi de la plage', 'König des Strands', 'Re della spiaggia', 'Rey de la playa'),
(7, 0, 10, 'First steps', 'Premiers pas', 'Erste Schritte', 'Primi passi', 'Primeros pasos'),
(7, 1, 10, 'Key bearer', 'Porteur de clé', 'Schlüsselträger', 'Custode della chiave', 'Portador de la llave'),
(7, 5, 20, 'Deep breath', 'Grande inspiration', 'Tief Luft geholt', 'Un bel respiro', 'Respira hondo'),
(7, 12, 20, 'Bell ringer', 'Sonneur de cloches', 'Glöckner', 'Campanaro', 'Campanero'),
(7, 40, 30, 'Night diver', 'Plongeur de nuit', 'Nachttaucher', 'Tuffatore notturno', 'Buceador nocturno'),
(7, 63, 100, 'Master of the towers', 'Maître des tours', 'Meister der Türme', 'Signore delle torri', 'Señor de las torres'),
(11, 0, 10, 'On time', 'À l''heure', 'Pünktlich', 'In orario', 'Puntual'),
(11, 4, 20, 'Full house', 'Complet', 'Voller Wagen', 'Tutto esaurito', 'Lleno total'),
(11, 8, 50, 'Last stop', 'Terminus', 'Endstation', 'Capolinea', 'Última parada'),
(12, 0, 10, 'Windfall', 'Fruit tombé', 'Fallobst', 'Caduta dal cielo', 'Fruta caída'),
(12, 6, 30, 'Market day', 'Jour de marché', 'Markttag', 'Giorno di mercato', 'Día de mercado'),
(15, 0, 10, 'A light in the dark', 'Une lueur', 'Ein Licht im Dunkeln', 'Una luce nel buio', 'Una luz en lo oscuro'),
(15, 7, 20, 'Canary', 'Canari', 'Kanarienvogel', 'Canarino', 'Canario'),
(15, 31, 50, 'Heart of the mountain', 'Cœur de la montagne', 'Herz des Berges', 'Cuore della montagna', 'Corazón de la montaña');

INSERT INTO friendship(player, friend, seen) VALUES
('u101', 'u102', 1), ('u101', 'u103', 1), ('u101', 'u104', 1), ('u101', 'u105', 1), ('u101', 'u106', 1),
('u101', 'u111', 1), ('u102', 'u103', 1), ('u102', 'u105', 1), ('u102', 'u112', 1), ('u103', 'u104', 1),
('u103', 'u107', 1), ('u104', 'u108', 1), ('u104', 'u110', 1), ('u105', 'u107', 1), ('u106', 'u110', 1),
('u107', 'u109', 1), ('u108', 'u109', 1), ('u110', 'u111', 1), ('u111', 'u112', 1);
INSERT INTO friendship SELECT friend, player, 1 FROM friendship;
UPDATE friendship SET seen = 0
WHERE (player, friend) IN (VALUES ('u101', 'u111'), ('u102', 'u105'), ('u104', 'u110'));

INSERT INTO rating(rater, rated, up) VALUES
('u101', 'u102', 1), ('u103', 'u102', 1), ('u105', 'u102', 1), ('u112', 'u102', 0), ('u102', 'u101', 1),
('u104', 'u101', 1), ('u101', 'u104', 1), ('u103', 'u104', 1), ('u108', 'u104', 0), ('u102', 'u105', 1),
('u110', 'u106', 1), ('u110', 'u111', 1);

INSERT INTO message(id, sender, game, text, sent) VALUES
(1, 'u101', 7, 'Ciao Luca! Have you found the second key in Torvane yet?', unixepoch() - 9000 * 60),
(2, 'u102', 7, 'Yes! Behind the bell tower, you have to dive twice.', unixepoch() - 8900 * 60),
(3, 'u101', 7, 'Thank you, I would never have looked there.', unixepoch() - 8800 * 60),
(4, 'u103', 7, 'On joue tous ensemble samedi soir ? J''apporte les crêpes.', unixepoch() - 4500 * 60),
(5, 'u104', 7, 'Bin dabei! Ich bringe Limonade mit.', unixepoch() - 4400 * 60),
(6, 'u106', 7, 'That was a close race. Same time next week?', unixepoch() - 2900 * 60),
(7, 'u101', 7, 'Of course. This time I will win :-)', unixepoch() - 2000 * 60),
(8, 'u104', 7, 'Schaffst du die Endstation in Night Tram ohne Umweg?', unixepoch() - 1500 * 60),
(9, 'u105', 7, '¡Enhorabuena por el trofeo! ¿Me enseñas el truco?', unixepoch() - 700 * 60),
(10, 'u102', 7, 'Who is in for a round of Pebble Kings tonight?' || char(10) || char(10) || 'Bianchi vs. the rest of the world & his dog.', unixepoch() - 300 * 60),
(11, 'u111', 7, 'Hajimemashite! Nice to meet you, Emma. Your high score in Kite Harbour is amazing.', unixepoch() - 95 * 60),
(12, 'u107', 7, 'Marie, tens uma chave a mais?', unixepoch() - 40 * 60);

INSERT INTO delivery(message, position, recipient, read) VALUES
(1, 0, 'u102', 1), (2, 0, 'u101', 1), (3, 0, 'u102', 1), (4, 0, 'u101', 1), (4, 1, 'u104', 1), (5, 0, 'u103', 1),
(5, 1, 'u101', 1), (6, 0, 'u101', 1), (7, 0, 'u106', 1), (8, 0, 'u102', 1), (9, 0, 'u101', 0), (10, 0, 'u101', 0),
(10, 1, 'u103', 0), (10, 2, 'u105', 0), (11, 0, 'u101', 0), (12, 0, 'u103', 0);

INSERT INTO won(player, game, bit, at, seen) VALUES
('u101', 3, 0, unixepoch() - 400 * 3600, 1), ('u101', 3, 2, unixepoch() - 200 * 3600, 1),
('u101', 5, 0, unixepoch() - 300 * 3600, 1), ('u101', 11, 0, unixepoch() - 150 * 3600, 1),
('u101', 15, 0, unixepoch() - 90 * 3600, 1), ('u101', 7, 1, unixepoch() - 600 * 3600, 1),
('u102', 7, 0, unixepoch() - 500 * 3600, 1), ('u102', 7, 1, unixepoch() - 480 * 3600, 1),
('u102', 7, 12, unixepoch() - 5 * 3600, 1), ('u102', 5, 0, unixepoch() - 100 * 3600, 1),
('u102', 5, 9, unixepoch() - 30 * 3600, 1), ('u103', 12, 0, unixepoch() - 70 * 3600, 1),
('u103', 12, 6, unixepoch() - 26 * 3600, 1), ('u103', 7, 0, unixepoch() - 52 * 3600, 1),
('u104', 11, 0, unixepoch() - 300 * 3600, 1), ('u104', 11, 4, unixepoch() - 44 * 3600, 1),
('u104', 11, 8, unixepoch() - 2 * 3600, 1), ('u105', 7, 0, unixepoch() - 80 * 3600, 1),
('u105', 3, 0, unixepoch() - 60 * 3600, 1), ('u106', 15, 0, unixepoch() - 100 * 3600, 1),
('u106', 15, 7, unixepoch() - 20 * 3600, 1), ('u106', 3, 3, unixepoch() - 10 * 3600, 1),
('u107', 12, 0, unixepoch() - 33 * 3600, 1), ('u108', 11, 0, unixepoch() - 21 * 3600, 1),
('u109', 5, 1, unixepoch() - 14 * 3600, 1), ('u110', 3, 0, unixepoch() - 12 * 3600, 1),
('u111', 7, 0, unixepoch() - 9 * 3600, 1), ('u111', 7, 40, unixepoch() - 8 * 3600, 1),
('u111', 3, 2, unixepoch() - 3 * 3600, 1), ('u112', 15, 31, unixepoch() - 7 * 3600, 1);
