// SPDX-License-Identifier: MIT
#include "mdialog.h"

#include "maccessibility.h"
#include "mapplicationwindow.h"
#include "mbutton.h"
#include "mstyle.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace {

/// The shadow at its deepest up to the edge of what casts it, from there on ending softly.
QGradient fading(QGradient gradient)
{
    constexpr qreal edge = MStyle::popupRadius / (MStyle::popupRadius + MStyle::glassShadowWidth);
    constexpr int steps = 8;
    for (int i = 0; i <= steps; ++i) {
        const qreal part = qreal(i) / steps;
        QColor colour = MStyle::glassShadow;
        colour.setAlphaF(colour.alphaF() * (1 - part) * (1 - part));
        gradient.setColorAt(edge + (1 - edge) * part, colour);
    }
    return gradient;
}

} // namespace

MDialog::MDialog()
    : MDialog(QString())
{
}

MDialog::MDialog(const QString &title, M::StandardButtons buttons)
    : m_title(title)
    , m_padding(MStyle::popupPadding)
{
    // As a panel it lets no event through to what lies beneath, and has a focus of its own. The window makes the
    // topmost one modal.
    setFlag(ItemIsPanel);
    setFlag(ItemIsFocusable);
    setFadeDuration(MStyle::fadeInDuration);
    setVisible(false);

    if (buttons & M::OkButton)
        addButton(tr("OK"), &MDialog::accept);
    if (buttons & M::CancelButton)
        addButton(tr("Cancel"), &MDialog::reject);
}

void MDialog::addButton(const QString &text, void (MDialog::*answer)())
{
    auto *button = new MButton(text, this);
    connect(button, &MButton::clicked, this, answer);
    m_buttons.append(button);
}

void MDialog::setTitle(const QString &title)
{
    m_title = title;
    arrange();
    MAccessibility::tell(this, QAccessible::NameChanged);
}

void MDialog::setCentralWidget(QGraphicsWidget *widget)
{
    if (widget == m_centralWidget)
        return;
    delete m_centralWidget;
    m_centralWidget = widget;
    if (widget)
        widget->setParentItem(this);
    arrange();
}

void MDialog::setGeometry(const QRectF &rect)
{
    MSceneWindow::setGeometry(rect);
    arrange();
}

void MDialog::arrange()
{
    const MApplicationWindow *window = applicationWindow();
    const qreal available = window ? qMin(window->visibleHeight(), size().height()) : size().height();
    const qreal width = qMax<qreal>(0, size().width() - 2 * MStyle::popupMargin);
    const qreal bar = m_title.isEmpty() ? 0 : MStyle::titleBarHeight;
    const qreal buttons = m_buttons.isEmpty() ? 0 : MStyle::dialogButtonHeight + MStyle::popupPadding;
    const qreal around = bar + buttons + (m_centralWidget ? 2 * m_padding : MStyle::popupPadding);
    qreal middle = 0;
    if (m_centralWidget) {
        const QSizeF wish = m_centralWidget->effectiveSizeHint(Qt::PreferredSize, {width - 2 * m_padding, -1});
        middle = qMin(wish.height(), qMax<qreal>(0, available - 2 * MStyle::popupMargin - around));
    }
    const qreal height = around + middle;
    m_box = QRectF(MStyle::popupMargin, qRound((available - height) / 2), width, height);

    if (m_centralWidget) {
        m_centralWidget->setGeometry(
            QRectF(m_box.left() + m_padding, m_box.top() + bar + m_padding, width - 2 * m_padding, middle));
    }
    qreal left = m_box.left() + MStyle::popupPadding;
    const int count = m_buttons.size();
    for (MButton *button : std::as_const(m_buttons)) {
        const qreal each = (width - 2 * MStyle::popupPadding - (count - 1) * MStyle::popupSpacing) / count;
        const qreal top = m_box.bottom() - MStyle::popupPadding - MStyle::dialogButtonHeight;
        button->setGeometry(QRectF(left, top, each, MStyle::dialogButtonHeight));
        left += each + MStyle::popupSpacing;
    }
    update();
}

void MDialog::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->fillRect(rect(), MStyle::dim);
    paintGlass(painter);
    if (!m_title.isEmpty())
        paintTitle(painter);
}

void MDialog::paintGlass(QPainter *painter) const
{
    paintShadow(painter);
    QLinearGradient glass(m_box.topLeft(), m_box.bottomLeft());
    glass.setColorAt(0, MStyle::glassTop);
    glass.setColorAt(qBound(0.0, MStyle::titleBarHeight / m_box.height(), 0.5), MStyle::glassMiddle);
    glass.setColorAt(1, MStyle::glassBottom);
    QLinearGradient edge(m_box.topLeft(), m_box.bottomLeft());
    edge.setColorAt(0, MStyle::glassEdgeTop);
    edge.setColorAt(1, MStyle::glassEdgeBottom);
    painter->setBrush(glass);
    painter->setPen(QPen(edge, 1));
    painter->drawRoundedRect(m_box.adjusted(0.5, 0.5, -0.5, -0.5), MStyle::popupRadius, MStyle::popupRadius);
}

/// In nine parts, of which the outer eight fade away from the middle one.
void MDialog::paintShadow(QPainter *painter) const
{
    constexpr qreal reach = MStyle::popupRadius + MStyle::glassShadowWidth;
    constexpr qreal inset = MStyle::popupRadius;
    const QRectF middle = m_box.translated(0, MStyle::glassShadowDrop).adjusted(inset, inset, -inset, -inset);
    const qreal columns[] = {middle.left() - reach, middle.left(), middle.right(), middle.right() + reach};
    const qreal rows[] = {middle.top() - reach, middle.top(), middle.bottom(), middle.bottom() + reach};
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false); // Smoothed, the joints would be seen.
    for (int across = -1; across <= 1; ++across) {
        for (int down = -1; down <= 1; ++down) {
            const QPointF from(columns[across < 0 ? 1 : 2], rows[down < 0 ? 1 : 2]);
            const QRectF part(QPointF(columns[across + 1], rows[down + 1]),
                              QPointF(columns[across + 2], rows[down + 2]));
            if (across == 0 && down == 0)
                painter->fillRect(part, MStyle::glassShadow);
            else if (across == 0 || down == 0)
                painter->fillRect(part, fading(QLinearGradient(from, from + reach * QPointF(across, down))));
            else
                painter->fillRect(part, fading(QRadialGradient(from, reach)));
        }
    }
    painter->restore();
}

void MDialog::paintTitle(QPainter *painter) const
{
    QFont titleFont = font();
    titleFont.setPixelSize(MStyle::titleTextSize);
    painter->setFont(titleFont);
    painter->setPen(MStyle::titleText);
    const QRectF bar(m_box.left(), m_box.top(), m_box.width(), MStyle::titleBarHeight);
    const QRectF text = bar.adjusted(MStyle::popupPadding, 0, -MStyle::popupPadding, 0);
    painter->drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(m_title, Qt::ElideRight, int(text.width())));
    painter->fillRect(QRectF(bar.left() + 1, bar.bottom() - 2, bar.width() - 2, 2), MStyle::accent);
}

void MDialog::accept()
{
    finish(Accepted);
}

void MDialog::reject()
{
    finish(Rejected);
}

void MDialog::finish(int result)
{
    if (std::exchange(m_isOpen, false))
        done(result);
}

void MDialog::done(int)
{
    m_isOpen = false;
    dismiss();
}

void MDialog::entering()
{
    m_isOpen = true;
    const QVector<QGraphicsWidget *> fields = tabStops(m_centralWidget);
    if (fields.isEmpty())
        setFocus();
    else
        fields.first()->setFocus(Qt::TabFocusReason); // for any other, an embedded editor would not take it
}

void MDialog::leaving()
{
    finish(Rejected);
}

void MDialog::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    event->accept();
}

void MDialog::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (m_dismissedByTapOutside && !m_box.contains(event->buttonDownPos(event->button()))
        && !m_box.contains(event->pos()))
        reject();
}

void MDialog::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select) && hasAppeared())
        accept(); // Not before it can be read.
}
