// SPDX-License-Identifier: MIT

// The guided tour: the companion with a player that plays one part of a story by mouse, touch and keys, and keeps a
// picture of each step. Ends with the companion's own status when all went well, with 1 when the story could not be
// played.
//
//     vantu-tour [--part NAME] [--pictures FOLDER] [--proxy HOST:PORT] [--service PID] GAME LANGUAGE [TROPHIES]

#include "commandline.h"
#include "globaldefine.h"
#include "mainwindow.h"
#include "story.h"
#include "tour.h"
#include "vantuwidget.h"

#include "mapplication.h"

#include <QCommandLineParser>
#include <QNetworkProxy>
#include <QTimer>
#include <QUrl>

#include <cstdio>

namespace {

struct Options {
    QString part;
    QString pictures;
    QString proxy;
    qint64 service = 0;
    QStringList companion;
};

[[noreturn]] void refuse(const QString &reason)
{
    std::fprintf(stderr, "vantu-tour: %s\n", qPrintable(reason));
    std::exit(2);
}

Options optionsFrom(const QCoreApplication &application)
{
    const QCommandLineOption part(QStringLiteral("part"),
                                  QStringLiteral("Part to play: ") + Story::parts().join(QStringLiteral(", ")),
                                  QStringLiteral("name"), Story::parts().first());
    const QCommandLineOption pictures(QStringLiteral("pictures"), QStringLiteral("Folder that exists, for pictures"),
                                      QStringLiteral("folder"));
    const QCommandLineOption proxy(QStringLiteral("proxy"), QStringLiteral("Where the service answers as HTTP proxy"),
                                   QStringLiteral("host:port"));
    const QCommandLineOption service(QStringLiteral("service"), QStringLiteral("Process to end in the last part"),
                                     QStringLiteral("pid"));
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.addOptions({part, pictures, proxy, service});
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("game language [trophies]"), QStringLiteral("As for the companion"));
    parser.process(application);
    const Options options{parser.value(part), parser.value(pictures), parser.value(proxy),
                          parser.value(service).toLongLong(), parser.positionalArguments()};
    if (!Story::parts().contains(options.part))
        refuse(QStringLiteral("no part ") + options.part);
    if (options.part == Story::parts().last() && options.service <= 0)
        refuse(QStringLiteral("this part needs --service"));
    if (options.companion.size() < 2 || options.companion.size() > 3)
        refuse(QStringLiteral("GAME LANGUAGE [TROPHIES] expected"));
    return options;
}

void useProxy(const QString &address)
{
    const QUrl url(QStringLiteral("http://") + address);
    if (url.host().isEmpty() || url.port() < 0)
        refuse(QStringLiteral("no proxy: ") + address);
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, url.host(), static_cast<quint16>(url.port())));
}

} // namespace

int main(int argc, char **argv)
{
    MApplication application(argc, argv);
    const Options options = optionsFrom(application);
    if (!options.proxy.isEmpty())
        useProxy(options.proxy);
    // A blinking cursor never comes to rest.
    QApplication::setCursorFlashTime(0);

    g_KVB = toInt(options.companion.at(0).toUtf8().constData());
    g_languageIdx = toLanguage(options.companion.at(1).toUtf8().constData());
    g_trophyIdx = options.companion.size() == 3 ? toMask(options.companion.at(2).toUtf8().constData()) : 0;

    MainWindow window(nullptr);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &window, &MainWindow::on_VantuExit);
    window.showExpanded();
    // One scene pixel a screen pixel, however small the screen is: nobody sees it.
    window.resize(window.sceneSize());

    bool isPlayed = false;
    Tour tour(window, *vantuWidget, options.pictures);
    QTimer::singleShot(0, &tour, [&] {
        try {
            Story::play(tour, options.part, options.service);
            isPlayed = true;
        } catch (const Failure &failure) {
            tour.reportFailure(failure.reason);
        } catch (const Ended &) {
            tour.reportFailure(QStringLiteral("the companion has ended"));
        }
        QCoreApplication::exit();
    });
    const int status = MApplication::exec();
    return isPlayed ? status : 1;
}
