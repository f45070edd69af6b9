// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>

class MTextEdit;
class QWidget;

/// A text for assistive programs: this much of it is alike for all that can only be read.
class MAccessibleText : public QAccessibleTextInterface {
public:
    /// The interface of @p editor, which is the one that is embedded in @p field. Qt's own knows neither where in the
    /// scene it is nor how the field is called. The caller owns it.
    static QAccessibleInterface *makeField(QWidget *editor, MTextEdit *field);

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override { }
    void removeSelection(int) override { }
    void setSelection(int, int, int) override { }

    int cursorPosition() const override { return -1; }
    void setCursorPosition(int) override { }

    QString text(int start, int end) const override;
    int characterCount() const override { return wholeText().size(); }

    QRect characterRect(int) const override { return QRect(); }
    int offsetAtPoint(const QPoint &) const override { return -1; }
    void scrollToSubstring(int, int) override { }
    QString attributes(int offset, int *start, int *end) const override;

protected:
    virtual QString wholeText() const = 0;
};
