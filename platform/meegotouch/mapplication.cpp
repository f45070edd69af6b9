// SPDX-License-Identifier: MIT
#include "mapplication.h"

#include "mdisplay.h"
#include "minputmethodstate.h"
#include "mstyle.h"

#include <QFont>
#include <QProxyStyle>
#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <utility>

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> endingSignals = {SIGTERM, SIGINT, SIGHUP};

// A signal handler may do little more than write a byte; the event loop reads it at the other end.
int signalPipe[2] = {-1, -1};

void onSignal(int)
{
    const int savedErrno = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
    errno = savedErrno;
}

/// The widgets bring their own look; what they leave to Qt (text cursors, the form fields of web pages) must not turn
/// dark or odd with the desktop's theme.
class PlainStyle : public QProxyStyle {
public:
    PlainStyle()
        : QProxyStyle(QStringLiteral("fusion"))
    {
    }

    // A phone's field does not wait for a second tap.
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *answer) const override
    {
        return hint == SH_RequestSoftwareInputPanel ? int(RSIP_OnMouseClick)
                                                    : QProxyStyle::styleHint(hint, option, widget, answer);
    }
};

// These are read while the base class is being constructed.
int &prepared(int &argc)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // The widgets draw without OpenGL. Left to itself, the first window would bring in all of the system's, which takes
    // a third of the time of a start.
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
    return argc;
}

} // namespace

class MApplication::UnixSignals {
public:
    UnixSignals()
    {
        if (pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0)
            return;
        m_notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
            char bytes[16];
            while (read(signalPipe[0], bytes, sizeof bytes) > 0) { }
            // A quit() inside a nested loop that runs before exec() would be forgotten: it is said until it is heard.
            m_again.start(20);
            QCoreApplication::quit();
        });
        QObject::connect(&m_again, &QTimer::timeout, qApp, &QCoreApplication::quit);

        struct sigaction action = {};
        action.sa_handler = onSignal;
        action.sa_flags = SA_RESTART;
        sigemptyset(&action.sa_mask);
        for (size_t i = 0; i < endingSignals.size(); ++i)
            sigaction(endingSignals[i], &action, &m_before[i]);
    }

    ~UnixSignals()
    {
        if (!m_notifier)
            return;
        for (size_t i = 0; i < endingSignals.size(); ++i)
            sigaction(endingSignals[i], &m_before[i], nullptr);
        m_notifier.reset();
        for (int &end : signalPipe)
            close(std::exchange(end, -1));
    }

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_again;
    std::array<struct sigaction, endingSignals.size()> m_before = {};
};

MApplication::MApplication(int &argc, char **argv)
    : MApplication(argc, argv, MDisplay())
{
}

MApplication::MApplication(int &argc, char **argv, const MDisplay &display)
    : QApplication(prepared(argc), argv)
    , m_displayProblem(display.problem())
    , m_unixSignals(std::make_unique<UnixSignals>())
{
    if (!m_displayProblem.isEmpty())
        return;
    setStyle(new PlainStyle);
    setPalette(style()->standardPalette());
    QFont textFont = font();
    // Not as a list of families: every font inherits that, and it would outdo the families that web pages name. Nor by
    // asking which of them there are: that would load every font of the system before the first page is asked for.
    textFont.setFamily(MStyle::fontFamilies().first());
    QFont::insertSubstitutions(MStyle::fontFamilies().first(), MStyle::fontFamilies().mid(1));
    textFont.setPixelSize(MStyle::fontPixelSize);
    setFont(textFont);
}

MApplication::~MApplication() = default;

bool MApplication::notify(QObject *receiver, QEvent *event)
{
    // What takes text in a web page sends this one; the base class answers for Qt's own keyboards, and no receiver ever
    // sees it.
    if (event->type() == QEvent::RequestSoftwareInputPanel)
        MInputMethodState::requestSoftwareInputPanel();
    return QApplication::notify(receiver, event);
}
