// SPDX-License-Identifier: MIT
#include "request.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

namespace {

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const int lower = std::tolower(static_cast<unsigned char>(c));
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool isSecret(std::string name)
{
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    return name.find("pass") != std::string::npos;
}

// Length of the UTF-8 sequence at the start of @p text, 0 when it is malformed, overlong or a surrogate.
std::size_t sequenceLength(std::string_view text)
{
    const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return 0;
    std::uint32_t code = lead & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (byte(i) & 0x3F);
    }
    const bool overlong = code < (length == 2 ? 0x80U : length == 3 ? 0x800U : 0x10000U);
    return overlong || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF) ? 0 : length;
}

// Log lines stay lines, and text stays text, whatever a visitor sent.
std::string printable(const std::string &text)
{
    static const char digits[] = "0123456789abcdef";
    const bool isUtf8 = isText(text, text.size());
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            result += {'\\', c};
        else if (c == '\n')
            result += "\\n";
        else if (byte < 0x20 || byte == 0x7F || (byte >= 0x80 && !isUtf8))
            result += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
        else
            result += c;
    }
    return result;
}

} // namespace

std::string decoded(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape
            = text[i] == '%' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 && hexDigit(text[i + 2]) >= 0;
        if (escape) {
            result += static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]));
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
        if (item.empty())
            continue;
        const std::size_t equals = std::min(item.find('='), item.size());
        const std::string_view content = equals < item.size() ? item.substr(equals + 1) : std::string_view();
        fields.emplace_back(decoded(item.substr(0, equals)), decoded(content));
    }
    return fields;
}

std::string value(const Fields &fields, std::string_view name)
{
    const auto field
        = std::find_if(fields.begin(), fields.end(), [name](const auto &each) { return each.first == name; });
    return field == fields.end() ? std::string() : field->second;
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

void setTarget(Request &request, const std::string &target)
{
    std::string_view rest = target;
    if (const std::size_t scheme = rest.find("://");
        scheme != std::string_view::npos && scheme < rest.find_first_of("/?")) {
        rest.remove_prefix(scheme + 3);
        rest.remove_prefix(std::min(rest.find('/'), rest.size()));
    }
    rest = rest.substr(0, rest.find('#'));
    request.target = rest;
    const std::size_t mark = std::min(rest.find('?'), rest.size());
    std::string path(rest.substr(0, mark));
    // In a path a plus sign is a plus sign.
    for (std::size_t i = 0; (i = path.find('+', i)) != std::string::npos; i += 3)
        path.replace(i, 1, "%2B");
    request.path = decoded(path);
    request.query = parsedForm(mark < rest.size() ? rest.substr(mark + 1) : std::string_view());
}

bool isText(const std::string &text, std::size_t longest)
{
    if (text.size() > longest || text.find('\0') != std::string::npos)
        return false;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = sequenceLength(std::string_view(text).substr(i));
        if (length == 0)
            return false;
        i += length;
    }
    return true;
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

std::string logLine(const Request &request, int status)
{
    std::string line = request.method + ' ' + printable(withoutPassword(request.target)) + ' ' + std::to_string(status);
    for (const auto &[name, content] : request.form)
        line += ' ' + printable(name) + "=\"" + (isSecret(name) ? "***" : printable(content)) + '"';
    return line;
}
