// SPDX-License-Identifier: MIT
#include "request.h"

#include <algorithm>
#include <cctype>
#include <utf8cpp/utf8.h>

namespace {

bool isSecret(std::string name)
{
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    return name.find("pass") != std::string::npos;
}

// Controls, and what turns the direction of writing or ends a line in its own way.
bool isControl(char32_t c)
{
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

std::string withoutPassword(const std::string &target)
{
    for (std::size_t start = target.find('?'); start != std::string::npos; start = target.find('&', start + 1)) {
        const std::size_t content = target.find('=', start + 1) + 1;
        if (content == 0 || !isSecret(decoded(target.substr(start + 1, content - start - 2))))
            continue;
        // The companion does not encode the password: only the key that follows it tells where it ends.
        const std::size_t next = target.rfind("&remember_me=");
        const bool hasNext = next != std::string::npos && next >= content;
        return target.substr(0, content) + "***"
            + (hasNext ? '&' + withoutPassword('?' + target.substr(next + 1)).substr(1) : "");
    }
    return target;
}

} // namespace

std::string decoded(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && std::isxdigit(static_cast<unsigned char>(text[i + 1]))
            && std::isxdigit(static_cast<unsigned char>(text[i + 2]))) {
            result += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            result += text[i] == '+' ? ' ' : text[i];
        }
    }
    return result;
}

Fields parsedForm(std::string_view text)
{
    Fields fields;
    while (!text.empty()) {
        const std::string_view item = text.substr(0, text.find('&'));
        text.remove_prefix(std::min(text.size(), item.size() + 1));
        const std::size_t equals = std::min(item.find('='), item.size());
        if (!item.empty())
            fields.emplace_back(decoded(item.substr(0, equals)),
                                decoded(item.substr(std::min(equals + 1, item.size()))));
    }
    return fields;
}

std::string value(const Fields &fields, std::string_view name)
{
    const std::vector<std::string> all = values(fields, name);
    return all.empty() ? std::string() : all.front();
}

std::vector<std::string> values(const Fields &fields, std::string_view name)
{
    std::vector<std::string> result;
    for (const auto &[each, content] : fields) {
        if (each == name)
            result.push_back(content);
    }
    return result;
}

void setTarget(Request &request, std::string_view target)
{
    if (const std::size_t scheme = target.find("://"); scheme < target.find_first_of("/?")) {
        target.remove_prefix(scheme + 3);
        target.remove_prefix(std::min(target.find('/'), target.size()));
    }
    request.target = target = target.substr(0, target.find('#'));
    const std::size_t mark = std::min(target.find('?'), target.size());
    std::string path(target.substr(0, mark));
    // In a path a plus sign is a plus sign.
    for (std::size_t i = 0; (i = path.find('+', i)) != std::string::npos; i += 3)
        path.replace(i, 1, "%2B");
    request.path = decoded(path);
    request.query = parsedForm(target.substr(std::min(mark + 1, target.size())));
}

bool isText(const std::string &text, std::size_t longest)
{
    return text.find('\0') == std::string::npos && utf8::is_valid(text.begin(), text.end())
        && static_cast<std::size_t>(utf8::distance(text.begin(), text.end())) <= longest;
}

std::string printable(const std::string &text)
{
    static const char digits[] = "0123456789abcdef";
    // What is no text is shown byte by byte.
    const bool isUtf8 = utf8::is_valid(text.begin(), text.end());
    std::string result;
    for (auto at = text.begin(); at != text.end();) {
        auto start = at;
        const char32_t c = isUtf8 ? utf8::next(at, text.end()) : static_cast<unsigned char>(*at++);
        if (c == '"' || c == '\\')
            result += '\\';
        if (c == '\n')
            result += "\\n";
        else if (isControl(c) || (c >= 0x80 && !isUtf8))
            for (; start != at; ++start)
                result += {'\\', 'x', digits[*start >> 4 & 15], digits[*start & 15]};
        else
            result.append(start, at);
    }
    return result;
}

std::string logLine(const Request &request, int status)
{
    std::string line
        = printable(request.method) + ' ' + printable(withoutPassword(request.target)) + ' ' + std::to_string(status);
    for (const auto &[name, content] : request.form)
        line += ' ' + printable(name) + "=\"" + (isSecret(name) ? "***" : printable(content)) + '"';
    return line;
}
