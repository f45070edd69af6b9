// SPDX-License-Identifier: MIT
#pragma once

#include "globaldefine.h"

// clang-format off

/// What screen readers call the controls that show no text of their own, in the languages and the order of the texts.
inline constexpr auto NAME_QUIT = texts<32>(u"Back to the game", u"Retour au jeu", u"Zurück zum Spiel", u"Torna al gioco", u"Volver al juego");
inline constexpr auto NAME_INFO = texts<32>(u"Information", u"Informations", u"Informationen", u"Informazioni", u"Información");
inline constexpr auto NAME_RECOMMEND = texts<32>(u"Recommend game", u"Recommander le jeu", u"Spiel empfehlen", u"Consiglia il gioco", u"Recomendar juego");
inline constexpr auto NAME_ADD_FRIENDS = texts<32>(u"Add friends", u"Ajouter des ami(e)s", u"Freunde hinzufügen", u"Aggiungi amici", u"Añadir amigos");
inline constexpr auto NAME_TRY_AGAIN = texts<32>(u"try again", u"réessayer", u"erneut versuchen", u"riprova", u"reintentar");
inline constexpr auto NAME_MESSAGE = texts<32>(u"Message", u"Message", u"Nachricht", u"Messaggio", u"Mensaje");
inline constexpr auto NAME_ADD_RECIPIENT = texts<32>(u"Add recipient", u"Ajouter un destinataire", u"Empfänger hinzufügen", u"Aggiungi destinatario", u"Añadir destinatario");
/// %1 is the recipient.
inline constexpr auto NAME_REMOVE_RECIPIENT = texts<32>(u"Remove %1", u"Retirer %1", u"%1 entfernen", u"Rimuovi %1", u"Quitar a %1");

// clang-format on
