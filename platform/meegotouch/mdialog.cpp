#include "mdialog.h"

#include "mapplicationwindow.h"
#include "mbutton.h"
#include "mstyle.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QKeyEvent>
#include <QPainter>

MDialog::MDialog()
    : MDialog(QString())
{
}

MDialog::MDialog(const QString &title, M::StandardButtons buttons)
    : m_title(title)
{
    // A panel: no event passes through it to what lies beneath, and no focus leaves it.
    setFlag(ItemIsPanel);
    setPanelModality(SceneModal);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptHoverEvents(true);
    setFadeDuration(MStyle::fadeInDuration);
    setVisible(false);

    const auto add = [this](const QString &text, void (MDialog::*answer)()) {
        auto *button = new MButton(text, this);
        connect(button, &MButton::clicked, this, answer);
        m_buttons.append(button);
    };
    if (buttons & M::OkButton)
        add(tr("OK"), &MDialog::accept);
    if (buttons & M::CancelButton)
        add(tr("Cancel"), &MDialog::reject);
}

void MDialog::setTitle(const QString &title)
{
    m_title = title;
    arrange();
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
    const qreal width = qMax(0.0, size().width() - 2 * MStyle::popupMargin);
    const qreal inner = width - 2 * MStyle::popupPadding;
    const qreal title = m_title.isEmpty() ? 0 : MStyle::titleBarHeight;
    const qreal buttons = m_buttons.isEmpty() ? 0 : MStyle::dialogButtonHeight + MStyle::popupSpacing;
    const qreal most = size().height() - 2 * MStyle::popupMargin - title - buttons - 2 * MStyle::popupSpacing;
    qreal middle = 0;
    if (m_centralWidget)
        middle
            = qBound(0.0, m_centralWidget->effectiveSizeHint(Qt::PreferredSize, {inner, -1}).height(), qMax(0.0, most));
    const qreal height = title + middle + buttons + 2 * MStyle::popupSpacing;
    m_box = QRectF(MStyle::popupMargin, qRound((size().height() - height) / 2), width, height);
    const qreal left = m_box.left() + MStyle::popupPadding;
    qreal top = m_box.top() + title + MStyle::popupSpacing;
    if (m_centralWidget) {
        m_centralWidget->setGeometry(QRectF(left, top, inner, middle));
        top += middle + MStyle::popupSpacing;
    }
    const int count = m_buttons.size();
    for (int i = 0; i < count; ++i) {
        const qreal each = (inner - (count - 1) * MStyle::popupSpacing) / count;
        m_buttons[i]->setGeometry(
            QRectF(left + i * (each + MStyle::popupSpacing), top, each, MStyle::dialogButtonHeight));
    }
    update();
}

void MDialog::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->fillRect(rect(), QColor::fromRgba(MStyle::dimColor));
    QLinearGradient glass(m_box.topLeft(), m_box.bottomLeft());
    glass.setColorAt(0, QColor::fromRgba(MStyle::glassTopColor));
    glass.setColorAt(1, QColor::fromRgba(MStyle::glassBottomColor));
    painter->setBrush(glass);
    painter->setPen(QColor::fromRgba(MStyle::glassEdgeColor));
    painter->drawRoundedRect(m_box, MStyle::popupRadius, MStyle::popupRadius);
    if (m_title.isEmpty())
        return;
    QFont titleFont = font();
    titleFont.setPixelSize(MStyle::titlePixelSize);
    painter->setFont(titleFont);
    painter->setPen(QColor::fromRgba(MStyle::titleColor));
    const QRectF bar(m_box.left() + MStyle::popupPadding, m_box.top(), m_box.width() - 2 * MStyle::popupPadding,
                     MStyle::titleBarHeight);
    painter->drawText(bar, Qt::AlignVCenter | Qt::AlignLeft, m_title);
    painter->fillRect(QRectF(m_box.left(), bar.bottom(), m_box.width(), 1), QColor::fromRgba(MStyle::titleLineColor));
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
    if (m_state != State::Open)
        return;
    m_state = State::Finishing;
    done(result);
}

void MDialog::done(int result)
{
    if (m_state == State::Idle)
        return;
    m_state = State::Finishing;
    m_result = result;
    const QPointer<MDialog> self = this;
    dismiss();
    if (!self)
        return;
    m_state = State::Idle;
    emit finished(result);
    if (self)
        result == Rejected ? emit rejected() : emit accepted();
}

void MDialog::entering()
{
    m_state = State::Open;
    m_focusBefore = scene()->focusItem() ? scene()->focusItem()->toGraphicsObject() : nullptr;
    scene()->setActivePanel(this);
    if (!focusItem())
        setFocus();
}

void MDialog::leaving()
{
    finish(Rejected);
}

void MDialog::left()
{
    if (m_focusBefore && m_focusBefore->scene() == scene())
        m_focusBefore->setFocus();
}

void MDialog::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    event->accept();
}

void MDialog::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (m_dismissedByTapOutside && !m_box.contains(event->buttonDownPos(Qt::LeftButton))
        && !m_box.contains(event->pos()))
        reject();
}

void MDialog::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    event->accept();
}

void MDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        reject();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        accept();
}
