// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>

class QGraphicsItem;

/// What screen readers and other assistive programs are told of the widgets.
///
/// Every MApplicationWindow makes its scene known to Qt's accessibility, which Qt itself leaves dark: a tree of what
/// is on display, in reading order, each part with a role, a name, a state, a place on the screen and what can be done
/// with it. Beneath a dialog or a list nothing can be used, so nothing is in the tree. A widget decides its name
/// (MWidget::accessibleName()) and, where its class does not say it, its role (MWidget::setAccessibleRole()); one
/// without a role is left out, and what it holds stands in its place.
///
/// The functions that tell of changes cost nothing as long as no assistive program listens.
namespace MAccessibility {

/// Makes the widgets known to Qt's accessibility. Further calls do nothing.
void install();

/// Tells that @p item has the keyboard focus now, or the editor that is embedded in it; null is ignored.
void tellFocus(const QGraphicsItem *item);

/// Tells of an @p event of @p object, for which Qt needs no more than its type.
void tell(QObject *object, QAccessible::Event event);

/// Tells that the row @p row of the list @p list is the current one.
void tellCurrentRow(QObject *list, int row);

/// Tells that @p button was checked or unchecked.
void tellChecked(QObject *button, bool checked);

} // namespace MAccessibility

/// To be inherited by a widget that shows a document, a web page for example, which it then is for assistive programs.
class MAccessibleDocument {
public:
    virtual ~MAccessibleDocument() = default;

    virtual QString documentTitle() const = 0;
    /// All of its text without any marks. Asked for whenever an assistive program reads on.
    virtual QString documentText() const = 0;
};
