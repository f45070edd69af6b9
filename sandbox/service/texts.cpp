// SPDX-License-Identifier: MIT
#include "texts.h"

#include <algorithm>
#include <stdexcept>
#include <utf8cpp/utf8.h>

namespace {

struct Code {
    const char *service;
    const char *html;
    const char *day;
};

constexpr Code codes[languageCount] = {
    {"EN", "en", "%d %b"}, {"FR", "fr", "%d/%m"}, {"DE", "de", "%d.%m."}, {"IT", "it", "%d/%m"}, {"SP", "es", "%d/%m"}};

std::string formatted(const char *format, std::time_t moment)
{
    std::tm parts{};
    localtime_r(&moment, &parts);
    char text[32];
    return std::string(text, std::strftime(text, sizeof text, format, &parts));
}

} // namespace

// French has a space before colon, question and exclamation mark, at which no line may break.
// clang-format off
const std::vector<Phrase> phrases = {
    // Titles: they stand in the header of the companion, so they are short.
    {"T_HOME", {"Home", "Accueil", "Home", "Home", "Inicio"}},
    {"T_SIGN_IN", {"Sign in", "Connexion", "Anmelden", "Accedi", "Entrar"}},
    {"T_INBOX", {"Inbox", "Messagerie", "Inbox", "Messaggi", "Mensajes"}},
    {"T_SENT", {"Sent messages", "Messages envoyés", "Gesendet", "Messaggi inviati", "Enviados"}},
    {"T_FRIENDS", {"Friends", "Amis", "Freunde", "Amici", "Amigos"}},
    {"T_ADD_FRIENDS", {"Find friends", "Trouver des amis", "Freunde finden", "Trova amici", "Buscar amigos"}},
    {"T_INVITATIONS", {"Invitations", "Invitations", "Einladungen", "Inviti", "Invitaciones"}},
    {"T_GAMES", {"Games", "Jeux", "Spiele", "Giochi", "Juegos"}},
    {"T_TROPHIES", {"Trophies", "Trophées", "Trophäen", "Trofei", "Trofeos"}},
    {"TROPHIES_COUNTED", {"trophies", "trophées", "Trophäen", "trofei", "trofeos"}},
    {"T_COMPARE", {"Compare games", "Comparer", "Vergleich", "Confronta", "Comparar"}},
    {"T_ACCOUNT", {"My account", "Mon compte", "Mein Konto", "Il mio account", "Mi cuenta"}},
    {"T_EDIT", {"Edit account", "Modifier", "Bearbeiten", "Modifica", "Editar"}},
    {"T_INFO", {"About Vantu", "À propos", "Über Vantu", "Info su Vantu", "Acerca de Vantu"}},
    {"T_INVITE", {"Invitation", "Invitation", "Einladung", "Invito", "Invitación"}},
    {"T_PROBLEM", {"Sorry", "Désolé", "Tut uns leid", "Spiacenti", "Lo sentimos"}},
    {"T_ERROR", {"Error", "Erreur", "Fehler", "Errore", "Error"}},

    // The companion finds these sentences in the page and takes it for the error page: they are a contract.
    {"ERROR_SENTENCE", {"An error has occurred inside the application", "Une erreur est survenue dans l'application", "In der Anwendung ist ein Fehler aufgetreten", "Si è verificato un errore nell'applicazione", "Ha ocurrido un error en la aplicación"}},
    {"ERROR_HINT", {"Please try again in a moment.", "Veuillez réessayer dans un instant.", "Bitte versuche es gleich noch einmal.", "Riprova tra un momento.", "Inténtalo de nuevo en un momento."}},
    {"NOT_FOUND", {"There is no such page.", "Cette page n'existe pas.", "Diese Seite gibt es nicht.", "Questa pagina non esiste.", "Esta página no existe."}},
    {"BAD_REQUEST", {"That did not work: something in the request is not right.", "Cela n'a pas marché : la demande n'est pas correcte.", "Das hat nicht geklappt: Die Anfrage ist nicht in Ordnung.", "Non ha funzionato: la richiesta non è corretta.", "No ha funcionado: la petición no es correcta."}},
    {"GO_HOME", {"To the home page", "Vers l'accueil", "Zur Startseite", "Alla pagina iniziale", "A la página de inicio"}},
    {"WAITED", {"This page took its time: % milliseconds.", "Cette page a pris son temps : % millisecondes.", "Diese Seite hat sich Zeit gelassen: % Millisekunden.", "Questa pagina se l'è presa comoda: % millisecondi.", "Esta página se ha tomado su tiempo: % milisegundos."}},

    // Signing in.
    {"WELCOME", {"Play together", "Jouez ensemble", "Spielt zusammen", "Giocate insieme", "Jugad juntos"}},
    {"WELCOME_TEXT", {"Sign in to see your friends, messages and trophies.", "Connectez-vous pour retrouver vos amis, messages et trophées.", "Melde dich an und sieh deine Freunde, Nachrichten und Trophäen.", "Accedi per vedere amici, messaggi e trofei.", "Entra para ver tus amigos, mensajes y trofeos."}},
    {"USER_NAME", {"User name", "Identifiant", "Benutzername", "Nome utente", "Usuario"}},
    {"PASSWORD", {"Password", "Mot de passe", "Passwort", "Password", "Contraseña"}},
    {"REMEMBER_ME", {"Remember me", "Se souvenir de moi", "Angemeldet bleiben", "Ricordami", "Recordarme"}},
    {"WRONG_LOGIN", {"User name or password is wrong.", "Identifiant ou mot de passe incorrect.", "Benutzername oder Passwort ist falsch.", "Nome utente o password errati.", "Usuario o contraseña incorrectos."}},
    {"SIGNED_OUT", {"You are signed out.", "Déconnexion réussie.", "Du bist abgemeldet.", "Uscita effettuata.", "Has salido."}},
    {"GUEST_HINT", {"To try it out:", "Pour essayer :", "Zum Ausprobieren:", "Per provare:", "Para probar:"}},
    {"SIGN_OUT", {"Sign out", "Se déconnecter", "Abmelden", "Esci", "Salir"}},

    // Home.
    {"HELLO", {"Hello, %!", "Bonjour % !", "Hallo, %!", "Ciao, %!", "¡Hola, %!"}},
    {"UNREAD_MESSAGES", {"Unread messages", "Messages non lus", "Ungelesene Nachrichten", "Messaggi non letti", "Mensajes sin leer"}},
    {"NEW_FRIENDS", {"New friends", "Nouveaux amis", "Neue Freunde", "Nuovi amici", "Amigos nuevos"}},
    {"NEW_TROPHIES", {"New trophies", "Nouveaux trophées", "Neue Trophäen", "Nuovi trofei", "Trofeos nuevos"}},
    {"NOW_PLAYING", {"Now playing", "En cours", "Gerade im Spiel", "Stai giocando a", "Jugando ahora"}},
    {"NEWS_HEADING", {"News from friends", "Du côté de vos amis", "Neues von Freunden", "Novità dagli amici", "Novedades de amigos"}},
    {"NO_NEWS", {"Nothing new yet.", "Rien de neuf pour l'instant.", "Noch nichts Neues.", "Ancora nessuna novità.", "Aún no hay novedades."}},

    // Messages.
    {"NO_MESSAGES", {"No messages yet.", "Pas encore de message.", "Noch keine Nachrichten.", "Ancora nessun messaggio.", "Aún no hay mensajes."}},
    {"YOU", {"You", "Vous", "Du", "Tu", "Tú"}},
    {"COLON", {":", "\u00A0:", ":", ":", ":"}},
    {"TO_LABEL", {"To", "À", "An", "A", "Para"}},

    // Friends and players.
    {"NO_FRIENDS", {"No friends here yet.", "Pas encore d'amis ici.", "Hier ist noch niemand.", "Qui non c'è ancora nessuno.", "Aún no hay nadie aquí."}},
    {"CHOOSE_FRIEND", {"Choose a friend", "À qui écrire\u00A0?", "Wer soll es lesen?", "A chi vuoi scrivere?", "¿A quién quieres escribir?"}},
    {"NEW", {"new", "nouveauté", "neu", "novità", "novedad"}},
    {"PREVIOUS", {"Previous", "Précédents", "Zurück", "Precedenti", "Anteriores"}},
    {"NEXT", {"Next", "Suivants", "Weiter", "Successivi", "Siguientes"}},
    {"SEARCH", {"Search", "Chercher", "Suchen", "Cerca", "Buscar"}},
    {"SEARCH_FOR", {"Name of a player", "Nom ou identifiant", "Wen suchst du?", "Chi cerchi?", "¿A quién buscas?"}},
    {"PERHAPS_YOU_KNOW", {"Perhaps you know", "Vous connaissez peut-être", "Vielleicht kennst du", "Forse conosci", "Quizá conozcas a"}},
    {"FOUND", {"Found", "Résultats", "Gefunden", "Risultati", "Resultados"}},
    {"NOBODY_FOUND", {"Nobody of that name.", "Personne de ce nom.", "Niemand mit diesem Namen.", "Nessuno con questo nome.", "Nadie con ese nombre."}},
    {"ADD", {"Add", "Ajouter", "Hinzufügen", "Aggiungi", "Añadir"}},
    {"YOUR_FRIEND", {"Friend", "Parmi vos amis", "Befreundet", "Tra i tuoi amici", "Entre tus amigos"}},
    {"STANDING", {"Standing", "Réputation", "Ansehen", "Reputazione", "Reputación"}},
    {"NO_RATINGS", {"No ratings yet", "Pas encore d'avis", "Noch keine Bewertung", "Ancora nessun voto", "Aún sin votos"}},
    {"FRIEND_ADDED", {"% is now your friend.", "% fait partie de vos amis.", "% ist jetzt mit dir befreundet.", "% è ora tra i tuoi amici.", "% está ahora entre tus amigos."}},
    {"FRIEND_DELETED", {"% is no longer on your list.", "% ne fait plus partie de vos amis.", "% steht nicht mehr auf deiner Liste.", "% non è più tra i tuoi amici.", "% ya no está entre tus amigos."}},
    {"RATED", {"Your rating of % counts.", "Votre avis sur % est pris en compte.", "Deine Bewertung für % zählt.", "Il tuo voto per % è stato contato.", "Tu voto sobre % cuenta."}},
    {"NO_INVITATIONS", {"You have not invited anybody yet.", "Vous n'avez encore invité personne.", "Du hast noch niemanden eingeladen.", "Non hai ancora invitato nessuno.", "Aún no has invitado a nadie."}},

    // Games.
    {"POINTS", {"points", "points", "Punkte", "punti", "puntos"}},
    {"PLAYED_BY", {"Friends who play", "Amis qui y jouent", "Freunde im Spiel", "Amici che giocano", "Amigos que juegan"}},
    {"NOT_WON", {"Not won yet", "Pas encore gagné", "Noch nicht gewonnen", "Non ancora vinto", "Aún sin ganar"}},
    {"WON_LABEL", {"Won", "Gagné", "Gewonnen", "Vinto", "Ganado"}},
    {"SHARE", {"Share", "Partager", "Teilen", "Condividi", "Compartir"}},
    {"SHARE_TEXT", {"I am playing %. Come and play with me!", "Je joue à %. Venez jouer avec moi !", "Ich spiele gerade %. Spiel mit!", "Sto giocando a %. Gioca con me!", "Estoy jugando a %. ¡Juega conmigo!"}},
    {"SHARED", {"Shared. Thank you!", "C'est partagé. Merci !", "Geteilt. Danke!", "Condiviso. Grazie!", "Compartido. ¡Gracias!"}},
    {"PRACTICE", {"Practice page: nothing leaves this computer.", "Page d'essai : rien ne quitte cet ordinateur.", "Übungsseite: Nichts verlässt diesen Rechner.", "Pagina di prova: nulla lascia questo computer.", "Página de prueba: nada sale de este ordenador."}},
    {"INVITE_SUBJECT", {"Play % with me", "Jouez à % avec moi", "Spiel % mit mir", "Gioca a % con me", "Juega a % conmigo"}},
    {"INVITE_TEXT", {"your friend % plays here and would like you to come along. Install the game, find your friends and win trophies with them.", "% joue ici et aimerait vous y retrouver. Installez le jeu, retrouvez vos amis et gagnez des trophées ensemble.", "% spielt hier und möchte dich dabeihaben. Installiere das Spiel, finde deine Freunde und gewinne Trophäen mit ihnen.", "% gioca qui e ti vorrebbe con sé. Installa il gioco, trova i tuoi amici e vinci trofei con loro.", "% juega aquí y le gustaría que vinieras. Instala el juego, encuentra a tus amigos y gana trofeos en su compañía."}},
    {"INVITE_GREETING", {"Hello,", "Bonjour,", "Hallo,", "Ciao,", "Hola:"}},
    {"INVITE_PREVIEW", {"This is what your friend will read", "Voici ce qui sera lu", "Das steht in der Nachricht", "Ecco cosa si leggerà", "Esto es lo que se leerá"}},
    {"PLAY_NOW", {"Play now", "Jouer", "Jetzt spielen", "Gioca ora", "Jugar ahora"}},

    // Account.
    {"NAME_LABEL", {"Name", "Nom", "Name", "Nome", "Nombre"}},
    {"CITY_LABEL", {"Town", "Ville", "Ort", "Città", "Ciudad"}},
    {"MOTTO_LABEL", {"Motto", "Devise", "Motto", "Motto", "Lema"}},
    {"HOW_OTHERS_SEE_YOU", {"My page", "Ma page", "Meine Seite", "La mia pagina", "Mi página"}},
    {"SAVE", {"Save", "Enregistrer", "Speichern", "Salva", "Guardar"}},
    {"SAVED", {"Your changes are saved.", "Vos changements sont enregistrés.", "Deine Änderungen sind gespeichert.", "Le modifiche sono salvate.", "Tus cambios están guardados."}},
    {"NAME_NEEDED", {"The name has 1 to 40 characters, town and motto at most 100.", "Le nom compte 1 à 40 caractères, la ville et la devise 100 au plus.", "Der Name hat 1 bis 40 Zeichen, Ort und Motto höchstens 100.", "Il nome ha da 1 a 40 caratteri, città e motto al massimo 100.", "El nombre tiene de 1 a 40 caracteres; ciudad y lema, 100 como máximo."}},

    // About.
    {"ABOUT_1", {"Vantu keeps players together: see what your friends play, write to them, compare trophies and recommend the games you like.", "Vantu réunit les joueurs : voyez à quoi jouent vos amis, écrivez-leur, comparez vos trophées et recommandez vos jeux préférés.", "Vantu hält Spieler zusammen: Sieh, was deine Freunde spielen, schreib ihnen, vergleicht Trophäen und empfiehl Spiele, die dir gefallen.", "Vantu tiene uniti i giocatori: guarda a cosa giocano gli amici, scrivi loro, confronta i trofei e consiglia i giochi che ti piacciono.", "Vantu une a los jugadores: mira a qué juegan tus amigos, escríbeles, compara trofeos y recomienda los juegos que te gustan."}},
    {"ABOUT_2", {"This service runs on your own computer, for trying out the companion. Players and messages are made up.", "Ce service tourne sur votre ordinateur, pour essayer le compagnon. Joueurs et messages sont inventés.", "Dieser Dienst läuft auf deinem eigenen Rechner, zum Ausprobieren des Begleiters. Spieler und Nachrichten sind erfunden.", "Questo servizio gira sul tuo computer, per provare il companion. Giocatori e messaggi sono inventati.", "Este servicio funciona en tu propio ordenador, para probar el acompañante. Jugadores y mensajes son inventados."}},
    {"ABOUT_3", {"Your way back: the arrow at the top takes you to the game.", "Le retour : la flèche en haut vous ramène au jeu.", "Zurück: Der Pfeil oben bringt dich ins Spiel.", "Per tornare: la freccia in alto ti riporta al gioco.", "Para volver: la flecha de arriba te lleva al juego."}},
};
// clang-format on

Language languageOf(std::string_view code, Language otherwise)
{
    const auto same = [](char a, char b) { return (a & ~0x20) == b; };
    for (int i = 0; i < languageCount; ++i) {
        const std::string_view each = codes[i].service;
        if (std::equal(code.begin(), code.end(), each.begin(), each.end(), same))
            return static_cast<Language>(i);
    }
    return otherwise;
}

const char *languageCode(Language language)
{
    return codes[static_cast<int>(language)].service;
}

const char *htmlCode(Language language)
{
    return codes[static_cast<int>(language)].html;
}

std::string phrase(std::string_view key, Language language, const std::string &insert)
{
    const auto found
        = std::find_if(phrases.begin(), phrases.end(), [key](const Phrase &each) { return each.key == key; });
    if (found == phrases.end())
        throw std::logic_error("no phrase " + std::string(key));
    std::string text = found->texts[static_cast<int>(language)];
    const std::size_t gap = text.find('%');
    return gap == std::string::npos ? text : text.replace(gap, 1, insert);
}

std::string dayOrTime(std::time_t moment, Language language)
{
    const bool today = formatted("%F", moment) == formatted("%F", std::time(nullptr));
    return formatted(today ? "%H:%M" : codes[static_cast<int>(language)].day, moment);
}

std::string dayAndTime(std::time_t moment, Language language)
{
    return formatted(codes[static_cast<int>(language)].day, moment) + formatted(", %H:%M", moment);
}

std::string excerpt(const std::string &text)
{
    constexpr int longest = 80;
    auto end = text.begin();
    for (int i = 0; i < longest && end != text.end(); ++i)
        utf8::next(end, text.end());
    if (end == text.end())
        return text;
    const std::string start(text.begin(), end);
    // A single word that fills the line is cut where the line ends.
    return start.substr(0, start.find_last_of(" \n")) + "…";
}
