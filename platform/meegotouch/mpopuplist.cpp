#include "mpopuplist.h"

#include "mstyle.h"

#include <QAbstractItemModel>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPainter>

class MPopupList::Rows : public QGraphicsWidget {
public:
    explicit Rows(MPopupList *list)
        : m_list(list)
    {
    }

    void setModel(QAbstractItemModel *model)
    {
        if (m_model)
            m_model->disconnect(this);
        m_model = model;
        m_current = m_pressed = -1;
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
    QModelIndex index(int row) const
    {
        return m_model && row >= 0 && row < count() ? m_model->index(row, 0) : QModelIndex();
    }
    int current() const { return m_current; }

    void setCurrent(int row)
    {
        m_current = row < 0 ? -1 : qMin(row, count() - 1);
        update();
    }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        for (int row = 0; row < count(); ++row) {
            const QRectF area(0, row * MStyle::rowHeight, size().width(), MStyle::rowHeight);
            if (row == m_pressed)
                painter->fillRect(area, QColor::fromRgba(MStyle::rowPressedColor));
            else if (row == m_current)
                painter->fillRect(area, QColor::fromRgba(MStyle::rowCurrentColor));
            if (row > 0)
                painter->fillRect(QRectF(area.left(), area.top(), area.width(), 1),
                                  QColor::fromRgba(MStyle::rowLineColor));
            painter->setPen(QColor::fromRgba(row == m_pressed ? MStyle::rowPressedTextColor : MStyle::popupTextColor));
            const QRectF text = area.adjusted(MStyle::popupPadding, 0, -MStyle::popupPadding, 0);
            const QString shown = index(row).data().toString();
            painter->drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                              painter->fontMetrics().elidedText(shown, Qt::ElideRight, int(text.width())));
        }
    }

protected:
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint) const override
    {
        const QSizeF size = QGraphicsWidget::sizeHint(which, constraint);
        return which == Qt::PreferredSize ? QSizeF(constraint.width(), count() * MStyle::rowHeight) : size;
    }

    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        m_pressed = rowAt(event->pos());
        update();
    }

    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override
    {
        if (m_pressed != rowAt(event->pos())) {
            m_pressed = -1;
            update();
        }
    }

    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override
    {
        const int row = std::exchange(m_pressed, -1);
        update();
        if (row >= 0 && row == rowAt(event->pos()))
            m_list->pick(row);
    }

private:
    int rowAt(const QPointF &position) const
    {
        return rect().contains(position) ? qMin(int(position.y() / MStyle::rowHeight), count() - 1) : -1;
    }

    void changed()
    {
        m_pressed = -1;
        m_current = qMin(m_current, count() - 1);
        updateGeometry();
        update();
        m_list->setGeometry(m_list->geometry());
    }

    MPopupList *m_list;
    QPointer<QAbstractItemModel> m_model;
    int m_current = -1;
    int m_pressed = -1;
};

MPopupList::MPopupList()
    : m_rows(new Rows(this))
{
    setDismissedByTapOutside(true);
    setCentralWidget(m_rows);
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

void MPopupList::entering()
{
    m_rows->setCurrent(-1);
    MDialog::entering();
}

void MPopupList::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Down:
        m_rows->setCurrent(m_rows->current() + 1);
        break;
    case Qt::Key_Up:
        m_rows->setCurrent(m_rows->current() < 0 ? m_rows->count() - 1 : qMax(0, m_rows->current() - 1));
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        pick(m_rows->current());
        break;
    default:
        MDialog::keyPressEvent(event);
    }
}

void MPopupList::pick(int row)
{
    const QPersistentModelIndex index = m_rows->index(row);
    if (!index.isValid())
        return;
    const QPointer<MPopupList> self = this;
    accept();
    if (self)
        emit clicked(index);
}
