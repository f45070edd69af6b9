// SPDX-License-Identifier: MIT
#include "server.h"

#include "site.h"

#include <arpa/inet.h>
#include <httplib.h>
#include <iostream>
#include <mutex>
#include <thread>

namespace {

constexpr char sessionCookie[] = "vantu_session";
constexpr std::size_t longestTarget = 4096;
constexpr std::size_t longestBody = 1 << 20;
constexpr std::size_t threadCount = 32;

std::string cookie(const httplib::Request &from)
{
    const std::string header = from.get_header_value("Cookie");
    const std::string start = std::string(sessionCookie) + '=';
    for (std::size_t at = 0; at < header.size();) {
        const std::size_t end = std::min(header.find(';', at), header.size());
        if (header.compare(at, start.size(), start) == 0)
            return header.substr(at + start.size(), end - at - start.size());
        at = std::min(header.find_first_not_of(' ', end + 1), header.size());
    }
    return {};
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
    const bool isChunked = from.has_header("Transfer-Encoding");
    if (!isChunked && !from.has_header("Content-Length"))
        return true;
    std::size_t size = 0;
    std::string body;
    const auto receive = [&size](std::string &target, const char *data, std::size_t length) {
        size += length;
        target.append(data, length);
        return size <= longestBody;
    };
    if (from.is_multipart_form_data()) {
        return reader(
            [&form](const httplib::MultipartFormData &part) {
                form.emplace_back(part.name, "");
                return form.size() <= 10000;
            },
            [&](const char *data, std::size_t length) { return receive(form.back().second, data, length); });
    }
    if (!reader([&](const char *data, std::size_t length) { return receive(body, data, length); }))
        return false;
    form = parsedForm(body);
    return true;
}

void write(const Reply &reply, httplib::Response &to)
{
    to.status = reply.status;
    to.set_header("Cache-Control", "no-store");
    to.set_header("X-Content-Type-Options", "nosniff");
    to.set_header("X-Frame-Options", "DENY");
    if (!reply.sessionId.empty())
        to.set_header("Set-Cookie",
                      std::string(sessionCookie) + '=' + reply.sessionId + "; Path=/vantu; HttpOnly; SameSite=Strict");
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
    {
    }

    void setUp();
    void answer(const Request &request, httplib::Response &to);
    void log(const Request &request, int status);

    Site &site;
    const Options options;
    httplib::Server http;
    std::thread thread;
    std::mutex logMutex;
};

void Server::Private::log(const Request &request, int status)
{
    if (!options.log)
        return;
    const std::lock_guard lock(logMutex);
    std::cout << logLine(request, status) << std::endl;
}

void Server::Private::answer(const Request &request, httplib::Response &to)
{
    const Reply reply = site.answer(request);
    log(request, reply.status);
    write(reply, to);
}

void Server::Private::setUp()
{
    http.new_task_queue = [] { return new httplib::ThreadPool(threadCount); };
    // A kept connection would hold a thread, and could close just when the companion sends a message on it.
    http.set_keep_alive_max_count(1);
    http.set_payload_max_length(longestBody);
    // The library's own choice lets two services share one port without a word.
    http.set_socket_options([](socket_t socket) {
        const int yes = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    http.set_pre_routing_handler([this](const httplib::Request &from, httplib::Response &to) {
        const bool isPost = from.method == "POST";
        if (isPost && from.target.size() <= longestTarget)
            return httplib::Server::HandlerResponse::Unhandled;
        answer(requestFrom(from), to);
        return httplib::Server::HandlerResponse::Handled;
    });
    http.Post(R"([\s\S]*)",
              [this](const httplib::Request &from, httplib::Response &to, const httplib::ContentReader &reader) {
                  Request request = requestFrom(from);
                  if (readForm(from, reader, request.form)) {
                      answer(request, to);
                  } else {
                      Reply reply = plainText("too much");
                      reply.status = 413;
                      log(request, reply.status);
                      write(reply, to);
                  }
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
    m_private->thread.join();
}
