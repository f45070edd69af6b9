// SPDX-License-Identifier: MIT
#include "addresswidget.h"
#include "bareview.h"
#include "globaldefine.h"
#include "mybutton.h"
#include "myqwebview.h"
#include "pages.h"
#include "pageserver.h"
#include "report.h"
#include "testpage.h"

#include "mapplication.h"
#include "mapplicationwindow.h"
#include "mbutton.h"
#include "mpopuplist.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QNetworkProxy>
#include <QPainter>
#include <QStringListModel>
#include <QStyleOptionGraphicsItem>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <utility>

namespace {

constexpr int rowsOfPage = 20;
constexpr int rowsOfLongPage = 200;
constexpr int loads = 30;
constexpr int dragSteps = 300;
constexpr int dragStepsOfShortPage = 30; // its end is not far
constexpr int dragDistance = 24; // pixels a step: a brisk finger
constexpr int frameTime = 16; // milliseconds
constexpr int paintSamples = 50;
constexpr int paintsPerSample = 200;
constexpr int patience = 120000; // milliseconds; 20,000 rows take their time

double milliseconds(const QElapsedTimer &clock)
{
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

/// Processor time of this thread: other programs on the machine do not count.
double threadMilliseconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

template <typename View> void load(View &view, const QString &path)
{
    QEventLoop loop;
    bool loaded = false;
    QObject::connect(&view, &View::loadFinished, &loop, [&](bool ok) {
        loaded = ok;
        loop.quit();
    });
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    view.setUrl(QUrl(QLatin1String(K_SERVICE_ROOT) + path));
    loop.exec();
    if (!loaded)
        qFatal("%s does not load", qPrintable(path));
}

/// Times the companion's whole work at the end of each of several loads: the search for the service's error sentences,
/// the fifteen scripts, each time on a window object that is new, and the chrome.
Samples timeLoadEnds(TestPage &page, int loads)
{
    Samples samples;
    const auto unhook = [&page] {
        QObject::disconnect(page.webView, &QGraphicsWebView::loadFinished, &page, &VantuPage::on_pageLoadFinished);
    };
    unhook();
    const auto connection = QObject::connect(page.webView, &QGraphicsWebView::loadFinished, [&](bool ok) {
        const double before = threadMilliseconds();
        page.on_pageLoadFinished(ok);
        samples.append(threadMilliseconds() - before);
        unhook(); // The page hooks itself up again.
    });
    for (int i = 0; i < loads; ++i)
        load(*page.webView, QStringLiteral("/vantu/friends/index/%1").arg(i));
    QObject::disconnect(connection);
    QObject::connect(page.webView, &QGraphicsWebView::loadFinished, &page, &VantuPage::on_pageLoadFinished);
    return samples;
}

/// Tells when something else stands on the screen: in the middle of the page, away from what fades at its edge.
class ScreenWatch : public QObject {
public:
    explicit ScreenWatch(QWidget &window)
        : m_window(window)
        , m_seen(look())
    {
        window.installEventFilter(this);
    }

    /// Milliseconds of @p clock at the end of the painting that changed the picture.
    double waitForChange(const QElapsedTimer &clock)
    {
        while (clock.elapsed() < patience) {
            m_isPainted = false;
            QCoreApplication::processEvents();
            if (!m_isPainted)
                continue;
            const double time = milliseconds(clock);
            const QImage before = std::exchange(m_seen, look());
            if (m_seen != before)
                return time;
        }
        qFatal("%s does not follow", m_window.metaObject()->className());
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        // On hearing this, the window paints all that has changed.
        m_isPainted = m_isPainted || event->type() == QEvent::UpdateRequest;
        return false;
    }

private:
    QImage look() const { return m_window.grab(QRect(60, 300, 200, 40)).toImage(); }

    QWidget &m_window;
    QImage m_seen;
    bool m_isPainted = false;
};

void sendMouse(QWidget *viewport, QEvent::Type type, const QPoint &position)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, position, viewport->mapToGlobal(position), button, buttons, Qt::NoModifier);
    // Without a time of its own, a press on a page that has changed would be the second of a double tap.
    static QElapsedTimer clock;
    if (!clock.isValid())
        clock.start();
    event.setTimestamp(static_cast<ulong>(clock.elapsed()));
    QCoreApplication::sendEvent(viewport, &event);
}

struct Drag {
    Samples untilDrawn; ///< from the mouse event to the end of the painting
    Samples work; ///< processor time of the frame, with what the step leaves to timers, such as new tiles
};

/// Drags the page upwards in one long stroke, so that each step brings new rows onto the screen. The mouse is
/// @p receiver's.
Drag drag(QWidget &window, QWidget *receiver, int steps)
{
    Drag result;
    QPoint finger(240, 650);
    sendMouse(receiver, QEvent::MouseButtonPress, finger);
    finger.ry() -= 40; // Past the threshold of a drag.
    sendMouse(receiver, QEvent::MouseMove, finger);
    QTest::qWait(500);
    ScreenWatch screen(window);
    for (int step = 0; step < steps; ++step) {
        const double workBefore = threadMilliseconds();
        QElapsedTimer clock;
        clock.start();
        finger.ry() -= dragDistance;
        sendMouse(receiver, QEvent::MouseMove, finger);
        result.untilDrawn.append(screen.waitForChange(clock));
        QEventLoop rest;
        QTimer::singleShot(static_cast<int>(std::max<qint64>(1, frameTime - clock.elapsed())), Qt::PreciseTimer, &rest,
                           &QEventLoop::quit);
        rest.exec();
        result.work.append(threadMilliseconds() - workBefore);
    }
    sendMouse(receiver, QEvent::MouseButtonRelease, finger);
    return result;
}

/// Times single paintings of @p item in microseconds, the way the window paints it.
Samples timePainting(QGraphicsWidget &item)
{
    QImage canvas(480, 120, QImage::Format_RGB32);
    canvas.fill(Qt::black);
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(100, 20);
    QStyleOptionGraphicsItem option;
    Samples samples;
    for (int sample = 0; sample < paintSamples; ++sample) {
        const double before = threadMilliseconds();
        for (int i = 0; i < paintsPerSample; ++i)
            item.paint(&painter, &option, nullptr);
        samples.append((threadMilliseconds() - before) * 1000 / paintsPerSample);
    }
    return samples;
}

/// The samples of the item that takes longest.
Samples timeSlowest(const QList<QGraphicsWidget *> &items)
{
    Samples slowest;
    for (QGraphicsWidget *item : items) {
        const Samples samples = timePainting(*item);
        if (slowest.isEmpty() || median(samples) > median(slowest))
            slowest = samples;
    }
    return slowest;
}

/// Shows @p window with one scene pixel a screen pixel, also where the screen is smaller.
void show(QWidget &window)
{
    window.resize(480, 814);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        qFatal("The window does not appear");
}

struct Drags {
    Drag companion;
    Drag bare;
};

/// What the companion does with the page that a server of this process answers with.
class Bench {
public:
    Bench()
    {
        QNetworkProxy::setApplicationProxy(
            QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), m_server.port()));
        show(m_window);
        page.appear(&m_window, MSceneWindow::KeepWhenDone);
    }

    Drags dragPage(int rows, int steps)
    {
        m_server.setPage(listPage(rows));
        Drags drags;
        {
            BareWindow window;
            show(window);
            load(window, QStringLiteral("/vantu/friends/index"));
            drags.bare = drag(window, window.viewport(), steps);
        }
        load(*page.webView, QStringLiteral("/vantu/friends/index"));
        drags.companion = drag(m_window, m_window.viewport(), steps);
        return drags;
    }

    Samples endLoads(int rows, int loads)
    {
        m_server.setPage(listPage(rows));
        return timeLoadEnds(page, loads);
    }

    /// From the call to the end of the painting, processor time.
    template <typename Function> Samples timeUntilDrawn(int times, Function function)
    {
        Samples samples;
        for (int i = 0; i < times; ++i) {
            const double before = threadMilliseconds();
            function(i);
            m_window.viewport()->repaint();
            samples.append(threadMilliseconds() - before);
        }
        return samples;
    }

    TestPage page;

private:
    PageServer m_server{listPage(rowsOfPage)};
    MApplicationWindow m_window;
};

void measure(Bench &bench)
{
    const Drags drags = bench.dragPage(rowsOfLongPage, dragSteps);
    report("drag step on a 200-row page, until drawn", "ms", drags.companion.untilDrawn, drags.bare.untilDrawn,
           Budgets::dragStep);
    report("drag step on a 200-row page, all its work", "ms", drags.companion.work, drags.bare.work, {});
    report("load end of a 200-row page", "ms", bench.endLoads(rowsOfLongPage, loads), {}, Budgets::loadEnd);
    report("load end of a 20-row page", "ms", bench.endLoads(rowsOfPage, loads), {}, {});

    TestPage &page = bench.page;
    for (ToggleButton *tab : {page.btnHome, page.btnInbox, page.btnFriend, page.btnGame})
        tab->m_badgeNumber = 12;
    report("painting a header button", "us",
           timeSlowest({page.btnBack, page.btnInfo, page.btnQuit, page.btnNewMessage, page.btnRecommend,
                        page.btnInteract, page.btnAdd, page.btnCancel, page.btnSend, page.btnEdit}),
           {}, Budgets::painting);
    report("painting a tab", "us", timeSlowest({page.btnHome, page.btnInbox, page.btnFriend, page.btnGame}), {},
           Budgets::painting);
}

/// How the costs grow with what is shown: rows of a page, recipients, rows of a popup.
void measureGrowth(Bench &bench)
{
    const auto row = [](const char *measure, int count, const Samples &companion, const Samples &bare) {
        report(QByteArray(measure).append(' ').append(QByteArray::number(count)).constData(), "ms", companion, bare,
               {});
    };
    for (const int rows : {20, 200, 2000, 20000}) {
        const Drags drags = bench.dragPage(rows, dragStepsOfShortPage);
        row("drag step, rows", rows, drags.companion.work, drags.bare.work);
        row("load end, rows", rows, bench.endLoads(rows, rows > 2000 ? 3 : 10), {});
    }
    TestPage &page = bench.page;
    page.openSendMessagePage();
    int recipients = 0;
    for (const int count : {1, 10, 100, 1000}) {
        const Samples samples = bench.timeUntilDrawn(count - recipients, [&](int) {
            const QString name = QString::number(++recipients);
            page.addrWidget->addNewUIDAddress(name, name);
        });
        row("one more recipient, of", count, samples.mid(samples.size() * 9 / 10), {});
    }
    for (const int rows : {4, 400}) {
        QStringListModel model;
        QStringList texts;
        for (int i = 0; i < rows; ++i)
            texts.append(QStringLiteral("Row number %1").arg(i));
        model.setStringList(texts);
        row("popup that opens, rows", rows,
            bench.timeUntilDrawn(10,
                                 [&](int) {
                                     MPopupList list;
                                     list.setItemModel(&model);
                                     list.appear(MSceneWindow::KeepWhenDone);
                                 }),
            {});
    }
}

} // namespace

// bench_page [growth]: what the companion does with a loaded page, or how that grows.
int main(int argc, char **argv)
{
    MApplication application(argc, argv);
    Bench bench;
    if (argc == 2 && qstrcmp(argv[1], "growth") == 0)
        measureGrowth(bench);
    else
        measure(bench);
    return 0;
}
