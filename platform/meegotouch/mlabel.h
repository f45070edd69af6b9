// SPDX-License-Identifier: MIT
#pragma once

#include "mwidget.h"

#include <QColor>
#include <QStringList>
#include <QTextOption>

/// Plain text in one or more lines. Line breaks in the text are kept; what does not fit is elided, to the right in
/// each line and after the last line for which there is room. Dark text, aligned to the left and centred vertically,
/// until told otherwise; its contents margins stay free. Of a very long text only the beginning is laid out.
class MLabel : public MWidget {
    Q_OBJECT

public:
    explicit MLabel(QGraphicsItem *parent = nullptr);
    explicit MLabel(const QString &text, QGraphicsItem *parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString &text);

    /// The widget's own font; named here because Qt tells a widget of a new font only once it is in a scene.
    void setFont(const QFont &font);

    QColor color() const { return m_color; }
    /// An invalid colour brings back the default one.
    void setColor(const QColor &color);

    Qt::Alignment alignment() const { return m_alignment; }
    void setAlignment(Qt::Alignment alignment);

    void setWordWrap(bool wrap);

    /// Where lines may break while word wrap is on; at word boundaries if not set.
    void setWordWrapMode(QTextOption::WrapMode mode);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

protected:
    QString shownText() const override { return m_text; }
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QGraphicsSceneResizeEvent *event) override;

private:
    void textChanged();
    QStringList brokenLines(qreal width) const;
    QStringList fittingLines() const;

    QString m_text;
    QColor m_color;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool m_wordWrap = false;
    QTextOption::WrapMode m_wrapMode = QTextOption::WordWrap;
    QStringList m_lines; // as last laid out for the current size
    bool m_laidOut = false;
};
