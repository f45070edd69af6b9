// SPDX-License-Identifier: MIT
#include "pages.h"
#include "pageserver.h"
#include "report.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <cstdlib>
#include <ctime>

namespace {

constexpr int rowsOfPage = 20; // if not said otherwise
constexpr int patience = 30000; // milliseconds
constexpr int settlingTime = 1000; // milliseconds; what a load leaves to timers is over then

/// What has passed since a program was started (milliseconds).
struct Moment {
    double time = 0;
    double work = 0; ///< processor time of all its threads
};

struct Run {
    Moment firstRequest;
    Moment loaded;
    double memory = 0; ///< proportional set size of all its processes in MiB
};

struct Moments {
    Samples time;
    Samples work;

    void append(const Moment &moment)
    {
        time.append(moment.time);
        work.append(moment.work);
    }
};

struct Runs {
    Moments firstRequest;
    Moments loaded;
    Samples memory;

    void append(const Run &run)
    {
        firstRequest.append(run.firstRequest);
        loaded.append(run.loaded);
        memory.append(run.memory);
    }
};

double processorTime(qint64 pid)
{
    clockid_t clock = 0;
    timespec time = {};
    if (clock_getcpuclockid(static_cast<pid_t>(pid), &clock) != 0 || clock_gettime(clock, &time) != 0)
        qFatal("No processor time of process %lld", static_cast<long long>(pid));
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Of the process and all that it has started, in MiB: an engine may have processes of its own.
double proportionalSetSize(const QByteArray &pid)
{
    const auto lines = [&pid](const char *name) {
        QFile file(QLatin1String("/proc/" + pid + name));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("Cannot read %s", qPrintable(file.fileName()));
        return file.readAll().split('\n');
    };
    double size = 0;
    for (const QByteArray &line : lines("/smaps_rollup")) {
        if (line.startsWith("Pss:"))
            size = line.simplified().split(' ').value(1).toDouble() / 1024;
    }
    const QDir tasks(QLatin1String("/proc/" + pid + "/task"));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QByteArray children = lines(("/task/" + task.toLatin1() + "/children").constData()).value(0);
        for (const QByteArray &child : children.simplified().split(' ')) {
            if (!child.isEmpty())
                size += proportionalSetSize(child);
        }
    }
    return size;
}

Run measure(PageServer &server, const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProgram(QCoreApplication::applicationDirPath() + QLatin1Char('/') + program);
    process.setArguments(arguments);
    process.setProcessChannelMode(QProcess::MergedChannels);

    Run run;
    QEventLoop loop;
    QElapsedTimer clock;
    const auto note = [&](const QString &path) {
        const Moment now = {static_cast<double>(clock.nsecsElapsed()) / 1e6, processorTime(process.processId())};
        if (run.firstRequest.time == 0)
            run.firstRequest = now;
        if (path == QLatin1String("/loaded") && run.loaded.time == 0) {
            run.loaded = now;
            QTimer::singleShot(settlingTime, &loop, &QEventLoop::quit);
        }
    };
    const auto connection = QObject::connect(&server, &PageServer::requested, &loop, note);
    QObject::connect(&process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &loop, &QEventLoop::quit);
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    clock.start();
    process.start();
    loop.exec();
    QObject::disconnect(connection);
    if (run.loaded.time == 0 || process.state() != QProcess::Running)
        qFatal("%s loads no page: %s", qPrintable(program), process.readAll().constData());
    run.memory = proportionalSetSize(QByteArray::number(process.processId()));
    process.terminate();
    process.waitForFinished(patience);
    return run;
}

} // namespace

// bench_startup [PAIRS [ROWS]]: starts the companion and the bare web view in turn.
int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const int pairs = argc >= 2 ? std::atoi(argv[1]) : 15;
    PageServer server(listPage(argc >= 3 ? std::atoi(argv[2]) : rowsOfPage));
    qputenv("BENCH_PROXY_PORT", QByteArray::number(server.port()));

    const auto companion = [&] {
        return measure(server, QStringLiteral("bench_companion"), {QStringLiteral("7"), QStringLiteral("0")});
    };
    const auto bare = [&] {
        return measure(server, QStringLiteral("bench_bare"), {QStringLiteral("http://vantu.test/vantu/?lg=EN")});
    };
    // Once for the disk.
    companion();
    bare();
    Runs companions;
    Runs bares;
    for (int pair = 0; pair < pairs; ++pair) {
        // Neither always profits from what the other has left behind.
        if (pair % 2 == 0)
            companions.append(companion());
        bares.append(bare());
        if (pair % 2 != 0)
            companions.append(companion());
    }
    const auto reportMoment
        = [&](const char *measure, const Moments &companion, const Moments &bare, const Budget &budget) {
              report(measure, "ms", companion.time, bare.time, budget);
              report("  of that, processor time", "ms", companion.work, bare.work, {});
          };
    reportMoment("start to the first request", companions.firstRequest, bares.firstRequest, Budgets::firstRequest);
    reportMoment("start to the page's onload", companions.loaded, bares.loaded, Budgets::loaded);
    report("memory (PSS) after the load", "MiB", companions.memory, bares.memory, Budgets::memory);
    return 0;
}
