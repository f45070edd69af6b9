// SPDX-License-Identifier: MIT
#include "maccessibletext.h"

#include "mapplicationwindow.h"
#include "mtextedit.h"

#include <QAccessibleWidget>
#include <QGraphicsScene>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>

namespace {

/// The editor in a text edit. Qt tells of what is typed into it, and of its cursor, as of any editor.
class FieldInterface : public QAccessibleWidget, public MAccessibleText, public QAccessibleEditableTextInterface {
public:
    FieldInterface(QWidget *editor, MTextEdit *field)
        : QAccessibleWidget(editor, QAccessible::EditableText)
        , m_field(field)
        , m_line(qobject_cast<QLineEdit *>(editor))
        , m_area(qobject_cast<QTextEdit *>(editor))
    {
    }

    QAccessibleInterface *parent() const override
    {
        for (QGraphicsItem *above = m_field; above; above = above->parentItem()) {
            QGraphicsObject *object = above->toGraphicsObject();
            if (QAccessibleInterface *found = object ? QAccessible::queryAccessibleInterface(object) : nullptr)
                return found;
        }
        const auto views = m_field->scene() ? m_field->scene()->views() : QList<QGraphicsView *>();
        return QAccessible::queryAccessibleInterface(views.value(0));
    }
    // The editor's own parts, a scrolling area say, are nobody's business.
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *focusChild() const override { return nullptr; }

    QWindow *window() const override { return parent() ? parent()->window() : nullptr; }
    QRect rect() const override { return QRect(widget()->mapToGlobal(QPoint(0, 0)), widget()->size()); }

    using MAccessibleText::text;
    QString text(QAccessible::Text which) const override
    {
        switch (which) {
        case QAccessible::Name:
            return m_field->accessibleName();
        case QAccessible::Value:
            return m_field->text();
        default:
            return QString();
        }
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.disabled = !m_field->isEnabled();
        state.invisible = !m_field->isVisible();
        state.focusable = m_field->isEnabled();
        state.focused = m_field->hasFocus();
        state.editable = state.selectableText = true;
        state.multiLine = m_area != nullptr;
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        switch (type) {
        case QAccessible::TextInterface:
            return static_cast<QAccessibleTextInterface *>(this);
        case QAccessible::EditableTextInterface:
            return static_cast<QAccessibleEditableTextInterface *>(this);
        default:
            return QAccessibleWidget::interface_cast(type);
        }
    }

    QStringList actionNames() const override
    {
        return m_field->isEnabled() ? QStringList{setFocusAction()} : QStringList();
    }
    // For any other reason an embedded editor would not take it.
    void doAction(const QString &name) override
    {
        if (actionNames().contains(name))
            m_field->setFocus(Qt::TabFocusReason);
    }

    void selection(int index, int *start, int *end) const override
    {
        MAccessibleText::selection(index, start, end);
        if (index != 0 || selectionCount() == 0)
            return;
        *start = m_line ? m_line->selectionStart() : m_area->textCursor().selectionStart();
        *end = m_line ? m_line->selectionEnd() : m_area->textCursor().selectionEnd();
    }
    int selectionCount() const override
    {
        return (m_line ? m_line->hasSelectedText() : m_area->textCursor().hasSelection()) ? 1 : 0;
    }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int index) override
    {
        if (index == 0)
            setCursorPosition(cursorPosition());
    }
    void setSelection(int index, int start, int end) override
    {
        if (index == 0)
            select(start, end);
    }

    int cursorPosition() const override { return m_line ? m_line->cursorPosition() : m_area->textCursor().position(); }
    void setCursorPosition(int position) override { select(position, position); }

    QRect characterRect(int offset) const override
    {
        if (m_area) {
            QTextCursor cursor = m_area->textCursor();
            cursor.setPosition(bounded(offset));
            const QRect caret = m_area->cursorRect(cursor);
            const QFontMetrics metrics(m_area->font());
            return onScreen(QRect(caret.topLeft(), QSize(advance(metrics, offset), caret.height())));
        }
        // All characters of a line are as far from its cursor as the text between is wide.
        const QFontMetrics metrics(m_line->font());
        const QRect caret = m_line->inputMethodQuery(Qt::ImCursorRectangle).toRect();
        const auto end = [&](int position) { return metrics.horizontalAdvance(m_line->text().left(position)); };
        const int left = caret.center().x() + end(bounded(offset)) - end(cursorPosition());
        return onScreen(QRect(left, caret.top(), advance(metrics, offset), caret.height()));
    }
    int offsetAtPoint(const QPoint &point) const override
    {
        const QPoint inEditor = widget()->mapFromGlobal(point);
        if (!widget()->rect().contains(inEditor))
            return -1;
        return m_line ? m_line->cursorPositionAt(inEditor) : m_area->cursorForPosition(inEditor).position();
    }
    void scrollToSubstring(int, int end) override { setCursorPosition(end); }

    void deleteText(int start, int end) override { replaceText(start, end, QString()); }
    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString &text) override
    {
        if (!m_field->isEnabled())
            return;
        select(start, end);
        if (m_line)
            m_line->insert(text);
        else
            m_area->insertPlainText(text);
    }

protected:
    QString wholeText() const override { return m_field->text(); }

private:
    int bounded(int offset) const { return qBound(0, offset, characterCount()); }

    int advance(const QFontMetrics &metrics, int offset) const
    {
        return metrics.horizontalAdvance(text(offset, offset + 1));
    }

    QRect onScreen(const QRect &area) const { return area.translated(widget()->mapToGlobal(QPoint(0, 0))); }

    void select(int start, int end)
    {
        const int from = bounded(start);
        const int to = bounded(end);
        if (m_line) {
            m_line->setSelection(from, to - from);
            return;
        }
        QTextCursor cursor = m_area->textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        m_area->setTextCursor(cursor);
    }

    MTextEdit *m_field;
    QLineEdit *m_line; // one of the two
    QTextEdit *m_area;
};

} // namespace

QAccessibleInterface *MAccessibleText::makeField(QWidget *editor, MTextEdit *field)
{
    return new FieldInterface(editor, field);
}

void MAccessibleText::selection(int, int *start, int *end) const
{
    *start = 0;
    *end = 0;
}

QString MAccessibleText::text(int start, int end) const
{
    return wholeText().mid(start, end < 0 ? -1 : end - start);
}

QString MAccessibleText::attributes(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return QString();
}
