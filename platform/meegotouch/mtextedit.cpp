#include "mtextedit.h"

#include "minputmethodstate.h"
#include "mwidgetstyle.h"

#include <QEvent>
#include <QGraphicsProxyWidget>
#include <QLineEdit>
#include <QPainter>
#include <QTextEdit>

namespace {

Qt::InputMethodHints hintsFor(M::TextContentType type)
{
    switch (type) {
    case M::NumberContentType:
        return Qt::ImhFormattedNumbersOnly;
    case M::PhoneNumberContentType:
        return Qt::ImhDialableCharactersOnly;
    case M::EmailContentType:
        return Qt::ImhEmailCharactersOnly | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText;
    case M::UrlContentType:
        return Qt::ImhUrlCharactersOnly | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText;
    case M::FreeTextContentType:
        break;
    }
    return Qt::ImhNone;
}

/// Of the field alone, whatever the desktop's theme is.
QPalette fieldPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, MStyle::fieldBackground);
    palette.setColor(QPalette::Base, MStyle::fieldBackground);
    palette.setColor(QPalette::WindowText, MStyle::fieldText);
    palette.setColor(QPalette::Text, MStyle::fieldText);
    palette.setColor(QPalette::Highlight, MStyle::fieldSelection);
    palette.setColor(QPalette::HighlightedText, MStyle::fieldSelectedText);
    return palette;
}

} // namespace

MTextEdit::MTextEdit(MTextEditModel::LineMode mode, const QString &text, QGraphicsItem *parent)
    : MWidget(parent)
    , m_proxy(new QGraphicsProxyWidget(this))
    , m_editor(mode == MTextEditModel::SingleLine ? makeLine() : makeArea())
{
    QFont textFont = m_editor->font();
    textFont.setPixelSize(MStyle::fieldTextSize);
    m_editor->setFont(textFont);
    m_editor->setPalette(fieldPalette());
    m_editor->setMinimumSize(1, 1);
    m_editor->installEventFilter(this);
    m_proxy->setWidget(m_editor);
    setFocusProxy(m_proxy);
    setFocusPolicy(Qt::StrongFocus);
    setText(text);
}

MTextEdit::~MTextEdit()
{
    // The editor goes with its proxy, after this class is gone; it need not tell of its last changes.
    m_editor->removeEventFilter(this);
    m_editor->disconnect(this);
}

QWidget *MTextEdit::makeLine()
{
    m_line = new QLineEdit;
    m_line->setFrame(false);
    connect(m_line, &QLineEdit::textChanged, this, &MTextEdit::textChanged);
    connect(m_line, &QLineEdit::returnPressed, this, &MTextEdit::returnPressed);
    return m_line;
}

QWidget *MTextEdit::makeArea()
{
    m_area = new QTextEdit;
    m_area->setAcceptRichText(false);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setTabChangesFocus(true);
    connect(m_area, &QTextEdit::textChanged, this, &MTextEdit::textChanged);
    return m_area;
}

QString MTextEdit::text() const
{
    return m_line ? m_line->text() : m_area->toPlainText();
}

void MTextEdit::setText(const QString &text)
{
    if (m_line)
        m_line->setText(text);
    else
        m_area->setPlainText(text);
}

void MTextEdit::clear()
{
    setText(QString());
}

void MTextEdit::setContentType(M::TextContentType type)
{
    m_contentType = type;
    const Qt::InputMethodHints multiLine = m_area ? Qt::ImhMultiLine : Qt::ImhNone;
    m_editor->setInputMethodHints(hintsFor(type) | multiLine);
    m_proxy->setInputMethodHints(m_editor->inputMethodHints());
}

Qt::FocusPolicy MTextEdit::focusPolicy() const
{
    return m_proxy->focusPolicy();
}

void MTextEdit::setFocusPolicy(Qt::FocusPolicy policy)
{
    m_editor->setFocusPolicy(policy);
    m_proxy->setFocusPolicy(policy);
    // The edge around the editor leads into it too, but Tab stops here only once.
    MWidget::setFocusPolicy(Qt::FocusPolicy(policy & ~Qt::TabFocus));
    setFlag(ItemIsFocusable, policy != Qt::NoFocus);
}

bool MTextEdit::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_editor) {
        if (event->type() == QEvent::FocusIn)
            MInputMethodState::requestSoftwareInputPanel();
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            update();
    }
    return MWidget::eventFilter(watched, event);
}

QSizeF MTextEdit::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MinimumSize)
        return QSizeF(0, 0);
    if (which == Qt::PreferredSize)
        return QSizeF(MStyle::fieldWidth, m_line ? MStyle::fieldLineHeight : MStyle::fieldMultiLineHeight);
    return MWidget::sizeHint(which, constraint);
}

void MTextEdit::changeEvent(QEvent *event)
{
    MWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        setOpacity(isEnabled() ? 1 : MStyle::disabledOpacity);
}

void MTextEdit::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    MWidget::resizeEvent(event);
    const qreal side = MStyle::fieldMargin;
    const qreal edge = m_line ? 2 : side / 2;
    m_proxy->setGeometry(rect().adjusted(side, edge, -side, -edge));
}

void MTextEdit::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool focused = hasFocus();
    const qreal penWidth = focused ? MStyle::focusRingWidth : 1;
    const qreal inset = penWidth / 2;
    painter->setPen(QPen(focused ? MStyle::accent : MStyle::fieldBorder, penWidth));
    painter->setBrush(MStyle::fieldBackground);
    painter->drawRoundedRect(rect().adjusted(inset, inset, -inset, -inset), MStyle::fieldRadius, MStyle::fieldRadius);
    painter->restore();
}
