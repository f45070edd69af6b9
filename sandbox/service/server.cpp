// SPDX-License-Identifier: MIT
#include "server.h"

#include "site.h"

#include <arpa/inet.h>
#include <cstdlib>
#include <dirent.h>
#include <httplib.h>
#include <iostream>
#include <map>
#include <memory>
#include <stdexcept>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr char sessionCookie[] = "vantu_session=";
constexpr std::size_t longestTarget = 4096;
constexpr std::size_t longestBody = 1 << 20;
constexpr int longestQueue = 1024;

/// A thread for each connection: however many say nothing, or little at a time, the next one is heard at once.
class ThreadPerConnection : public httplib::TaskQueue {
public:
    // Whether the library wants to know that the task is taken depends on its version.
    using Taken = decltype(std::declval<httplib::TaskQueue>().enqueue({}));

    Taken enqueue(std::function<void()> task) override
    {
        {
            const std::lock_guard lock(m_mutex);
            ++m_running;
        }
        const auto serve = [this, task = std::move(task)] {
            task();
            const std::lock_guard lock(m_mutex);
            --m_running;
            m_ended.notify_all();
        };
        try {
            std::thread(serve).detach();
        } catch (const std::system_error &) {
            // No thread to be had: the next visitor waits for this one.
            serve();
        }
        return Taken(true);
    }
    void shutdown() override
    {
        std::unique_lock lock(m_mutex);
        m_ended.wait(lock, [this] { return m_running == 0; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_ended;
    int m_running = 0;
};

/// Ends connections that take too long. The library's own limits begin anew with each byte, and it keeps its sockets to
/// itself; so they are looked up among the open files of the process, which has no others.
class Watch {
public:
    explicit Watch(std::chrono::seconds limit)
        : m_limit(limit)
        , m_files(opendir("/proc/self/fd"), closedir)
    {
        if (!m_files)
            throw std::runtime_error("cannot read /proc/self/fd");
        m_thread = std::thread([this] { run(); });
    }
    ~Watch()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isOver = true;
            m_woken.notify_all();
        }
        m_thread.join();
    }

    /// From now on nobody is waited for who has not asked yet; answers still go out.
    void hurry()
    {
        const std::lock_guard lock(m_mutex);
        m_isHurried = true;
        m_woken.notify_all();
    }

private:
    using Clock = std::chrono::steady_clock;

    void run()
    {
        std::unique_lock lock(m_mutex);
        while (!m_isOver) {
            look();
            m_woken.wait_for(lock, std::chrono::milliseconds(m_isHurried ? 50 : 1000));
        }
    }

    void look()
    {
        std::map<ino_t, Clock::time_point> open;
        rewinddir(m_files.get());
        while (const dirent *entry = readdir(m_files.get())) {
            const int file = std::atoi(entry->d_name);
            struct stat about { };
            int isListening = 0;
            socklen_t size = sizeof isListening;
            if (file <= STDERR_FILENO || fstat(file, &about) != 0 || !S_ISSOCK(about.st_mode)
                || getsockopt(file, SOL_SOCKET, SO_ACCEPTCONN, &isListening, &size) != 0 || isListening != 0)
                continue;
            const auto known = m_open.find(about.st_ino);
            const Clock::time_point since = known == m_open.end() ? Clock::now() : known->second;
            open[about.st_ino] = since;
            if (m_isHurried)
                ::shutdown(file, SHUT_RD);
            if (Clock::now() - since > m_limit)
                ::shutdown(file, SHUT_RDWR);
        }
        m_open.swap(open);
    }

    const std::chrono::seconds m_limit;
    /// Open all the time, for where no more files can be opened it is needed most. Not every number up to the limit is
    /// looked at instead: some systems allow a thousand million.
    const std::unique_ptr<DIR, int (*)(DIR *)> m_files;
    std::mutex m_mutex;
    std::condition_variable m_woken;
    bool m_isHurried = false;
    bool m_isOver = false;
    /// When a connection was seen first, by its number, which no other gets while it lasts.
    std::map<ino_t, Clock::time_point> m_open;
    std::thread m_thread;
};

std::string cookie(const httplib::Request &from)
{
    const std::string header = "; " + from.get_header_value("Cookie");
    const std::size_t at = header.find(std::string("; ") + sessionCookie);
    const std::size_t start = at + 2 + sizeof sessionCookie - 1;
    return at == std::string::npos ? std::string() : header.substr(start, header.find(';', start) - start);
}

// Whether a page of another service sent it: it could act for a player who happens to be signed in here.
bool isForeign(const httplib::Request &from)
{
    const std::string origin = from.get_header_value("Origin");
    const std::string host = from.get_header_value("Host");
    return !origin.empty() && origin != "http://" + host && origin != "https://" + host;
}

Request requestFrom(const httplib::Request &from)
{
    Request request;
    request.method = from.method;
    request.sessionId = cookie(from);
    setTarget(request, from.target);
    return request;
}

// The body is a form whatever its content type says, or when it says nothing.
bool readForm(const httplib::Request &from, const httplib::ContentReader &reader, Fields &form)
{
    if (!from.has_header("Transfer-Encoding") && !from.has_header("Content-Length"))
        return true;
    std::string body;
    const bool isWhole = reader([&body](const char *data, std::size_t length) {
        body.append(data, length);
        return body.size() <= longestBody;
    });
    form = parsedForm(body);
    return isWhole;
}

Reply refusal(int status, const std::string &reason)
{
    Reply reply = plainText(reason);
    reply.status = status;
    return reply;
}

void write(const Reply &reply, httplib::Response &to)
{
    to.status = reply.status;
    to.set_header("Cache-Control", "no-store");
    to.set_header("X-Content-Type-Options", "nosniff");
    to.set_header("X-Frame-Options", "DENY");
    if (!reply.sessionId.empty())
        to.set_header("Set-Cookie", sessionCookie + reply.sessionId + "; Path=/vantu; HttpOnly; SameSite=Strict");
    if (!reply.location.empty())
        to.set_header("Location", reply.location);
    if (!reply.dropped) {
        to.set_content(reply.body, reply.contentType);
        return;
    }
    to.set_content_provider(
        reply.body.size(), reply.contentType,
        [half = reply.body.substr(0, reply.body.size() / 2)](std::size_t offset, std::size_t, httplib::DataSink &sink) {
            return offset == 0 && sink.write(half.data(), half.size());
        });
}

} // namespace

bool isLoopback(const std::string &host)
{
    in_addr four{};
    in6_addr six{};
    if (inet_pton(AF_INET, host.c_str(), &four) == 1)
        return ntohl(four.s_addr) >> 24 == 127;
    return host == "localhost" || (inet_pton(AF_INET6, host.c_str(), &six) == 1 && IN6_IS_ADDR_LOOPBACK(&six));
}

struct Server::Private {
    Private(Site &theSite, const Options &theOptions)
        : site(theSite)
        , options(theOptions)
        , watch(std::chrono::seconds(theOptions.timeLimit))
    {
    }

    void setUp();
    void finish(const Request &request, const Reply &reply, httplib::Response &to);

    Site &site;
    const Options options;
    httplib::Server http;
    socket_t listener = -1;
    std::thread thread;
    std::mutex logMutex;
    Watch watch;
};

void Server::Private::finish(const Request &request, const Reply &reply, httplib::Response &to)
{
    if (options.log) {
        const std::lock_guard lock(logMutex);
        std::cout << logLine(request, reply.status) << std::endl;
    }
    write(reply, to);
}

void Server::Private::setUp()
{
    http.new_task_queue = [] { return new ThreadPerConnection; };
    // A kept connection could close just when the companion sends a message on it. Five seconds of silence end one
    // anyway.
    http.set_keep_alive_max_count(1);
    http.set_payload_max_length(longestBody);
    // The library's own choice lets two services share one port without a word.
    http.set_socket_options([this](socket_t socket) {
        listener = socket;
        const int yes = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    http.set_pre_routing_handler([this](const httplib::Request &from, httplib::Response &to) {
        const Request request = requestFrom(from);
        if (isForeign(from))
            finish(request, refusal(403, "foreign origin"), to);
        else if (from.target.size() > longestTarget)
            finish(request, refusal(414, "too long an address"), to);
        else if (from.is_multipart_form_data())
            finish(request, refusal(415, "files are not taken"), to);
        else if (from.method == "POST")
            return httplib::Server::HandlerResponse::Unhandled;
        else
            finish(request, site.answer(request), to);
        return httplib::Server::HandlerResponse::Handled;
    });
    http.Post(R"([\s\S]*)",
              [this](const httplib::Request &from, httplib::Response &to, const httplib::ContentReader &reader) {
                  Request request = requestFrom(from);
                  const bool isWhole = readForm(from, reader, request.form);
                  finish(request, isWhole ? site.answer(request) : refusal(413, "too much"), to);
              });
}

Server::Server(Site &site, const Options &options)
    : m_private(std::make_unique<Private>(site, options))
{
    m_private->setUp();
}

Server::~Server()
{
    stop();
}

int Server::start()
{
    httplib::Server &http = m_private->http;
    const Options &options = m_private->options;
    int port = options.port;
    if (port == 0)
        port = http.bind_to_any_port(options.host);
    else if (!http.bind_to_port(options.host, port))
        port = -1;
    if (port < 0)
        throw std::runtime_error("cannot listen on " + options.host + " port " + std::to_string(options.port)
                                 + ": the port is in use or the address is not this machine's");
    // The library lets five wait, and a sixth would come back after a second.
    listen(m_private->listener, longestQueue);
    m_private->thread = std::thread([&http] { http.listen_after_bind(); });
    // Before it runs, the library forgets to stop.
    while (!http.is_running())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return port;
}

void Server::stop()
{
    if (!m_private->thread.joinable())
        return;
    m_private->site.stop();
    m_private->http.stop();
    m_private->watch.hurry();
    m_private->thread.join();
}
