// SPDX-License-Identifier: MIT
#include "sessions.h"

#include "secrets.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr std::size_t mostSessions = 10000;
constexpr std::chrono::hours longestPause{24};

} // namespace

bool Session::operator==(const Session &other) const
{
    const auto values = [](const Session &session) {
        return std::tie(session.player, session.language, session.game, session.loginToken, session.notice);
    };
    return values(*this) == values(other);
}

std::optional<Session> Sessions::find(const std::string &id)
{
    const std::lock_guard lock(m_mutex);
    const auto entry = m_entries.find(id);
    if (entry == m_entries.end())
        return std::nullopt;
    entry->second.lastUse = std::chrono::steady_clock::now();
    return entry->second.session;
}

std::string Sessions::create(const Session &session)
{
    const std::lock_guard lock(m_mutex);
    const std::string id = randomToken();
    m_entries[id] = {session, std::chrono::steady_clock::now()};
    if (m_entries.size() > mostSessions)
        dropStale();
    return id;
}

void Sessions::update(const std::string &id, const Session &session)
{
    const std::lock_guard lock(m_mutex);
    if (const auto entry = m_entries.find(id); entry != m_entries.end())
        entry->second.session = session;
}

void Sessions::remove(const std::string &id)
{
    const std::lock_guard lock(m_mutex);
    m_entries.erase(id);
}

void Sessions::removeOthers(const std::string &player, const std::string &id)
{
    const std::lock_guard lock(m_mutex);
    for (auto entry = m_entries.begin(); entry != m_entries.end();) {
        const bool other = entry->second.session.player == player && entry->first != id;
        entry = other ? m_entries.erase(entry) : std::next(entry);
    }
}

// When none is stale, the one unused for the longest goes.
void Sessions::dropStale()
{
    const auto limit = std::chrono::steady_clock::now() - longestPause;
    for (auto entry = m_entries.begin(); entry != m_entries.end();)
        entry = entry->second.lastUse < limit ? m_entries.erase(entry) : std::next(entry);
    if (m_entries.size() > mostSessions) {
        m_entries.erase(std::min_element(m_entries.begin(), m_entries.end(), [](const auto &a, const auto &b) {
            return a.second.lastUse < b.second.lastUse;
        }));
    }
}
