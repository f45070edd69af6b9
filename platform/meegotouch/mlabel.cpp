// SPDX-License-Identifier: MIT
#include "mlabel.h"

#include "maccessibility.h"
#include "mstyle.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <cmath>
#include <utility>

MLabel::MLabel(QGraphicsItem *parent)
    : MLabel(QString(), parent)
{
}

MLabel::MLabel(const QString &text, QGraphicsItem *parent)
    : MWidget(parent)
    , m_text(text)
    , m_color(MStyle::labelText)
{
}

void MLabel::textChanged()
{
    m_laidOut = false;
    updateGeometry();
    update();
}

void MLabel::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    textChanged();
    MAccessibility::tell(this, QAccessible::NameChanged);
}

void MLabel::setFont(const QFont &font)
{
    MWidget::setFont(font);
    textChanged();
}

void MLabel::setColor(const QColor &color)
{
    m_color = color.isValid() ? color : MStyle::labelText;
    update();
}

void MLabel::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void MLabel::setWordWrap(bool wrap)
{
    m_wordWrap = wrap;
    textChanged();
}

void MLabel::setWordWrapMode(QTextOption::WrapMode mode)
{
    m_wrapMode = mode;
    textChanged();
}

/// The text, as far as it is laid out, in lines of at most @p width, as far as it can be broken; a negative width
/// breaks nothing.
QStringList MLabel::brokenLines(qreal width) const
{
    const QStringList paragraphs = m_text.left(MStyle::laidOutCharacters).split(QLatin1Char('\n'));
    if (!m_wordWrap || width < 0)
        return paragraphs;
    QStringList lines;
    for (const QString &paragraph : paragraphs) {
        QTextLayout layout(paragraph, font());
        QTextOption option;
        option.setWrapMode(m_wrapMode);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            lines.append(paragraph.mid(line.textStart(), line.textLength()));
        }
        layout.endLayout();
    }
    return lines;
}

QStringList MLabel::fittingLines() const
{
    if (m_text.isEmpty())
        return {}; // Without loading its font.
    const QFontMetricsF metrics(font());
    const QRectF area = contentsRect();
    QStringList lines = brokenLines(area.width());
    const int room = qMax(1, int((area.height() + 1) / metrics.lineSpacing()));
    if (lines.size() > room) {
        const QString rest = lines.mid(room - 1).join(QLatin1Char(' ')).simplified();
        lines = lines.mid(0, room - 1);
        lines.append(rest);
    }
    for (QString &line : lines) {
        while (!line.isEmpty() && line.back().isSpace())
            line.chop(1);
        line = metrics.elidedText(line, Qt::ElideRight, area.width());
    }
    return lines;
}

void MLabel::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (!m_laidOut) {
        m_lines = fittingLines();
        m_laidOut = true;
    }
    if (m_lines.isEmpty())
        return;
    painter->setFont(font());
    painter->setPen(m_color);
    const qreal lineHeight = QFontMetricsF(font()).lineSpacing();
    const qreal textHeight = lineHeight * m_lines.size();
    const QRectF area = contentsRect();
    qreal y = area.top();
    if (m_alignment & Qt::AlignVCenter)
        y = qRound(area.center().y() - textHeight / 2);
    const int flags
        = int(m_alignment & Qt::AlignHorizontal_Mask) | Qt::AlignTop | Qt::TextSingleLine | Qt::TextDontClip;
    for (const QString &line : std::as_const(m_lines)) {
        painter->drawText(QRectF(area.left(), y, area.width(), lineHeight), flags, line);
        y += lineHeight;
    }
}

QSizeF MLabel::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MinimumSize || (which == Qt::PreferredSize && !scene()))
        return QSizeF(0, 0);
    if (which != Qt::PreferredSize)
        return MWidget::sizeHint(which, constraint);
    const QFontMetricsF metrics(font());
    const QStringList lines = brokenLines(constraint.width());
    qreal width = constraint.width();
    if (width < 0) {
        for (const QString &line : lines)
            width = qMax(width, std::ceil(metrics.horizontalAdvance(line)));
    }
    return QSizeF(width, std::ceil(lines.size() * metrics.lineSpacing()));
}

bool MLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ContentsRectChange)
        textChanged();
    return MWidget::event(event);
}

void MLabel::changeEvent(QEvent *event)
{
    MWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        textChanged();
    update();
}

void MLabel::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    MWidget::resizeEvent(event);
    m_laidOut = false;
}
