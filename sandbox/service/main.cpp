// SPDX-License-Identifier: MIT
#include "page.h"
#include "server.h"
#include "site.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <iostream>
#include <pthread.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void addOptions(CLI::App &line, Options &options)
{
    line.add_option("--port", options.port, "Port to listen on, 0 for a free one")
        ->check(CLI::Range(0, 65535))
        ->capture_default_str();
    line.add_option("--host", options.host, "Address to listen on")->type_name("ADDRESS")->capture_default_str();
    line.add_flag("--public", options.isPublic,
                  "Allow an address that other machines can reach: anybody there can then write in anybody's name");
    line.add_option("--database", options.database, "Keep everything in this file (else in memory, gone at the end)")
        ->type_name("FILE");
    line.add_option("--time-limit", options.timeLimit, "Seconds that a connection may take")
        ->check(CLI::Range(1, 86400))
        ->capture_default_str();
    line.add_flag("--log", options.log, "Print a line for each request, passwords left out");
    line.footer("Sign in as emma / emma123 or luca / luca123. SIGTERM, SIGINT and SIGHUP end it.");
    line.callback([&line, &options] {
        if (line.count("--database") > 0 && options.database.empty())
            throw CLI::ValidationError("--database", "a file name is needed");
        if (!options.isPublic && !isLoopback(options.host))
            throw CLI::ValidationError(
                "--host", "other machines could reach " + options.host + "; say --public if that is wanted");
    });
}

// What whoever started this one has open is not the service's, which ends connections by looking at its own files.
void closeInheritedFiles()
{
    close_range(STDERR_FILENO + 1, ~0U, 0);
}

// A thousand idle connections are a thousand open files.
void allowManyConnections()
{
    rlimit files{};
    getrlimit(RLIMIT_NOFILE, &files);
    files.rlim_cur = std::min<rlim_t>(files.rlim_max, 4096);
    setrlimit(RLIMIT_NOFILE, &files);
}

void serve(const Options &options)
{
    // Blocked before any thread starts, so that only the wait below takes them.
    sigset_t endings;
    sigemptyset(&endings);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&endings, signal);
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);
    closeInheritedFiles();
    allowManyConnections();
    umask(S_IRWXG | S_IRWXO);

    loadTemplates();
    Site site(options.database);
    Server server(site, options);
    const int port = server.start();
    const bool isSix = options.host.find(':') != std::string::npos;
    std::cout << "listening on http://" << (isSix ? '[' + options.host + ']' : options.host) << ':' << port
              << std::endl;
    int ending = 0;
    sigwait(&endings, &ending);
    server.stop();
}

} // namespace

int main(int argc, char *argv[])
{
    Options options;
    CLI::App line("A complete local Vantu service, to try out the companion with.", "vantu-service");
    addOptions(line, options);
    try {
        line.parse(argc, argv);
        serve(options);
        return 0;
    } catch (const CLI::ParseError &error) {
        return line.exit(error) == 0 ? 0 : 1;
    } catch (const std::exception &error) {
        std::cerr << "vantu-service: " << error.what() << std::endl;
        return 1;
    }
}
