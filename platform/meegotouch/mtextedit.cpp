// SPDX-License-Identifier: MIT
#include "mtextedit.h"

#include "mapplicationwindow.h"
#include "minputmethodstate.h"
#include "mpopuplist.h"
#include "mpositionbar.h"
#include "mstyle.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QStringListModel>
#include <QTextDocument>
#include <QTextEdit>
#include <QTranslator>
#include <QValidator>

namespace {

Qt::InputMethodHints hintsFor(M::TextContentType type)
{
    return type == M::EmailContentType ? Qt::ImhEmailCharactersOnly | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText
                                       : Qt::ImhNone;
}

/// Of the field alone, whatever the desktop's theme is.
QPalette fieldPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, MStyle::fieldFace);
    palette.setColor(QPalette::Base, MStyle::fieldFace);
    palette.setColor(QPalette::WindowText, MStyle::fieldText);
    palette.setColor(QPalette::Text, MStyle::fieldText);
    palette.setColor(QPalette::Highlight, MStyle::fieldSelection);
    palette.setColor(QPalette::HighlightedText, MStyle::fieldSelectedText);
    return palette;
}

/// Qt's own words for what its editors offer, in the language of the locale. Only now: a start has no time for it.
void loadEditorWords()
{
    static QTranslator *words = nullptr;
    if (words && words->property("locale").toLocale() == QLocale())
        return;
    delete words;
    words = new QTranslator(qApp);
    words->setProperty("locale", QLocale());
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QString folder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
    if (words->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(words);
}

/// Lets everything pass, but makes spaces of the line breaks that a paste may bring.
class OneLine : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString &input, int &) const override
    {
        input.replace(QLatin1String("\r\n"), QLatin1String(" "));
        for (QChar &character : input) {
            if (character == QLatin1Char('\n') || character == QLatin1Char('\r') || character == QChar::LineSeparator
                || character == QChar::ParagraphSeparator)
                character = QLatin1Char(' ');
        }
        return Acceptable;
    }
};

} // namespace

MTextEdit::MTextEdit(MTextEditModel::LineMode mode, const QString &text, QGraphicsItem *parent)
    : MWidget(parent)
    , m_mode(mode)
    , m_proxy(new QGraphicsProxyWidget(this))
    , m_bar(new MPositionBar(this))
    , m_tracker(this)
{
    setFocusProxy(m_proxy);
    setFocusPolicy(Qt::StrongFocus);
    setFiltersChildEvents(true);
    setText(text);
    if (scene() && isVisible()) // by its parent
        makeEditor();
}

MTextEdit::~MTextEdit()
{
    if (!m_editor)
        return;
    // The editor goes with its proxy, after this class is gone; it need not tell of its last changes.
    m_editor->removeEventFilter(this);
    m_editor->disconnect(this);
    if (m_area)
        m_area->verticalScrollBar()->disconnect(this);
}

void MTextEdit::makeEditor()
{
    if (m_editor)
        return;
    m_editor = m_mode == MTextEditModel::SingleLine ? makeLine() : makeArea();
    QFont textFont = m_editor->font();
    textFont.setPixelSize(MStyle::fontPixelSize);
    m_editor->setFont(textFont);
    m_editor->setPalette(fieldPalette());
    m_editor->setMinimumSize(1, 1);
    m_editor->setFocusPolicy(focusPolicy());
    m_editor->installEventFilter(this);
    // A proxy passes the focus, and what input methods write, to the widget in it that had the focus last.
    m_editor->setFocus();
    m_proxy->setWidget(m_editor);
    if (m_proxy->hasFocus()) { // since before there was anybody to tell
        QFocusEvent focusIn(QEvent::FocusIn, Qt::OtherFocusReason);
        scene()->sendEvent(m_proxy, &focusIn);
    }
    if (!rect().isEmpty()) // else the editor would scroll in the little that it gets
        placeEditor();
    setContentType(m_contentType);
}

QWidget *MTextEdit::makeLine()
{
    m_line = new QLineEdit;
    m_line->setFrame(false);
    m_line->setValidator(new OneLine(m_line));
    m_line->setTextMargins(int(MStyle::fieldPadding), 0, int(MStyle::fieldPadding), 0);
    connect(m_line, &QLineEdit::textChanged, this, &MTextEdit::textChanged);
    connect(m_line, &QLineEdit::cursorPositionChanged, this, [this] { updateMicroFocus(); });
    connect(m_line, &QLineEdit::returnPressed, this, &MTextEdit::returnPressed);
    return m_line;
}

QWidget *MTextEdit::makeArea()
{
    m_area = new QTextEdit;
    m_area->setAcceptRichText(false);
    m_area->document()->setDocumentMargin(MStyle::fieldPadding);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setTabChangesFocus(true);
    connect(m_area, &QTextEdit::textChanged, this, &MTextEdit::textChanged);
    connect(m_area, &QTextEdit::cursorPositionChanged, this, [this] { updateMicroFocus(); });
    connect(m_area->verticalScrollBar(), &QScrollBar::valueChanged, this, &MTextEdit::showPosition);
    return m_area;
}

QString MTextEdit::text() const
{
    if (!m_editor)
        return QString();
    return m_line ? m_line->text() : m_area->toPlainText();
}

void MTextEdit::setText(const QString &text)
{
    if (!m_editor && text.isEmpty())
        return;
    makeEditor();
    m_tracker.stop();
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
    if (!m_editor)
        return;
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
    if (m_editor)
        m_editor->setFocusPolicy(policy);
    m_proxy->setFocusPolicy(policy);
    // The edge around the editor leads into it too, but Tab stops here only once.
    MWidget::setFocusPolicy(Qt::FocusPolicy(policy & ~Qt::TabFocus));
    setFlag(ItemIsFocusable, policy != Qt::NoFocus);
}

bool MTextEdit::event(QEvent *event)
{
    if (m_area && event->type() == QEvent::ScrollPrepare) {
        const QScrollBar *bar = m_area->verticalScrollBar();
        auto *prepare = static_cast<QScrollPrepareEvent *>(event);
        prepare->setViewportSize(m_proxy->size());
        prepare->setContentPosRange(QRectF(0, 0, 0, bar->maximum()));
        prepare->setContentPos(QPointF(0, bar->value()));
        prepare->setAccepted(bar->maximum() > 0);
        return true;
    }
    if (m_area && event->type() == QEvent::Scroll) {
        m_area->verticalScrollBar()->setValue(qRound(static_cast<QScrollEvent *>(event)->contentPos().y()));
        return true;
    }
    return MWidget::event(event);
}

bool MTextEdit::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_editor) {
        // A tap on the field also asks for a keyboard that was put away.
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonRelease)
            MInputMethodState::requestSoftwareInputPanel();
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            update();
        // Qt 6 keeps releases for itself, and asks for the keyboard at each.
        if (m_line && event->type() == QEvent::KeyRelease) {
            event->ignore();
            return true;
        }
    }
    return MWidget::eventFilter(watched, event);
}

/// A finger pans a long text, where a mouse selects: the editor hears of a finger's press only once it has turned out
/// to be a tap.
bool MTextEdit::sceneEventFilter(QGraphicsItem *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseDoubleClick: // the press of a finger that pans once more
        return holdBackPress(static_cast<QGraphicsSceneMouseEvent *>(event));
    case QEvent::GraphicsSceneMouseMove:
        if (!m_tracker.isTracking())
            return false;
        if (m_tracker.move(static_cast<QGraphicsSceneMouseEvent *>(event)->scenePos()))
            m_panned = true;
        return true;
    case QEvent::GraphicsSceneMouseRelease:
        if (!m_tracker.isTracking())
            return false;
        m_tracker.release();
        if (!m_panned)
            deliverPress(watched, *static_cast<QGraphicsSceneMouseEvent *>(event));
        return m_panned;
    case QEvent::UngrabMouse:
        m_tracker.release();
        return false;
    case QEvent::GraphicsSceneContextMenu:
        showMenu();
        return true;
    default:
        return MWidget::sceneEventFilter(watched, event);
    }
}

bool MTextEdit::holdBackPress(QGraphicsSceneMouseEvent *event)
{
    const bool canPan = m_area && m_area->verticalScrollBar()->maximum() > 0;
    if (!canPan || event->button() != Qt::LeftButton || event->source() == Qt::MouseEventNotSynthesized)
        return false;
    m_panned = m_tracker.press(event->scenePos());
    m_heldBack = event->type();
    event->accept();
    return true;
}

/// Delivers the press that was held back, right before its @p release.
void MTextEdit::deliverPress(QGraphicsItem *editor, const QGraphicsSceneMouseEvent &release)
{
    QGraphicsSceneMouseEvent press(m_heldBack);
    press.setWidget(release.widget());
    press.setPos(release.pos());
    press.setScenePos(release.scenePos());
    press.setScreenPos(release.screenPos());
    press.setButton(release.button());
    press.setButtons(release.button());
    press.setModifiers(release.modifiers());
    scene()->sendEvent(editor, &press);
}

/// The editor's own menu opens inside the scene, cut off at the edge of the window, and the focus does not come back
/// from it: what it offers now goes into a list of the platform's.
void MTextEdit::showMenu()
{
    loadEditorWords();
    QMenu *menu = m_line ? m_line->createStandardContextMenu() : m_area->createStandardContextMenu();
    QVector<QPointer<QAction>> offered;
    QStringList texts;
    const auto actions = menu->actions();
    for (QAction *action : actions) {
        if (!action->isEnabled() || action->isSeparator() || action->menu())
            continue;
        offered.append(action);
        // Without the key in the second column and the underlined letter.
        texts.append(action->text().section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&')));
    }
    auto *list = new MPopupList;
    list->setAccessibleName(accessibleName());
    list->setItemModel(new QStringListModel(texts, list));
    connect(list, &QObject::destroyed, menu, &QObject::deleteLater);
    connect(list, &MPopupList::clicked, list, [offered](const QModelIndex &row) {
        if (QAction *action = offered.at(row.row()))
            action->trigger();
    });
    // Where nothing is offered there is nothing to show: the list goes again.
    list->appear(texts.isEmpty() ? nullptr : qobject_cast<MApplicationWindow *>(scene()->views().value(0)),
                 MSceneWindow::DestroyWhenDone);
}

QVariant MTextEdit::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if ((change == ItemVisibleHasChanged || change == ItemSceneHasChanged) && scene() && isVisible())
        makeEditor();
    // The editor has it, on the field's behalf.
    if (change == ItemVisibleChange && !value.toBool() && hasFocus())
        m_proxy->clearFocus();
    return MWidget::itemChange(change, value);
}

void MTextEdit::showPosition()
{
    const QScrollBar *bar = m_area->verticalScrollBar();
    m_bar->show(m_proxy->geometry(), m_proxy->size().height() + bar->maximum(), bar->value());
}

QSizeF MTextEdit::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MinimumSize)
        return QSizeF(0, 0);
    if (which == Qt::PreferredSize)
        return QSizeF(MStyle::fieldWidth,
                      m_mode == MTextEditModel::SingleLine ? MStyle::fieldHeight : MStyle::fieldMultiLineHeight);
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
    placeEditor();
}

void MTextEdit::placeEditor()
{
    // The editor is a plain rectangle: it has to keep off the round corners.
    constexpr qreal inset = MStyle::fieldInset;
    m_proxy->setGeometry(rect().adjusted(inset, inset, -inset, -inset));
}

void MTextEdit::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const bool focused = hasFocus();
    const qreal penWidth = focused ? MStyle::focusRingWidth : 1;
    const qreal inset = penWidth / 2;
    painter->setPen(QPen(focused ? MStyle::accent : MStyle::fieldRim, penWidth));
    painter->setBrush(MStyle::fieldFace);
    painter->drawRoundedRect(rect().adjusted(inset, inset, -inset, -inset), MStyle::fieldRadius, MStyle::fieldRadius);
}
