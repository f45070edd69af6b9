// SPDX-License-Identifier: MIT
#include "mdisplay.h"

#include <QGuiApplication>
#include <QStringList>

namespace {

constexpr char platformVariable[] = "QT_QPA_PLATFORM";
const QLatin1String noDisplay("minimal");

QtMessageHandler formerHandler = nullptr;
bool isWaylandPluginMissing = false;

void keepDisplayTroubleBack(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type != QtDebugMsg && type != QtFatalMsg) {
        if (message.startsWith(QLatin1String("Could not find")) && message.contains(QLatin1String("\"wayland\"")))
            isWaylandPluginMissing = true;
        return;
    }
    formerHandler(type, context, message);
}

QByteArray platforms()
{
    // The shell of a phone calls itself a GNOME too. That desktop alone draws no frames around Wayland's windows, and
    // Qt's own look out of place there.
    const QList<QByteArray> desktops = qgetenv("XDG_CURRENT_DESKTOP").toLower().split(':');
    const bool isFramedByX11
        = desktops.contains("gnome") && !desktops.contains("phosh") && !qEnvironmentVariableIsEmpty("DISPLAY");
    const bool isWayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
    return isWayland && !isFramedByX11 ? "wayland;xcb" : "xcb;wayland";
}

} // namespace

MDisplay::MDisplay(int argc, char **argv)
    : m_userPlatform(qgetenv(platformVariable))
{
    isWaylandPluginMissing = false;
    formerHandler = qInstallMessageHandler(keepDisplayTroubleBack);
    const QByteArray wayOut = QByteArray(";") + noDisplay.latin1();
    qputenv(platformVariable, (m_userPlatform.isEmpty() ? platforms() : m_userPlatform) + wayOut);
    if (!m_userPlatform.isEmpty())
        m_wish = QStringLiteral("QT_QPA_PLATFORM=") + QString::fromLocal8Bit(m_userPlatform);

    char **option = nullptr; // the last one counts
    for (int i = 2; i < argc; ++i) {
        if (qstrcmp(argv[i - 1], "-platform") == 0 || qstrcmp(argv[i - 1], "--platform") == 0)
            option = &argv[i];
    }
    if (!option)
        return;
    m_wish = QStringLiteral("-platform ") + QString::fromLocal8Bit(*option);
    m_platformOption = QByteArray(*option) + wayOut;
    *option = m_platformOption.data();
}

MDisplay::~MDisplay()
{
    // Not for the processes that are started from here.
    if (m_userPlatform.isNull())
        qunsetenv(platformVariable);
    else
        qputenv(platformVariable, m_userPlatform);
    qInstallMessageHandler(formerHandler);
}

QString MDisplay::problem() const
{
    if (QGuiApplication::platformName() != noDisplay)
        return QString();
    if (!m_wish.isEmpty())
        return m_wish + QStringLiteral(" opens none");
    const QString wayland = qEnvironmentVariable("WAYLAND_DISPLAY");
    const QString x11 = qEnvironmentVariable("DISPLAY");
    QStringList reasons;
    if (!wayland.isEmpty() && isWaylandPluginMissing)
        reasons << QStringLiteral("Qt's plugin for Wayland (Debian: qtwayland5 or qt6-wayland) is missing");
    else if (!wayland.isEmpty())
        reasons << QStringLiteral("WAYLAND_DISPLAY=%1 does not answer").arg(wayland);
    if (!x11.isEmpty())
        reasons << QStringLiteral("DISPLAY=%1 does not answer").arg(x11);
    return reasons.isEmpty() ? QStringLiteral("neither WAYLAND_DISPLAY nor DISPLAY is set")
                             : reasons.join(QStringLiteral(", "));
}
