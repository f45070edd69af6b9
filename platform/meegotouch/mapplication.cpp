// SPDX-License-Identifier: MIT
#include "mapplication.h"

#include "mdisplay.h"
#include "mendwatch.h"
#include "minputmethodstate.h"
#include "mstyle.h"

#include <QFont>
#include <QLibrary>
#include <qpa/qplatformnativeinterface.h>
#include <QProxyStyle>

#include <chrono>

namespace {

/// How long the event loop may take to begin the end that was asked for.
constexpr std::chrono::milliseconds endGrace(5000);

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
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    // The widgets draw without OpenGL. Left to itself, the first window would bring in all of the system's, which takes
    // a third of the time of a start.
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
    return argc;
}

// The libraries are there already, with the platform's plugin: asked for by name, they need not be linked.
int socketOf(const char *resource, const char *library, int version, const char *function)
{
    void *display = QGuiApplication::platformNativeInterface()->nativeResourceForIntegration(resource);
    const auto descriptor = display
        ? reinterpret_cast<int (*)(void *)>(QLibrary::resolve(QLatin1String(library), version, function))
        : nullptr;
    return descriptor ? descriptor(display) : -1;
}

// The connection to the display server, -1 for a platform without one.
int displaySocket()
{
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("xcb"))
        return socketOf("connection", "xcb", 1, "xcb_get_file_descriptor");
    if (platform.startsWith(QLatin1String("wayland")))
        return socketOf("wl_display", "wayland-client", 0, "wl_display_get_fd");
    return -1;
}

} // namespace

MApplication::MApplication(int &argc, char **argv)
    : MApplication(argc, argv, MDisplay(argc, argv))
{
}

MApplication::MApplication(int &argc, char **argv, const MDisplay &display)
    : QApplication(prepared(argc), argv)
    , m_displayProblem(display.problem())
    , m_endWatch(std::make_unique<MEndWatch>(displaySocket(), endGrace))
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

    connect(this, &QCoreApplication::aboutToQuit, this, &MApplication::beginEnd);
}

MApplication::~MApplication() = default;

bool MApplication::notify(QObject *receiver, QEvent *event)
{
    const QEvent::Type type = event->type(); // Who is told may destroy it.
    // What takes text in a web page sends this one; the base class answers for Qt's own keyboards, and no receiver ever
    // sees it.
    if (type == QEvent::RequestSoftwareInputPanel)
        MInputMethodState::requestSoftwareInputPanel();
    // Here and not in the window: gestures are told of a touch before it is.
    if (type == QEvent::TouchBegin)
        MInputMethodState::setFingerDown(true);
    const bool isHandled = QApplication::notify(receiver, event);
    if (type == QEvent::TouchEnd || type == QEvent::TouchCancel)
        MInputMethodState::setFingerDown(false);
    return isHandled;
}

void MApplication::setLastResort(void (*lastResort)())
{
    m_endWatch->setLastResort(lastResort);
}

void MApplication::requestEnd()
{
    if (const auto *application = qobject_cast<MApplication *>(QCoreApplication::instance()))
        application->m_endWatch->request();
}

void MApplication::beginEnd()
{
    if (const auto *application = qobject_cast<MApplication *>(QCoreApplication::instance()))
        application->m_endWatch->standDown();
}
