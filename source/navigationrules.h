// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

/// How the page reads the addresses and texts that the web view arrives at, as functions and tables of plain values.

/// True for two addresses of one scheme, host and port.
bool isSameOrigin(const QUrl &one, const QUrl &other);
/// True for a page of the service: it has the scheme, host and port of the service's root.
bool isServiceUrl(const QUrl &url);
/// True for an address that is not asked for: in clear, while the service itself is only reached encrypted.
bool isRefused(const QUrl &url);

/// True for a page of the external sharing site that cannot be shown with scripts and tiles on.
bool isTwitterUrl(const QString &url);
bool isFacebookUrl(const QString &url);

/// True for the list of friends and its further pages, among which the player goes on choosing.
bool isFriendsListUrl(const QString &url);

/// The page one level above @p url, or an empty string where back means one step in the history.
/// @p game is the game last reported by a page.
QString backTarget(const QString &url, const QString &game);

inline constexpr int errorSentenceCount = 5;
/// The sentences by which the service's error page is recognised, in UTF-8.
extern const char *const errorSentences[errorSentenceCount];

/// A script that gives the text in which an error sentence would be found, form fields included, or nothing where it
/// cannot tell: text in frames is out of its reach.
extern const char *const searchedTextScript;

/// False only if a search of @p text finds none of the sentences for certain: a search takes its time for each, this
/// one look hardly any. Like the search it minds neither case nor accents nor what is invisible inside a word.
bool mayHoldErrorSentence(const QString &text);

inline constexpr int bridgeScriptCount = 15;
/// The scripts that make a loaded page hand over its values, in the order in which they run.
extern const char *const bridgeScripts[bridgeScriptCount];
