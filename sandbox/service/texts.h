// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

/// The languages that the service speaks, in the order of the columns of every table of texts.
enum class Language { English, French, German, Italian, Spanish };

inline constexpr int languageCount = 5;

/// One phrase of the pages in all languages. Templates call it by its key.
struct Phrase {
    const char *key;
    const char *texts[languageCount];
};

extern const std::vector<Phrase> phrases;

/// The language of a code such as "DE", letter case aside; @p otherwise when there is no such language.
Language languageOf(std::string_view code, Language otherwise);

/// The code of a language, for example "SP".
const char *languageCode(Language language);

/// The code in the form of the "lang" attribute of a page, for example "es".
const char *htmlCode(Language language);

/// The phrase of that key with its "%", if any, replaced by @p insert. Throws std::logic_error when there is none.
std::string phrase(std::string_view key, Language language, const std::string &insert = {});

/// A moment as a player reads it: the time alone when it was today, else the day.
std::string dayOrTime(std::time_t moment, Language language);

/// A moment as a player reads it, day and time.
std::string dayAndTime(std::time_t moment, Language language);

/// The beginning of @p text, UTF-8, for one line of a list; a longer text ends between two words.
std::string excerpt(const std::string &text);
