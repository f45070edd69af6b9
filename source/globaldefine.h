// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdlib>
#include <QLatin1String>
#include <QString>

/// What the whole companion shares: the values of the command line, the texts in five languages, the links of the
/// service, the image names and the screen's measures.

/// Identifier of the game that started the companion, from the command line.
extern int g_KVB;
/// Language of the interface, always 0 to 4: English, French, German, Italian, Spanish.
extern int g_languageIdx;
/// Bit mask of the trophies won, from the command line; 0 when the game passed none.
extern quint64 g_trophyIdx;

/// Screen the chrome is laid out for, in scene pixels.
extern int g_nScreenWidth;
extern int g_nScreenHeight;
/// Zoom of the web view: pages are designed 320 CSS pixels wide.
extern float g_ZoomFactor;

/// The compiled-in images.
enum ImageId {
    AddImage,
    AddNewImage,
    AddPressedImage,
    BackImage,
    BackButtonImage,
    BackButtonPressedImage,
    BackPressedImage,
    BadgeImage,
    BlueBadgeImage,
    CloseImage,
    ClosePressedImage,
    FriendsImage,
    GamesImage,
    HomeImage,
    InboxImage,
    NewMessageImage,
    NewMessagePressedImage,
    InfoImage,
    InfoPressedImage,
    InteractImage,
    InteractPressedImage,
    LoadingImage,
    RecommendImage,
    RecommendPressedImage,
    SelectedImage,
    SelectedCheckImage,
    SendImage,
    UnselectedImage,
    ButtonImage,
    ButtonPressedImage,
};
inline constexpr int K_IMAGE_COUNT = ButtonPressedImage + 1;
/// Base names of their files, without extension; the row number is the image id.
extern char k_imgName[K_IMAGE_COUNT][20];

inline constexpr int K_LANGUAGE_COUNT = 5;

/// One phrase in all languages: a row of NUL-terminated Latin-1 bytes per language, padded with NULs to Width.
template <std::size_t Width> struct TextTable {
    char rows[K_LANGUAGE_COUNT][Width];
};

/// Makes a table out of readable literals. A text that is too long for its row with its NUL, or holds a character
/// outside Latin-1, does not compile.
template <std::size_t Width, std::size_t... Sizes> constexpr TextTable<Width> texts(const char16_t (&...phrases)[Sizes])
{
    static_assert(sizeof...(Sizes) == K_LANGUAGE_COUNT, "one text for each language");
    static_assert(((Sizes <= Width) && ...), "a text does not fit its row");
    TextTable<Width> table{};
    int row = 0;
    const auto fill = [&table, &row](const char16_t *phrase) {
        for (std::size_t i = 0; phrase[i] != u'\0'; ++i) {
            if (phrase[i] > 0xFF)
                std::abort(); // no constant: a text holds a character outside Latin-1
            table.rows[row][i] = static_cast<char>(phrase[i]);
        }
        ++row;
    };
    (fill(phrases), ...);
    return table;
}

/// The phrase in the language of the interface. Call it at each use: nothing keeps the result.
template <std::size_t Width> QString localized(const TextTable<Width> &table)
{
    return QString::fromLatin1(table.rows[g_languageIdx]);
}

// clang-format off

// The texts, in the order English, French, German, Italian, Spanish.
inline constexpr auto TXT_VANTU_LANGUAGES = texts<3>(u"EN", u"FR", u"DE", u"IT", u"SP");
inline constexpr auto TXT_FOOTER_HOME = texts<8>(u"Home", u"Accueil", u"Home", u"Home", u"Inicio");
inline constexpr auto TXT_VANTU_OK = texts<6>(u"OK", u"OK", u"OK", u"OK", u"Acep.");
inline constexpr auto TXT_FOOTER_INBOX = texts<16>(u"Inbox", u"Messagerie", u"Inbox", u"Messaggi", u"Mensajes");
inline constexpr auto TXT_FOOTER_FRIENDS = texts<16>(u"Friends", u"Amis", u"Freunde", u"Amici", u"Amigos");
inline constexpr auto TXT_FOOTER_GAMES = texts<8>(u"Games", u"Jeux", u"Spiele", u"Giochi", u"Juegos");
inline constexpr auto TXT_NO_RECIEPIENTS = texts<64>(u"Please select at least one recipient", u"Sélectionnez au moins un destinataire.", u"Wähle bitte mindestens einen Empfänger.", u"Seleziona almeno un destinatario", u"Por favor, elige al menos un destinatario.");
inline constexpr auto TXT_EMPTY_MESSAGE = texts<64>(u"You cannot send an empty message", u"Vous ne pouvez pas envoyer de message vide.", u"Du kannst die Nachricht nicht leer abschicken.", u"Non puoi inviare il messaggio vuoto", u"No puedes enviar un mensaje vacío.");
inline constexpr auto TXT_DONE = texts<8>(u"Done", u"OK", u"Fertig", u"Fatto", u"Hecho");
inline constexpr auto TXT_BACK = texts<10>(u"Back", u"Retour", u"Zurück", u"Indietro", u"Atrás");
inline constexpr auto TXT_VANTU_CANCEL = texts<16>(u"Cancel", u"Annuler", u"Abbrechen", u"Annulla", u"Cancelar");
inline constexpr auto TXT_INTERACT = texts<16>(u"Interact", u"Interagir", u"Interagieren", u"Azioni", u"Interacción");
inline constexpr auto TXT_EMAIL = texts<32>(u"Email", u"E-mail", u"E-Mail-Adresse", u"E-mail", u"Correo electrónico");
inline constexpr auto TXT_SEND = texts<8>(u"Send", u"Envoyer", u"Senden", u"Invia", u"Enviar");
inline constexpr auto TXT_RECOMMEND_VIA = texts<64>(u"Recommend game via", u"Recommander un jeu via", u"Wähle eine Option", u"Consiglia il gioco agli amici tramite", u"Recomendar juego por");
inline constexpr auto TXT_SEND_MESSAGE = texts<32>(u"Send Message", u"Envoyer message", u"Nachricht abschicken", u"Invia messaggio", u"Enviar mensaje");
inline constexpr auto TXT_NEW_MESSAGE = texts<32>(u"New message", u"Nouveau message", u"Neue Nachricht", u"Nuovo messaggio", u"Mensaje nuevo");
inline constexpr auto TXT_COMPARE_GAMES = texts<32>(u"Compare Games", u"Comparer des jeux", u"Spiele vergleichen", u"Confronta giochi", u"Comparar juegos");
inline constexpr auto TXT_CHALLENGE = texts<32>(u"Invite to play", u"Inviter à jouer", u"Zum Spielen einladen", u"Invita a giocare", u"Invitar a jugar");
inline constexpr auto TXT_DELETE_FRIEND = texts<32>(u"Delete Friend", u"Supprimer ami(e)", u"Freund löschen", u"Cancella amico", u"Borrar amigo");
inline constexpr auto TXT_ADD_FRIEND = texts<32>(u"Add as friend", u"Ajouter comme ami(e)", u"Als Freund hinzufügen", u"Aggiungi amico", u"Añadir como amigo");
inline constexpr auto TXT_EDIT = texts<16>(u"Edit", u"Modifier", u"Bearbeiten", u"Modifica", u"Editar");
inline constexpr auto TXT_RATE = texts<16>(u"Rate", u"Evaluer", u"Bewerten", u"Dai un voto", u"Valorar");
inline constexpr auto TXT_RATE_UP = texts<32>(u"Thumbs up", u"J'aime", u"Gefällt mir", u"Consigliato", u"Positivo");
inline constexpr auto TXT_RATE_DOWN = texts<32>(u"Thumbs down", u"Je n'aime pas", u"Gefällt mir nicht", u"Sconsigliato", u"Negativo");
inline constexpr auto TXT_LOADING = texts<32>(u"Loading...", u"Chargement...", u"Lädt...", u"Caricamento in corso...", u"Cargando...");
inline constexpr auto TXT_CONNECTION_ERROR = texts<32>(u"Connection Error", u"Erreur de connexion", u"Verbindungsfehler", u"Errore di connessione", u"Error de conexión");
inline constexpr auto TXT_SEND_TO = texts<8>(u"To: ", u"À: ", u"An: ", u"A: ", u"Para: ");
inline constexpr auto TXT_SUBJECT = texts<32>(u"Subject: ", u"Objet: ", u"Betreff: ", u"Oggetto: ", u"Asunto: ");

// clang-format on

/// How long the player waits before a way out of picking a friend, or of a load under a composer, is shown, in
/// milliseconds. Shorter in tests.
extern const int K_WAY_OUT_DELAY;

/// After how long one of the companion's own posts is given up, in milliseconds. Shorter in tests.
extern const int K_POST_TIMEOUT;

/// Scheme and host of the service, without a closing slash. This and the links below are the deployment's: each
/// executable takes them from the one that it is linked with.
extern const char K_SERVICE_ROOT[];
/// The file that keeps the login between runs.
extern const char K_LOGIN_FILE[];

// The links of the service.
extern const char K_LINK_LOGIN[256];
extern const char K_LINK_SEND_MESSAGE[256];
extern const char K_LINK_MESSAGE_SENT[256];
extern const char K_LINK_RECOMMEND_EMAIL[256];
extern const char K_LINK_ADD_FRIENDS[256];
extern const char K_LINK_SHOW_INVITE_MAIL[256];
extern const char K_LINK_SHOW_FRIENDS[256];
extern const char K_LINK_MESSAGES_INDEX[256];
extern const char K_LINK_FRIENDS[256];
extern const char K_LINK_GAMES[256];
extern const char K_LINK_INFO[256];
extern const char K_LINK_CHALLENGE[256];
extern const char K_LINK_COMPARE[256];
extern const char K_LINK_DELETE_FRIEND[256];
extern const char K_LINK_ADD_FRIEND[256];
extern const char K_LINK_RATE_FRIEND[256];
extern const char K_LINK_EDIT_ACCOUNT[256];
extern const char K_LINK_NOTIFY_TROPHY[256];
extern const char K_LINK_VANTU_TEMPLATE[512];
extern const char K_LINK_VANTU[256];
extern const char K_LINK_RECOMMEND_TWITTER[256];
extern const char K_LINK_RECOMMEND_FACEBOOK[256];

// Further addresses that the page recognises or builds.
extern const char K_URL_START_PREFIX[];
extern const char K_URL_LOGIN_INDEX_PREFIX[];
extern const char K_URL_LOGIN_DELETED_PREFIX[];
extern const char K_URL_FRIENDS_SLASH[];
extern const char K_URL_FRIENDS_DELETED[];
extern const char K_URL_FRIENDS_PAGE[];
extern const char K_URL_PROFILE_PREFIX[];
extern const char K_URL_GAME_PREFIX[];
extern const char K_URL_RECOMMEND_EMAIL_PREFIX[];
extern const char K_URL_TROPHIES_PREFIX[];
extern const char K_URL_TWITTER_SENT_PREFIX[];
