// SPDX-License-Identifier: MIT
#pragma once

#include "chromerules.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtTest/qtesttouch.h>
#include <QVariant>

#include <functional>
#include <vector>

class MApplicationWindow;
class MButton;
class MDialog;
class MPopupList;
class PageMembers;
class QGraphicsItem;
class VantuPage;

/// Something that a tour counts on is not there.
struct Failure {
    QString reason;
};

/// The companion is about to end, by whatever cause.
struct Ended { };

/// The numbers on the tabs; 0 for a tab without one.
struct Badges {
    int inbox;
    int friends;
    int games;
};

/// The eyes and hands of a player: looks at the companion's window, taps, drags and types in it, and keeps a picture
/// of each step.
///
/// Mouse, touch and keys enter where the window system's enter, so they take the way that a player's do. Everything
/// waits for what it needs, a few seconds at most, and throws Failure when that does not come, or Ended when the
/// companion ends meanwhile.
class Tour : public QObject {
    Q_OBJECT

public:
    /// @p pictures is a folder that exists, or empty for no pictures. They are numbered on from those already in it.
    Tour(MApplicationWindow &window, VantuPage &page, const QString &pictures);

    /// Waits for the end of the load, expects exactly @p commands in the header and, unless a composer is open, the
    /// page's own title, saves the picture "NN-name.png" of the screen at rest, and prints a line with @p sentence.
    void show(const QString &name, const QString &sentence, const std::vector<Command> &commands);

    /// The companion asks for it by itself.
    void waitForStartPage();
    /// Does @p action and waits until the page at @p path (below the service's root, query included) has loaded.
    void loads(const QString &path, const std::function<void()> &action);
    /// The same for any page that @p isArrived accepts; @p what names it in a complaint.
    void loads(const QString &what, const std::function<bool(const QString &path)> &isArrived,
               const std::function<void()> &action);
    /// Does @p action and waits until a load has failed.
    void failsToLoad(const std::function<void()> &action);
    /// Does @p action and waits until the service has taken one more of the companion's own posts.
    void posts(const std::function<void()> &action);
    /// Does @p action, which is to end the companion, and waits for that.
    void ends(const std::function<void()> &action);

    void tap(Command command);
    void tap(Tab tab);
    void tap(MButton *button);
    /// Taps the message field.
    void tapMessage();
    /// The recipient panel's "+".
    void tapAddRecipient();
    /// Taps the first element of the page that @p selector finds, with a finger that drags it into sight before.
    void tapElement(const QString &selector);
    /// The same with the mouse.
    void clickElement(const QString &selector);
    /// Drags the first element that @p selector finds into sight, as tapElement() does.
    void dragIntoSight(const QString &selector);
    /// The only button of the dialog on display.
    void tapDialogButton();
    /// Taps the row with @p text of the popup list on display.
    void tapRow(const QString &text);
    /// Picks the row with @p text of the popup list on display with the arrow keys and Return.
    void pickRow(const QString &text);

    void type(const QString &text);
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Closes the window as its frame's button does.
    void closeWindow();

    /// Waits for a popup list or dialog to be fully there.
    void waitForDialog();

    QString path() const;
    Badges badges() const;
    /// What @p expression, a script in which "element" is the first one that @p selector finds, is worth; nothing where
    /// there is none.
    QVariant ofElement(const QString &selector, const QString &expression) const;
    /// Text of the first element that @p selector finds, without surrounding blanks.
    QString elementText(const QString &selector) const;
    QString message() const;
    /// The recipients' captions, in the order in which they are read.
    QStringList recipients() const;

    void expect(bool condition, const QString &what) const;
    /// @p condition is asked every few milliseconds and must not throw.
    void waitUntil(const std::function<bool()> &condition, const QString &what);

    /// For a tour that stops: keeps a last picture and says on the error output what failed.
    void reportFailure(const QString &reason);

private:
    std::vector<Command> visibleCommands() const;
    MDialog *dialog() const;
    MPopupList *popupList() const;
    int rowOf(const QString &text) const;

    QPoint windowPosition(const QPointF &scenePosition) const;
    void click(const QGraphicsItem *item);
    void clickAt(const QPointF &scenePosition);
    void drag(const QPointF &from, const QPointF &to);
    void waitUntilDrawn();
    /// Where the element stands on the screen, after it has been dragged there.
    QPointF reveal(const QString &selector);
    /// Where the element stands, in sight or not; an empty rectangle where there is none.
    QRectF sceneRect(const QString &selector) const;
    QImage imageAtRest();
    void act(const std::function<void()> &action);
    QString savePicture(const QString &name, const QImage &image);

    template <typename Member> auto &part(Member member) const;

    MApplicationWindow &m_window;
    VantuPage &m_page;
    const QString m_pictures;
    decltype(QTest::createTouchDevice()) m_finger;
    QString m_step;
    int m_number = 0;
    int m_loads = 0;
    bool m_loadOk = false;
    int m_posts = 0;
    bool m_postOk = false;
};
