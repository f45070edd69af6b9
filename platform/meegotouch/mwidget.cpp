// SPDX-License-Identifier: MIT
#include "mwidget.h"

#include "maccessibility.h"

#include <QGestureEvent>

class MGestureFilter : public QObject {
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Gesture)
            return false;
        static_cast<MWidget *>(watched)->gestureEvent(static_cast<QGestureEvent *>(event));
        return true;
    }
};

namespace {
Q_GLOBAL_STATIC(MGestureFilter, gestureFilter)
}

MWidget::MWidget(QGraphicsItem *parent)
    : QGraphicsWidget(parent)
{
    installEventFilter(gestureFilter);
}

QVariant MWidget::itemChange(GraphicsItemChange change, const QVariant &value)
{
    // Hidden with the focus, it would hand it on to the next one, which Return then clicks.
    if (change == ItemVisibleChange && !value.toBool() && hasFocus())
        clearFocus();
    if (change == ItemSceneHasChanged)
        updateGeometry();
    else if (change == ItemVisibleHasChanged)
        MAccessibility::tell(this, value.toBool() ? QAccessible::ObjectShow : QAccessible::ObjectHide);
    return QGraphicsWidget::itemChange(change, value);
}

void MWidget::gestureEvent(QGestureEvent *event)
{
    event->ignore();
}

void MWidget::setAccessibleName(const QString &name)
{
    if (name == m_accessibleName)
        return;
    m_accessibleName = name;
    MAccessibility::tell(this, QAccessible::NameChanged);
}
