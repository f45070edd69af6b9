// SPDX-License-Identifier: MIT
#include "mbutton.h"

#include "maccessibility.h"
#include "mbuttongroup.h"
#include "mfittedfont.h"
#include "mfocusring.h"
#include "mstyle.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFontMetricsF>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QPen>

const QString MButton::defaultType = QStringLiteral("default");
const QString MButton::iconType = QStringLiteral("icon");

MButton::MButton(QGraphicsItem *parent, MButtonModel *)
    : MWidget(parent)
{
    init();
}

MButton::MButton(const QString &text, QGraphicsItem *parent)
    : MWidget(parent)
    , m_text(text)
{
    init();
}

MButton::~MButton()
{
    if (m_group)
        m_group->removeButton(this);
}

void MButton::init()
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setFocusPolicy(Qt::TabFocus);
    QFont textFont = font();
    textFont.setPixelSize(MStyle::buttonTextSize);
    textFont.setBold(true);
    setFont(textFont);
}

MButtonGroup *MButton::group() const
{
    return m_group;
}

void MButton::setDown(bool down)
{
    if (down == m_down)
        return;
    m_down = down;
    update();
}

void MButton::setCheckable(bool checkable)
{
    if (!checkable)
        setChecked(false);
    m_checkable = checkable;
}

void MButton::setChecked(bool checked)
{
    if (!m_checkable || checked == m_checked)
        return;
    m_checked = checked;
    update();
    MAccessibility::tellChecked(this, checked);
    const QPointer<MButton> self(this);
    if (m_checked && m_group)
        m_group->uncheckOthers(this);
    if (self)
        emit toggled(m_checked);
}

void MButton::setViewType(const QString &type)
{
    m_viewType = type;
    update();
}

/// The checked button of an exclusive group cannot be unchecked by the user.
bool MButton::staysChecked() const
{
    return m_checked && m_group;
}

void MButton::press()
{
    setDown(true);
    emit pressed();
}

void MButton::cancelPress()
{
    m_mousePressed = false;
    m_keyPressed = false;
    if (!m_down)
        return;
    setDown(false);
    emit released();
}

void MButton::click()
{
    if (!isEnabled())
        return;
    const QPointer<MButton> self(this);
    m_mousePressed = false;
    m_keyPressed = false;
    setDown(false);
    if (!staysChecked())
        setChecked(!m_checked);
    if (self)
        emit released();
    if (self)
        emit clicked(m_checked);
}

/// Where the button reacts: as large as a thumb if there is room.
QRectF MButton::reactiveArea() const
{
    const qreal across = qMax<qreal>(0, MStyle::reactiveSize - size().width()) / 2;
    const qreal down = qMax<qreal>(0, MStyle::reactiveSize - size().height()) / 2;
    QRectF area = rect().adjusted(-across, -down, across, down);
    if (!m_margin || !parentItem())
        return area;
    const auto siblings = parentItem()->childItems();
    for (QGraphicsItem *item : siblings) {
        const auto *button = dynamic_cast<const MButton *>(item);
        if (!button || button == this || !button->isVisible())
            continue;
        const QRectF other = button->geometry().translated(-pos());
        // Buttons that share a place have no middle between them.
        if (other.left() >= rect().right())
            area.setRight(qMin(area.right(), (rect().right() + other.left()) / 2));
        else if (other.right() <= 0)
            area.setLeft(qMax(area.left(), other.right() / 2));
        else if (other.top() >= rect().bottom())
            area.setBottom(qMin(area.bottom(), (rect().bottom() + other.top()) / 2));
        else if (other.bottom() <= 0)
            area.setTop(qMax(area.top(), other.bottom() / 2));
    }
    return area;
}

/// An item of its own: what is drawn, placed and measured is the button alone.
class MButton::Margin : public QGraphicsItem {
public:
    explicit Margin(MButton *button)
        : QGraphicsItem(button)
        , m_button(button)
    {
        setFlag(ItemStacksBehindParent);
        setFlag(ItemHasNoContents);
        // In a viewport, all of the bounding rectangle would count without this.
        setFlag(ItemClipsToShape);
        setAcceptedMouseButtons(Qt::LeftButton);
    }

    void fit()
    {
        prepareGeometryChange();
        constexpr qreal reach = MStyle::reactiveSize / 2;
        m_bounds = m_button->rect().adjusted(-reach, -reach, reach, reach);
    }

    QRectF boundingRect() const override { return m_bounds; }

    QPainterPath shape() const override
    {
        QPainterPath path;
        path.addRect(m_button->reactiveArea());
        return path;
    }

    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override { }

protected:
    bool sceneEvent(QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::GraphicsSceneMousePress:
        case QEvent::GraphicsSceneMouseDoubleClick:
        case QEvent::GraphicsSceneMouseMove:
        case QEvent::GraphicsSceneMouseRelease:
        case QEvent::UngrabMouse:
            return m_button->sceneEvent(event); // in the same coordinates
        default:
            return QGraphicsItem::sceneEvent(event);
        }
    }

private:
    MButton *m_button;
    QRectF m_bounds;
};

void MButton::fitMargin()
{
    if (size().width() >= MStyle::reactiveSize && size().height() >= MStyle::reactiveSize) {
        delete m_margin;
        m_margin = nullptr;
        return;
    }
    if (!m_margin)
        m_margin = new Margin(this);
    m_margin->fit();
}

void MButton::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    event->accept();
    m_mousePressed = true;
    press();
}

void MButton::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    const bool inside = reactiveArea().contains(event->pos());
    if (!m_mousePressed || inside == m_down)
        return;
    if (inside) {
        press();
    } else {
        setDown(false);
        emit released();
    }
}

void MButton::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (m_mousePressed && m_down && reactiveArea().contains(event->pos()))
        click();
    else
        cancelPress();
}

void MButton::ungrabMouseEvent(QEvent *event)
{
    MWidget::ungrabMouseEvent(event);
    if (m_mousePressed)
        cancelPress();
}

void MButton::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn && event->key() != Qt::Key_Space) {
        MWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    showFocusRing(true);
    if (isReturn) {
        click();
    } else {
        m_keyPressed = true;
        press();
    }
}

void MButton::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space) {
        MWidget::keyReleaseEvent(event);
        return;
    }
    event->accept();
    if (m_keyPressed)
        click();
}

void MButton::focusInEvent(QFocusEvent *event)
{
    MWidget::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (m_hadFocusRing || reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason)
        showFocusRing(true);
}

void MButton::focusOutEvent(QFocusEvent *event)
{
    MWidget::focusOutEvent(event);
    // From another window, or a dialog, the focus comes back to where it was seen.
    m_hadFocusRing = m_focusRing && event->reason() == Qt::ActiveWindowFocusReason;
    showFocusRing(false);
    if (m_keyPressed)
        cancelPress();
}

void MButton::changeEvent(QEvent *event)
{
    MWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        m_fitted = false;
        updateGeometry();
    }
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        cancelPress();
    update();
}

void MButton::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    MWidget::resizeEvent(event);
    m_fitted = false;
    fitMargin();
    if (m_focusRing)
        showFocusRing(true);
}

/// An item of its own, since subclasses that draw themselves know nothing of it.
void MButton::showFocusRing(bool shown)
{
    if (!shown) {
        delete m_focusRing;
        m_focusRing = nullptr;
        return;
    }
    if (!m_focusRing)
        m_focusRing = new MFocusRing(this);
    m_focusRing->surround(rect(), cornerRadius());
}

qreal MButton::cornerRadius() const
{
    return MStyle::buttonRadius;
}

QSizeF MButton::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MinimumSize)
        return QSizeF(0, 0);
    if (which != Qt::PreferredSize)
        return MWidget::sizeHint(which, constraint);
    const qreal textWidth
        = scene() ? QFontMetricsF(font()).horizontalAdvance(m_text.left(MStyle::laidOutCharacters)) : 0;
    return QSizeF(qMax(MStyle::buttonMinimumWidth, textWidth + 2 * MStyle::buttonTextMargin), MStyle::buttonHeight);
}

void MButton::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (!isEnabled())
        painter->setOpacity(painter->opacity() * MStyle::disabledOpacity);
    if (m_viewType != iconType)
        drawFrame(painter);
    drawText(painter);
}

void MButton::drawFrame(QPainter *painter) const
{
    const QRectF frame = rect().adjusted(0.5, 0.5, -0.5, -0.5);
    const bool lit = m_down || m_checked;
    QLinearGradient face(frame.topLeft(), frame.bottomLeft());
    face.setColorAt(0, m_down ? MStyle::buttonDownTop : m_checked ? MStyle::buttonCheckedTop : MStyle::buttonTop);
    face.setColorAt(1,
                    m_down          ? MStyle::buttonDownBottom
                        : m_checked ? MStyle::buttonCheckedBottom
                                    : MStyle::buttonBottom);
    painter->setPen(Qt::NoPen);
    painter->setBrush(face);
    painter->drawRoundedRect(frame, MStyle::buttonRadius, MStyle::buttonRadius);
    // A filled ring: stroking the frame with a pen would take three times as long.
    QPainterPath rim;
    rim.addRoundedRect(rect(), MStyle::buttonRadius + 0.5, MStyle::buttonRadius + 0.5);
    rim.addRoundedRect(rect().adjusted(1, 1, -1, -1), MStyle::buttonRadius - 0.5, MStyle::buttonRadius - 0.5);
    painter->setBrush(lit ? MStyle::buttonLitRim : MStyle::buttonRim);
    painter->drawPath(rim);
    painter->setPen(QPen(m_down ? MStyle::buttonDownGloss : MStyle::buttonGloss, 1));
    painter->drawLine(frame.topLeft() + QPointF(MStyle::buttonRadius, 1),
                      frame.topRight() + QPointF(-MStyle::buttonRadius, 1));
}

void MButton::drawText(QPainter *painter)
{
    const QRectF area = contentsRect().adjusted(MStyle::buttonTextMargin, 0, -MStyle::buttonTextMargin, 0);
    if (!m_fitted) {
        fitText(area.width());
        m_fitted = true;
    }
    painter->setFont(m_fittedFont);
    painter->setPen(MStyle::buttonText);
    painter->drawText(area, Qt::AlignCenter | Qt::TextSingleLine, m_fittedText);
}

void MButton::fitText(qreal width)
{
    const QString text = m_text.left(MStyle::laidOutCharacters);
    m_fittedFont = fittedFont(font(), text, width);
    m_fittedText = QFontMetricsF(m_fittedFont).elidedText(text, Qt::ElideRight, width);
}
