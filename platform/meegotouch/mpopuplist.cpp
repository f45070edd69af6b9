// SPDX-License-Identifier: MIT
#include "mpopuplist.h"

#include "maccessibility.h"
#include "mpannableviewport.h"
#include "mstyle.h"

#include <QAbstractItemModel>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

// One item for all rows: a list of thousands costs what is visible of it.
class MPopupList::Rows : public QGraphicsWidget {
public:
    explicit Rows(MPopupList *list)
        : m_list(list)
    {
        setFlag(ItemUsesExtendedStyleOption);
    }

    void setModel(QAbstractItemModel *model)
    {
        if (m_model)
            m_model->disconnect(this);
        m_model = model;
        m_current = -1;
        if (model) {
            connect(model, &QAbstractItemModel::modelReset, this, &Rows::changed);
            connect(model, &QAbstractItemModel::layoutChanged, this, &Rows::changed);
            connect(model, &QAbstractItemModel::rowsInserted, this, &Rows::changed);
            connect(model, &QAbstractItemModel::rowsRemoved, this, &Rows::changed);
            connect(model, &QAbstractItemModel::rowsMoved, this, &Rows::changed);
            connect(model, &QAbstractItemModel::dataChanged, this, &Rows::changed);
            connect(model, &QObject::destroyed, this, &Rows::changed);
        }
        changed();
    }

    QAbstractItemModel *model() const { return m_model; }
    int count() const { return m_model ? m_model->rowCount() : 0; }

    QModelIndex index(int row) const { return row >= 0 && row < count() ? m_model->index(row, 0) : QModelIndex(); }

    QRectF area(int row) const { return {0, row * MStyle::rowHeight, size().width(), MStyle::rowHeight}; }

    int current() const { return m_current; }

    void setCurrent(int row)
    {
        m_current = row;
        update();
    }

    void release()
    {
        m_pressed = -1;
        update();
    }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *) override
    {
        QFont rowFont = font();
        rowFont.setPixelSize(MStyle::popupTextSize);
        painter->setFont(rowFont);
        const int first = qMax(0, int(option->exposedRect.top() / MStyle::rowHeight));
        const int last = qMin(count() - 1, int(option->exposedRect.bottom() / MStyle::rowHeight));
        for (int row = first; row <= last; ++row)
            paintRow(painter, row);
    }

protected:
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint) const override
    {
        if (which == Qt::PreferredSize)
            return QSizeF(qMax<qreal>(0, constraint.width()), count() * MStyle::rowHeight);
        return QGraphicsWidget::sizeHint(which, constraint);
    }

    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        m_pressed = rowAt(event->pos());
        update();
    }

    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override
    {
        if (m_pressed != rowAt(event->pos()))
            release();
    }

    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override
    {
        const int row = m_pressed;
        release();
        if (row >= 0 && row == rowAt(event->pos()))
            m_list->pick(row);
    }

    void ungrabMouseEvent(QEvent *) override { release(); }

private:
    int rowAt(const QPointF &position) const
    {
        const int row = int(position.y() / MStyle::rowHeight);
        return rect().contains(position) && row < count() ? row : -1;
    }

    void paintRow(QPainter *painter, int row) const
    {
        const QRectF area = this->area(row);
        if (row > 0)
            painter->fillRect(QRectF(area.left(), area.top(), area.width(), 1), MStyle::rowLine);
        const QRectF cell = area.adjusted(1, 2, -1, -1);
        if (row == m_pressed) {
            QLinearGradient highlight(cell.topLeft(), cell.bottomLeft());
            highlight.setColorAt(0, MStyle::rowPressedTop);
            highlight.setColorAt(1, MStyle::rowPressedBottom);
            painter->setPen(Qt::NoPen);
            painter->setBrush(highlight);
            painter->drawRoundedRect(cell, MStyle::rowRadius, MStyle::rowRadius);
        } else if (row == m_current) {
            painter->setPen(QPen(MStyle::accent, MStyle::focusRingWidth));
            painter->setBrush(Qt::NoBrush);
            painter->drawRoundedRect(cell.adjusted(1, 1, -1, -1), MStyle::rowRadius, MStyle::rowRadius);
        }
        // In line with the title above.
        const qreal indent = MStyle::popupPadding - MStyle::listPadding;
        const QRectF text = area.adjusted(indent, 0, -indent, 0);
        painter->setPen(MStyle::popupText);
        painter->drawText(
            text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
            painter->fontMetrics().elidedText(index(row).data().toString(), Qt::ElideRight, int(text.width())));
    }

    void changed()
    {
        m_pressed = -1;
        m_current = qMin(m_current, count() - 1);
        updateGeometry();
        update();
        m_list->arrange();
    }

    MPopupList *m_list;
    QPointer<QAbstractItemModel> m_model;
    int m_current = -1;
    int m_pressed = -1;
};

MPopupList::MPopupList()
    : m_viewport(new MPannableViewport)
    , m_rows(new Rows(this))
{
    setDismissedByTapOutside(true);
    setPadding(MStyle::listPadding);
    m_viewport->setWidget(m_rows);
    setCentralWidget(m_viewport);
}

MPopupList::~MPopupList() = default;

void MPopupList::setItemModel(QAbstractItemModel *model)
{
    m_rows->setModel(model);
}

QAbstractItemModel *MPopupList::itemModel() const
{
    return m_rows->model();
}

QModelIndex MPopupList::currentIndex() const
{
    return m_rows->index(m_rows->current());
}

QRectF MPopupList::rowArea(int row) const
{
    return m_rows->mapRectToScene(m_rows->area(row));
}

void MPopupList::entering()
{
    m_rows->setCurrent(-1);
    m_viewport->setPosition(0);
    MDialog::entering();
}

void MPopupList::keyPressEvent(QKeyEvent *event)
{
    const int current = m_rows->current();
    const int last = m_rows->count() - 1;
    switch (event->key()) {
    case Qt::Key_Down:
        moveTo(qMin(current + 1, last));
        break;
    case Qt::Key_Up:
        moveTo(current < 0 ? last : qMax(current - 1, 0));
        break;
    case Qt::Key_Home:
        moveTo(qMin(0, last));
        break;
    case Qt::Key_End:
        moveTo(last);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
        if (hasAppeared())
            pick(current);
        break;
    default:
        MDialog::keyPressEvent(event);
    }
}

void MPopupList::moveTo(int row)
{
    m_rows->setCurrent(row);
    MAccessibility::tellCurrentRow(this, row);
    const QRectF area = m_rows->area(row);
    m_viewport->setPosition(
        qMin(area.top(), qMax(m_viewport->position(), area.bottom() - m_viewport->size().height())));
}

// Out of the way before the handler runs: what it shows or gives the focus to must not meet this list.
void MPopupList::pick(int row)
{
    const QPersistentModelIndex index = m_rows->index(row);
    if (!index.isValid())
        return;
    const QPointer<MPopupList> self = this;
    accept();
    if (self && index.isValid())
        emit clicked(index);
}
