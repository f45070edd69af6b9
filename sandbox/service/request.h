// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Decoded name and value pairs, in the order in which they arrived; a name may come several times.
using Fields = std::vector<std::pair<std::string, std::string>>;

/// A request as the pages see it, already decoded.
struct Request {
    std::string method;
    /// Path without scheme, host and query, decoded.
    std::string path;
    /// Path and query exactly as they arrived.
    std::string target;
    Fields query;
    Fields form;
    /// What the session cookie holds; empty when none came.
    std::string sessionId;
};

/// Decodes %XX, and "+" as a space. A "%" without two hexadecimal digits behind it stands for itself.
std::string decoded(std::string_view text);

/// Reads "name=value&name=value"; names are decoded as well, so "user_id%5B%5D" is "user_id[]".
Fields parsedForm(std::string_view text);

/// The first value of that name; empty when there is none.
std::string value(const Fields &fields, std::string_view name);

/// All values of that name, in order.
std::vector<std::string> values(const Fields &fields, std::string_view name);

/// Splits @p target into path and query of @p request. A target with scheme and host, as a proxy gets it, is taken too.
void setTarget(Request &request, std::string_view target);

/// Whether @p text is well-formed UTF-8 without NUL bytes, at most @p longest characters.
bool isText(const std::string &text, std::size_t longest);

/// @p text in one line that a terminal shows as it stands: quotes, backslashes, controls and what is not UTF-8 are
/// escaped.
std::string printable(const std::string &text);

/// One line that shows @p request: method, target, @p status and the form fields, passwords left out, also one that was
/// not encoded and holds a "&".
std::string logLine(const Request &request, int status);
