// SPDX-License-Identifier: MIT
#include "mybutton.h"

#include "globaldefine.h"
#include "resmanager.h"

#include "mfittedfont.h"

#include <QPainter>

#include <climits>

namespace {

// The tab, in its own pixels.
constexpr int tabWidth = 90;
constexpr QPoint tabCentre(45, 35);
constexpr int tabTextSize = 14;
constexpr int badgeTextHeight = 20;

constexpr qreal captionMargin = 4;
constexpr qreal tabCaptionMargin = 12; // leaves some air on the background, which is narrower than the tab

QFont captionFont(int pixelSize)
{
    QFont font;
    font.setPixelSize(pixelSize);
    font.setWeight(QFont::Bold);
    return font;
}

void setCaptionStyle(QPainter *painter, int pixelSize)
{
    painter->setFont(captionFont(pixelSize));
    painter->setPen(Qt::white);
}

/// Draws @p text in @p area, with narrower letters if it would come closer than @p margin to its sides.
void drawFitted(QPainter *painter, const QRectF &area, qreal margin, int alignment, const QString &text)
{
    const QFont font = painter->font();
    painter->setFont(fittedFont(font, text, area.width() - 2 * margin));
    painter->drawText(area, alignment, text);
    painter->setFont(font);
}

QString commandCaption(int textIdx)
{
    switch (textIdx) {
    case SelectButton::EditCaption:
        return localized(TXT_EDIT);
    case SelectButton::BackCaption:
        return localized(TXT_BACK);
    default:
        return QString();
    }
}

QString tabCaption(int iconIdx)
{
    switch (iconIdx) {
    case FriendsImage:
        return localized(TXT_FOOTER_FRIENDS);
    case GamesImage:
        return localized(TXT_FOOTER_GAMES);
    case HomeImage:
        return localized(TXT_FOOTER_HOME);
    case InboxImage:
        return localized(TXT_FOOTER_INBOX);
    default:
        return QString();
    }
}

/// Draws the image of the size that @p image has, from the finer one where the screen shows more of it.
void drawImage(QPainter *painter, const QPoint &position, int imageIdx, const QImage &image)
{
    if (painter->deviceTransform().m11() > 1)
        painter->drawImage(QRect(position, image.size()), *ResManager::getInstance()->loadFineImage(imageIdx));
    else
        painter->drawImage(position, image);
}

void drawCentred(QPainter *painter, int imageIdx)
{
    if (const QImage *image = ResManager::getInstance()->loadImage(imageIdx))
        drawImage(painter, tabCentre - QPoint(image->width() / 2, image->height() / 2), imageIdx, *image);
}

void drawBadge(QPainter *painter, int number)
{
    const QImage *image = ResManager::getInstance()->loadImage(BadgeImage);
    if (number == 0 || !image)
        return;
    const int badgeWidth = image->width();
    const int badgePosX = tabWidth - badgeWidth;
    drawImage(painter, QPoint(badgePosX, 0), BadgeImage, *image);
    painter->drawText(QRectF(badgePosX, 0, badgeWidth, badgeTextHeight),
                      Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip, QString::number(number));
}

} // namespace

SelectButton::SelectButton(int buttonIdx, int buttonIdxClicked, int textIdx, QGraphicsItem *, MButtonModel *)
    : m_buttonIdx(buttonIdx)
    , m_buttonIdxClicked(buttonIdxClicked)
    , nTextIdx(textIdx)
{
}

void SelectButton::setBackgroundImage(int normalImageIdx, int pressedImageIdx)
{
    m_buttonIdx = normalImageIdx;
    m_buttonIdxClicked = pressedImageIdx;
}

QString SelectButton::shownText() const
{
    return commandCaption(nTextIdx);
}

void SelectButton::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const int imageIdx = isDown() ? m_buttonIdxClicked : m_buttonIdx;
    const QImage *image = ResManager::getInstance()->loadImage(imageIdx);
    if (!image)
        return;
    drawImage(painter, QPoint(0, 0), imageIdx, *image);
    setCaptionStyle(painter, 13);
    drawFitted(painter, image->rect(), captionMargin, Qt::AlignHCenter | Qt::AlignVCenter, commandCaption(nTextIdx));
}

ToggleButton::ToggleButton(int iconIdx, QGraphicsItem *parent, MButtonModel *model)
    : MButton(parent, model)
    , m_iconIdx(iconIdx)
{
    setCheckable(true);
    setViewType(MButton::iconType);
    setAccessibleRole(QAccessible::PageTab);
}

QString ToggleButton::shownText() const
{
    const QString caption = tabCaption(m_iconIdx);
    return m_badgeNumber == 0 ? caption : caption + QLatin1String(", ") + QString::number(m_badgeNumber);
}

/// With room for every number: one that is wider than its badge reaches over the badge's edges, and those of the tab.
QRectF ToggleButton::boundingRect() const
{
    const QImage *badge = ResManager::getInstance()->loadImage(BadgeImage);
    if (!badge)
        return MButton::boundingRect();
    static const qreal widest = QFontMetricsF(captionFont(tabTextSize)).horizontalAdvance(QString::number(INT_MIN));
    const qreal centre = tabWidth - badge->width() / 2.0;
    return MButton::boundingRect() | QRectF(centre - widest / 2, 0, widest, badgeTextHeight);
}

void ToggleButton::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    setCaptionStyle(painter, tabTextSize);
    drawCentred(painter, isDown() || isChecked() ? SelectedImage : UnselectedImage);
    drawCentred(painter, m_iconIdx);
    drawBadge(painter, m_badgeNumber);
    drawFitted(painter, QRectF(QPointF(), size()), tabCaptionMargin, Qt::AlignBottom | Qt::AlignHCenter,
               tabCaption(m_iconIdx));
}
