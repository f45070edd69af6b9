// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

class Site;

/// What the command line sets.
struct Options {
    std::string host = "127.0.0.1";
    /// 0 takes a free one.
    int port = 8790;
    /// File of the database; empty for one in memory.
    std::string database;
    /// Seconds after which a connection ends, however slowly it speaks.
    int timeLimit = 30;
    /// Print a line for each request.
    bool log = false;
    /// Listen on an address that other machines can reach.
    bool isPublic = false;
};

/// Whether only this machine can reach @p host: a loopback address, or "localhost".
bool isLoopback(const std::string &host);

/// The HTTP side of the service: takes requests from the wire to the site and its replies back. A connection carries
/// one request and has a thread of its own.
class Server {
public:
    Server(Site &site, const Options &options);
    ~Server();

    /// Starts listening; the port in use. Throws std::runtime_error when the address or port cannot be had.
    int start();
    /// Stops listening and returns when the last request that has arrived is answered. Does nothing when not started.
    void stop();

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};
