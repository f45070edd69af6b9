// SPDX-License-Identifier: MIT
#pragma once

#include "mnamespace.h"
#include "mpantracker.h"
#include "mwidget.h"

#include <QString>

class MPositionBar;
class QGraphicsProxyWidget;
class QLineEdit;
class QTextEdit;

/// How many lines a text edit has.
class MTextEditModel {
public:
    enum LineMode { SingleLine, MultiLine };
};

/// A field for plain text: dark on light, with Qt's own editor in it, so that cursor, selection, clipboard, undo and
/// input methods work as everywhere; a finger pans a text that is longer than the field. Asks for the software keyboard
/// when it gets the focus. Key releases that mean nothing to the editor, Return among them, go on to the items that it
/// lies in. The editor is made when the field is first shown or written into: a start has no time for hidden ones.
class MTextEdit : public MWidget {
    Q_OBJECT

public:
    explicit MTextEdit(MTextEditModel::LineMode mode, const QString &text = QString(), QGraphicsItem *parent = nullptr);
    ~MTextEdit() override;

    QString text() const;
    /// Replaces the text and forgets its undo history. In a single line, line breaks become spaces.
    void setText(const QString &text);

    M::TextContentType contentType() const { return m_contentType; }
    /// Chooses the keys of the software keyboard; anything can still be typed.
    void setContentType(M::TextContentType type);

    /// By which means the field gets the focus: click and Tab at the start.
    Qt::FocusPolicy focusPolicy() const;
    void setFocusPolicy(Qt::FocusPolicy policy);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

public slots:
    void clear();

signals:
    /// The text was changed, by the user or by setText().
    void textChanged();
    /// Return was pressed in a single line.
    void returnPressed();

protected:
    bool event(QEvent *event) override;
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QGraphicsSceneResizeEvent *event) override;

private:
    void makeEditor();
    QWidget *makeLine();
    QWidget *makeArea();
    void placeEditor();
    bool holdBackPress(QGraphicsSceneMouseEvent *event);
    void deliverPress(QGraphicsItem *editor, const QGraphicsSceneMouseEvent &release);
    void showMenu();
    void showPosition();

    MTextEditModel::LineMode m_mode;
    // The proxy is a child item and owns the editor: one of m_line and m_area, as the line mode says.
    QGraphicsProxyWidget *m_proxy;
    QLineEdit *m_line = nullptr;
    QTextEdit *m_area = nullptr;
    QWidget *m_editor = nullptr;
    MPositionBar *m_bar; // a child item
    MPanTracker m_tracker;
    bool m_panned = false; // since the last press
    QEvent::Type m_heldBack = QEvent::None; // the kind of press that waits until it is a tap
    M::TextContentType m_contentType = M::FreeTextContentType;
};
