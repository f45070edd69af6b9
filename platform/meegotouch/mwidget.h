// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QGraphicsWidget>

class QGestureEvent;

/// The base of every widget: a graphics widget that hears of gestures and has a name for assistive programs.
///
/// Gestures that the widget grabbed reach gestureEvent() on a way of their own, so that a subclass may do with its
/// event() whatever it likes.
class MWidget : public QGraphicsWidget {
    Q_OBJECT

public:
    explicit MWidget(QGraphicsItem *parent = nullptr);

    /// What assistive programs call it: the name that was set, or else what it shows of itself; empty if neither.
    QString accessibleName() const { return m_accessibleName.isEmpty() ? shownText() : m_accessibleName; }
    void setAccessibleName(const QString &name);

    /// What it is for assistive programs; NoRole, the default, leaves that to its class.
    QAccessible::Role accessibleRole() const { return m_accessibleRole; }
    void setAccessibleRole(QAccessible::Role role) { m_accessibleRole = role; }

protected:
    /// Called with the gestures that were grabbed with grabGesture(), started on this widget or on one of its
    /// children. This implementation ignores them all, which leaves them to whoever lies beneath.
    virtual void gestureEvent(QGestureEvent *event);

    /// The text that the widget shows, if that names it.
    virtual QString shownText() const { return QString(); }

    /// Lets a widget that enters a scene be measured anew: outside of any, text is not measured, so that what is built
    /// before it is shown loads no font. Tells assistive programs of what appears and goes.
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    friend class MGestureFilter;

    QString m_accessibleName;
    QAccessible::Role m_accessibleRole = QAccessible::NoRole;
};
