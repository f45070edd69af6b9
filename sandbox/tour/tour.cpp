// SPDX-License-Identifier: MIT
#include "tour.h"

#include "addresswidget.h"
#include "globaldefine.h"
#include "mybutton.h"
#include "myqwebview.h"
#include "pagemembers.h"

#include "mapplicationwindow.h"
#include "mbutton.h"
#include "mdialog.h"
#include "mlabel.h"
#include "mpopuplist.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QAbstractItemModel>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QNetworkReply>
#include <QTimer>
#include <QtTest/qtestkeyboard.h>
#include <QtTest/qtestmouse.h>
#include <QtTest/qtesttouch.h>
#include <QWebFrame>
#include <QWebPage>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>
#include <utility>

namespace {

// Milliseconds.
constexpr int patience = 15000;
constexpr int glance = 4;
constexpr int pictureInterval = 60;
constexpr int stillPictures = 3;

constexpr qreal longestDrag = 300; // scene pixels
constexpr int dragSteps = 10;
constexpr int mostDrags = 20;

constexpr const char *commandNames[commandCount]
    = {"back", "info", "quit", "new message", "recommend", "interact", "add", "cancel", "send", "edit"};

QString names(const std::vector<Command> &commands)
{
    QStringList result;
    for (const Command command : commands)
        result << QLatin1String(commandNames[static_cast<std::size_t>(command)]);
    return result.isEmpty() ? QStringLiteral("no command") : result.join(QLatin1String(", "));
}

} // namespace

template <typename Member> auto &Tour::part(Member member) const
{
    return *(m_page.*member);
}

Tour::Tour(MApplicationWindow &window, VantuPage &page, const QString &pictures)
    : m_window(window)
    , m_page(page)
    , m_pictures(pictures)
    , m_finger(QTest::createTouchDevice())
{
    if (!pictures.isEmpty())
        m_number = QDir(pictures).entryList({QStringLiteral("*.png")}).size();
    connect(&part(&PageMembers::webView), &QGraphicsWebView::loadFinished, this, [this](bool ok) {
        ++m_loads;
        m_loadOk = ok;
    });
    connect(&part(&PageMembers::nwAccessMgr), &QNetworkAccessManager::finished, this, [this](QNetworkReply *reply) {
        ++m_posts;
        m_postOk = reply->error() == QNetworkReply::NoError;
    });
}

// What is done and what is seen

void Tour::show(const QString &name, const QString &sentence, const std::vector<Command> &commands)
{
    m_step = name;
    waitUntil([this] { return !part(&PageMembers::progressIndicator).isVisible(); },
              QStringLiteral("the end of a load"));
    expect(visibleCommands() == commands,
           QStringLiteral("the header shows %1 instead of %2").arg(names(visibleCommands()), names(commands)));
    QString line = sentence;
    if (m_page.*(&PageMembers::state) == Normal) {
        const QString title = part(&PageMembers::lblWebTitle).text();
        const QString wanted
            = part(&PageMembers::webView).page()->mainFrame()->evaluateJavaScript(QStringLiteral("sTitle")).toString();
        // A page that came with scripts switched off has not said what its title is.
        expect(wanted.isEmpty() || title == wanted,
               QStringLiteral("the title is \"%1\" instead of \"%2\"").arg(title, wanted));
        const Badges numbers = badges();
        line += QStringLiteral(" [inbox %1, friends %2, games %3]")
                    .arg(numbers.inbox)
                    .arg(numbers.friends)
                    .arg(numbers.games);
    }
    const QString file = m_pictures.isEmpty() ? name : savePicture(name, imageAtRest());
    std::printf("%-24s%s\n", qPrintable(file), qPrintable(line));
    std::fflush(stdout);
}

void Tour::waitForStartPage()
{
    waitUntil([this] { return m_loads > 0 && !part(&PageMembers::progressIndicator).isVisible(); },
              QStringLiteral("the start page"));
    expect(m_loadOk, QStringLiteral("the start page does not load"));
}

void Tour::loads(const QString &path, const std::function<void()> &action)
{
    loads(
        path, [&path](const QString &arrived) { return arrived == path; }, action);
}

void Tour::loads(const QString &what, const std::function<bool(const QString &)> &isArrived,
                 const std::function<void()> &action)
{
    const int before = m_loads;
    action();
    // Some commands load twice in a row: what counts is where the page comes to rest.
    waitUntil(
        [&] {
            return m_loads > before && !part(&PageMembers::progressIndicator).isVisible() && m_loadOk
                && isArrived(path());
        },
        what);
}

void Tour::failsToLoad(const std::function<void()> &action)
{
    const int before = m_loads;
    action();
    waitUntil([&] { return m_loads > before && !part(&PageMembers::progressIndicator).isVisible(); },
              QStringLiteral("the end of a load"));
    expect(!m_loadOk, QStringLiteral("a page came although the service is gone"));
}

void Tour::posts(const std::function<void()> &action)
{
    const int before = m_posts;
    action();
    waitUntil([&] { return m_posts > before; }, QStringLiteral("the service's answer to a post"));
    expect(m_postOk, QStringLiteral("the service refused a post"));
}

void Tour::ends(const std::function<void()> &action)
{
    try {
        action();
        waitUntil([] { return false; }, QStringLiteral("the companion's end"));
    } catch (const Ended &) {
    }
}

void Tour::tap(Command command)
{
    tap(m_page.button(command));
}

void Tour::tap(Tab tab)
{
    tap(m_page.button(tab));
}

void Tour::tap(MButton *button)
{
    click(button);
}

void Tour::tapMessage()
{
    click(&part(&PageMembers::txtMessage));
}

void Tour::tapAddRecipient()
{
    const AddressWidget &panel = part(&PageMembers::addrWidget);
    const auto items = m_window.scene()->items();
    for (const QGraphicsItem *item : items) {
        if (dynamic_cast<const SelectButton *>(item) && panel.isAncestorOf(item)) {
            click(item);
            return;
        }
    }
    throw Failure{QStringLiteral("the recipient panel has no add button")};
}

void Tour::tapElement(const QString &selector)
{
    const QPoint at = windowPosition(reveal(selector));
    QWindow *window = m_window.windowHandle();
    act([&] { QTest::touchEvent(window, m_finger).press(0, at, window); });
    act([&] { QTest::touchEvent(window, m_finger).release(0, at, window); });
}

void Tour::clickElement(const QString &selector)
{
    clickAt(reveal(selector));
}

void Tour::dragIntoSight(const QString &selector)
{
    reveal(selector);
}

void Tour::tapDialogButton()
{
    waitForDialog();
    const auto children = dialog()->childItems();
    const auto button = std::find_if(children.begin(), children.end(),
                                     [](QGraphicsItem *item) { return dynamic_cast<MButton *>(item) != nullptr; });
    if (button == children.end())
        throw Failure{QStringLiteral("the dialog has no button")};
    click(*button);
    waitUntil([this] { return !dialog(); }, QStringLiteral("the dialog's end"));
}

void Tour::tapRow(const QString &text)
{
    const int row = rowOf(text);
    const QRectF rows = popupList()->centralWidget()->sceneBoundingRect();
    const qreal height = rows.height() / popupList()->itemModel()->rowCount();
    clickAt(rows.topLeft() + QPointF(rows.width() / 2, (row + 0.5) * height));
}

void Tour::pickRow(const QString &text)
{
    const int row = rowOf(text);
    for (int i = 0; i <= row; ++i)
        press(Qt::Key_Down);
    expect(popupList()->currentIndex().row() == row, QStringLiteral("the keys do not reach the row ") + text);
    press(Qt::Key_Return);
}

void Tour::type(const QString &text)
{
    QWindow *window = m_window.windowHandle();
    for (const QChar &character : text) {
        if (character == QLatin1Char('\n')) {
            press(Qt::Key_Return);
            continue;
        }
        const auto key = static_cast<Qt::Key>(character.toUpper().unicode());
        act([&] { QTest::sendKeyEvent(QTest::Click, window, key, QString(character), Qt::NoModifier); });
    }
}

void Tour::press(int key, Qt::KeyboardModifiers modifiers)
{
    act([&] { QTest::keyClick(m_window.windowHandle(), static_cast<Qt::Key>(key), modifiers); });
}

void Tour::closeWindow()
{
    act([this] { m_window.close(); });
}

void Tour::waitForDialog()
{
    waitUntil([this] { return dialog() && qFuzzyCompare(dialog()->opacity(), 1.0); }, QStringLiteral("a dialog"));
}

QString Tour::path() const
{
    const QString url = part(&PageMembers::webView).page()->mainFrame()->url().toString();
    const QLatin1String root(K_SERVICE_ROOT);
    return url.startsWith(root) ? url.mid(root.size()) : url;
}

Badges Tour::badges() const
{
    const auto number
        = [this](Tab tab) { return static_cast<const ToggleButton *>(m_page.button(tab))->m_badgeNumber; };
    return {number(Tab::Inbox), number(Tab::Friends), number(Tab::Games)};
}

QVariant Tour::ofElement(const QString &selector, const QString &expression) const
{
    const QString script
        = QStringLiteral("(function(element) { return element && (%1); })(document.querySelector(\"%2\"))");
    return part(&PageMembers::webView)
        .page()
        ->mainFrame()
        ->evaluateJavaScript(
            script.arg(expression, QString(selector).replace(QLatin1Char('"'), QLatin1String("\\\""))));
}

QString Tour::elementText(const QString &selector) const
{
    return ofElement(selector, QStringLiteral("element.innerText")).toString().trimmed();
}

QString Tour::message() const
{
    return part(&PageMembers::txtMessage).text();
}

QStringList Tour::recipients() const
{
    QList<const MButton *> buttons;
    const AddressWidget &panel = part(&PageMembers::addrWidget);
    const auto items = m_window.scene()->items();
    for (const QGraphicsItem *item : items) {
        const auto *button = dynamic_cast<const MButton *>(item);
        if (button && button->isVisible() && panel.isAncestorOf(item) && !button->text().isEmpty())
            buttons << button;
    }
    std::sort(buttons.begin(), buttons.end(), [](const MButton *one, const MButton *other) {
        const QPointF a = one->scenePos();
        const QPointF b = other->scenePos();
        return a.y() < b.y() || (qFuzzyCompare(a.y(), b.y()) && a.x() < b.x());
    });
    QStringList result;
    for (const MButton *button : std::as_const(buttons))
        result << button->text();
    return result;
}

void Tour::expect(bool condition, const QString &what) const
{
    if (!condition)
        throw Failure{what};
}

void Tour::waitUntil(const std::function<bool()> &condition, const QString &what)
{
    if (condition())
        return;
    const QDeadlineTimer deadline(patience);
    bool isOver = false;
    bool isMet = false;
    // One loop for the whole wait: entering another forgets a quit that is on its way.
    QEventLoop loop;
    QTimer clock;
    connect(&clock, &QTimer::timeout, &loop, [&] {
        isMet = condition();
        if (isMet || deadline.hasExpired()) {
            isOver = true;
            loop.quit();
        }
    });
    clock.start(glance);
    loop.exec();
    if (!isOver)
        throw Ended{}; // The application's end ends every loop.
    expect(isMet, QStringLiteral("waiting in vain for ") + what);
}

void Tour::reportFailure(const QString &reason)
{
    QString file;
    if (!m_pictures.isEmpty())
        file = savePicture(QStringLiteral("failed"), m_window.grab().toImage());
    std::fprintf(stderr, "vantu-tour: after the step \"%s\", on %s: %s%s%s\n", qPrintable(m_step),
                 qPrintable(path().section(QLatin1Char('?'), 0, 0)), qPrintable(reason), file.isEmpty() ? "" : "; see ",
                 qPrintable(file));
}

// Eyes

std::vector<Command> Tour::visibleCommands() const
{
    std::vector<Command> result;
    for (std::size_t id = 0; id < commandCount; ++id) {
        const auto command = static_cast<Command>(id);
        if (m_page.button(command)->isVisible())
            result.push_back(command);
    }
    return result;
}

MDialog *Tour::dialog() const
{
    const auto items = m_window.scene()->items();
    for (QGraphicsItem *item : items) {
        auto *found = dynamic_cast<MDialog *>(item);
        if (found && found->isOnDisplay())
            return found;
    }
    return nullptr;
}

MPopupList *Tour::popupList() const
{
    auto *list = qobject_cast<MPopupList *>(dialog());
    return list ? list : throw Failure{QStringLiteral("no popup list is open")};
}

int Tour::rowOf(const QString &text) const
{
    const QAbstractItemModel *model = popupList()->itemModel();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, 0).data().toString() == text)
            return row;
    }
    throw Failure{QStringLiteral("the popup list has no row ") + text};
}

QRectF Tour::sceneRect(const QString &selector) const
{
    const MyQWebView &view = part(&PageMembers::webView);
    const QString sides = QStringLiteral("(function(r) { return [r.left, r.top, r.width, r.height]; })"
                                         "(element.getBoundingClientRect())");
    const QVariantList rect = ofElement(selector, sides).toList();
    const auto pixels = [&](int side) { return rect.value(side).toDouble() * view.zoomFactor(); };
    return view.mapRectToScene(QRectF(pixels(0), pixels(1), pixels(2), pixels(3)));
}

QImage Tour::imageAtRest()
{
    // Tiles of the page arrive one by one, and popups fade in.
    QImage image;
    int alike = 0;
    QDeadlineTimer next(0);
    waitUntil(
        [&] {
            if (!next.hasExpired())
                return false;
            next.setRemainingTime(pictureInterval);
            const QImage now = m_window.grab().toImage();
            alike = now == image ? alike + 1 : 1;
            image = now;
            return alike == stillPictures;
        },
        QStringLiteral("the screen to come to rest"));
    return image;
}

// Hands

QPoint Tour::windowPosition(const QPointF &scenePosition) const
{
    return m_window.viewport()->mapTo(&m_window, m_window.mapFromScene(scenePosition));
}

/// Clicks in the middle of @p item as soon as a player can: a popup that fades out still covers it.
void Tour::click(const QGraphicsItem *item)
{
    const QPointF middle = item->sceneBoundingRect().center();
    waitUntil(
        [&] {
            const QGraphicsItem *found = m_window.scene()->itemAt(middle, m_window.transform());
            return item->isVisible() && item->isEnabled() && (found == item || item->isAncestorOf(found));
        },
        QStringLiteral("what is to be tapped to be seen"));
    clickAt(middle);
}

void Tour::clickAt(const QPointF &scenePosition)
{
    const QPoint at = windowPosition(scenePosition);
    QWindow *window = m_window.windowHandle();
    act([&] { QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, at); });
    act([&] { QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, at); });
}

void Tour::drag(const QPointF &from, const QPointF &to)
{
    QWindow *window = m_window.windowHandle();
    act([&] { QTest::touchEvent(window, m_finger).press(0, windowPosition(from), window); });
    for (int step = 1; step <= dragSteps; ++step) {
        const QPoint at = windowPosition(from + (to - from) * step / dragSteps);
        act([&] { QTest::touchEvent(window, m_finger).move(0, at, window); });
    }
    act([&] { QTest::touchEvent(window, m_finger).release(0, windowPosition(to), window); });
}

/// A page hears no taps before its first picture stands on the screen, which on a slow machine is some time after its
/// load.
void Tour::waitUntilDrawn()
{
    QWebFrame *frame = part(&PageMembers::webView).page()->mainFrame();
    frame->evaluateJavaScript(
        QStringLiteral("var tourFrames = 0;"
                       "(function next() { if (++tourFrames < 3) requestAnimationFrame(next) })()"));
    waitUntil([&] { return frame->evaluateJavaScript(QStringLiteral("tourFrames")).toInt() == 3; },
              QStringLiteral("the page to be drawn"));
}

QPointF Tour::reveal(const QString &selector)
{
    waitUntilDrawn();
    expect(!sceneRect(selector).isEmpty(), QStringLiteral("the page has no ") + selector);
    const QRectF sight = part(&PageMembers::webView).sceneBoundingRect() & m_window.sceneRect();
    for (int i = 0; i < mostDrags; ++i) {
        const QPointF middle = sceneRect(selector).center();
        if (sight.contains(middle))
            return middle;
        const qreal way = qBound(-longestDrag, sight.center().y() - middle.y(), longestDrag);
        drag(sight.center() - QPointF(0, way / 2), sight.center() + QPointF(0, way / 2));
        // It may still coast where the page's end holds it, and would take the next page along.
        const auto *coasting = part(&PageMembers::webView).findChild<QTimer *>();
        waitUntil([&] { return !coasting->isActive(); }, QStringLiteral("the page to stand still"));
    }
    throw Failure{QStringLiteral("dragging does not bring into sight ") + selector};
}

/// From within an event loop of its own, so that what comes of the action is not kept waiting for the tour.
void Tour::act(const std::function<void()> &action)
{
    const auto isDone = std::make_shared<bool>(false);
    const auto done = [isDone] { *isDone = true; };
    QMetaObject::invokeMethod(
        this,
        [this, action, done] {
            action();
            // Behind whatever the action has posted, the application's end above all.
            QMetaObject::invokeMethod(this, done, Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
    waitUntil([&] { return *isDone; }, QStringLiteral("an event to be delivered"));
}

QString Tour::savePicture(const QString &name, const QImage &image)
{
    const QString file = QStringLiteral("%1-%2.png").arg(++m_number, 2, 10, QLatin1Char('0')).arg(name);
    expect(image.save(QDir(m_pictures).filePath(file)), QStringLiteral("cannot save ") + file);
    return file;
}
