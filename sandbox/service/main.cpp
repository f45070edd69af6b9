// SPDX-License-Identifier: MIT
#include "database.h"
#include "pages.h"
#include "server.h"
#include "site.h"

#include <csignal>
#include <getopt.h>
#include <iostream>
#include <pthread.h>

namespace {

constexpr char usage[] = R"(usage: vantu-service [--port N] [--host ADDRESS] [--public] [--database FILE] [--log]

  --port N         port to listen on, 0 for a free one (default 8790)
  --host ADDRESS   address to listen on (default 127.0.0.1)
  --public         allow an address that other machines can reach
  --database FILE  keep everything in FILE (default: in memory, gone at the end)
  --log            print a line for each request
)";

[[noreturn]] void refuse(const std::string &reason)
{
    std::cerr << "vantu-service: " << reason << '\n' << usage;
    std::exit(1);
}

Options optionsFrom(int argc, char *argv[])
{
    const option known[] = {{"port", required_argument, nullptr, 'p'},
                            {"host", required_argument, nullptr, 'h'},
                            {"public", no_argument, nullptr, 'u'},
                            {"database", required_argument, nullptr, 'd'},
                            {"log", no_argument, nullptr, 'l'},
                            {"help", no_argument, nullptr, '?' + 1},
                            {}};
    Options options;
    int choice = 0;
    while ((choice = getopt_long(argc, argv, "", known, nullptr)) != -1) {
        switch (choice) {
        case 'p':
            options.port = numberOf(optarg).value_or(65536);
            if (options.port > 65535)
                refuse("a port is a number from 0 to 65535");
            break;
        case 'h':
            options.host = optarg;
            break;
        case 'u':
            options.isPublic = true;
            break;
        case 'd':
            options.database = optarg;
            break;
        case 'l':
            options.log = true;
            break;
        case '?' + 1:
            std::cout << usage;
            std::exit(0);
        default:
            refuse("unknown option or missing value");
        }
    }
    if (optind < argc)
        refuse(std::string("unexpected argument ") + argv[optind]);
    if (!options.isPublic && !isLoopback(options.host))
        refuse("other machines could reach " + options.host + "; say --public if that is wanted");
    return options;
}

void serve(const Options &options)
{
    // Blocked before any thread starts, so that only the wait below takes them.
    sigset_t endings;
    sigemptyset(&endings);
    sigaddset(&endings, SIGTERM);
    sigaddset(&endings, SIGINT);
    sigaddset(&endings, SIGHUP);
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);

    loadTemplates();
    Database database(options.database);
    Site site(database, options.database.empty());
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
    try {
        serve(optionsFrom(argc, argv));
        return 0;
    } catch (const std::exception &error) {
        std::cerr << "vantu-service: " << error.what() << std::endl;
        return 1;
    }
}
