// SPDX-License-Identifier: MIT
#include "maccessibility.h"

#include "maccessibletext.h"
#include "mapplicationwindow.h"
#include "mbutton.h"
#include "mbuttongroup.h"
#include "mdialog.h"
#include "mlabel.h"
#include "mmessagebox.h"
#include "mpopuplist.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QAbstractItemModel>
#include <QAccessibleObject>
#include <QAccessibleWidget>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>

#include <algorithm>
#include <utility>

namespace {

using Interfaces = QVector<QAccessibleInterface *>;

MApplicationWindow *windowOf(const QGraphicsItem *item)
{
    const auto views = item && item->scene() ? item->scene()->views() : QList<QGraphicsView *>();
    return views.isEmpty() ? nullptr : qobject_cast<MApplicationWindow *>(views.first());
}

/// Where @p area, in scene pixels, is on the screen of @p window.
QRect onScreen(const MApplicationWindow *window, const QRectF &area)
{
    if (!window)
        return QRect();
    const QRect inView = window->viewportTransform().mapRect(area).toRect();
    return QRect(window->viewport()->mapToGlobal(inView.topLeft()), inView.size());
}

/// The editor in @p item, if it is the proxy in a text edit.
QWidget *embeddedEditor(const QGraphicsItem *item)
{
    const auto *proxy = qgraphicsitem_cast<const QGraphicsProxyWidget *>(item);
    const QGraphicsItem *holder = proxy ? proxy->parentItem() : nullptr;
    return holder && qobject_cast<MTextEdit *>(const_cast<QGraphicsItem *>(holder)->toGraphicsObject())
        ? proxy->widget()
        : nullptr;
}

QAccessible::Role roleOf(const QGraphicsWidget *widget)
{
    const auto *known = qobject_cast<const MWidget *>(widget);
    if (known && known->accessibleRole() != QAccessible::NoRole)
        return known->accessibleRole();
    if (qobject_cast<const MButton *>(widget))
        return QAccessible::Button;
    if (qobject_cast<const MLabel *>(widget))
        return QAccessible::StaticText;
    if (qobject_cast<const MPopupList *>(widget))
        return QAccessible::PopupMenu;
    if (qobject_cast<const MMessageBox *>(widget))
        return QAccessible::AlertMessage;
    if (qobject_cast<const MDialog *>(widget))
        return QAccessible::Dialog;
    if (qobject_cast<const MProgressIndicator *>(widget))
        return QAccessible::ProgressBar;
    return QAccessible::NoRole;
}

/// The tabs that @p item is one of; null if it is none.
MButtonGroup *tabsOf(QGraphicsItem *item)
{
    const auto *button = qobject_cast<MButton *>(item->toGraphicsObject());
    return button && roleOf(button) == QAccessible::PageTab ? button->group() : nullptr;
}

/// The interface that stands for @p item itself; null if there is none.
QAccessibleInterface *interfaceOf(QGraphicsItem *item)
{
    QObject *object = embeddedEditor(item);
    if (!object)
        object = item->toGraphicsObject();
    return object ? QAccessible::queryAccessibleInterface(object) : nullptr;
}

/// Row by row, each from the left. What can be panned has its place as a whole.
QList<QGraphicsItem *> inReadingOrder(QList<QGraphicsItem *> items)
{
    std::stable_sort(items.begin(), items.end(), [](const QGraphicsItem *one, const QGraphicsItem *other) {
        const QPointF a = one->sceneBoundingRect().topLeft();
        const QPointF b = other->sceneBoundingRect().topLeft();
        return a.y() != b.y() ? a.y() < b.y() : a.x() < b.x();
    });
    return items;
}

/// Appends what stands for those of @p items that are visible: themselves, or else what they hold.
void collect(const QList<QGraphicsItem *> &items, Interfaces &found)
{
    const auto ordered = inReadingOrder(items);
    for (QGraphicsItem *item : ordered) {
        const auto *label = qobject_cast<const MLabel *>(item->toGraphicsObject());
        if (!item->isVisible() || (label && label->text().isEmpty()))
            continue;
        MButtonGroup *tabs = tabsOf(item);
        QAccessibleInterface *own = tabs ? QAccessible::queryAccessibleInterface(tabs) : interfaceOf(item);
        if (!own)
            collect(item->childItems(), found);
        else if (!found.contains(own))
            found.append(own);
    }
}

/// What every interface with children of its own does with them.
template <typename Base> class Parent : public Base {
public:
    using Base::Base;

    virtual Interfaces children() const = 0;

    int childCount() const override { return children().size(); }
    QAccessibleInterface *child(int index) const override { return children().value(index); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return children().indexOf(const_cast<QAccessibleInterface *>(child));
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        const Interfaces all = children();
        const auto hit = std::find_if(all.rbegin(), all.rend(), [x, y](const QAccessibleInterface *child) {
            return child->rect().contains(x, y);
        });
        return hit != all.rend() ? *hit : nullptr;
    }
    QAccessibleInterface *focusChild() const override
    {
        const Interfaces all = children();
        for (QAccessibleInterface *child : all) {
            if (child->state().focused)
                return child;
            if (QAccessibleInterface *within = child->focusChild())
                return within;
        }
        return nullptr;
    }
};

/// Qt counts the editors in the scene among the windows of the application: their parent knows better.
class ApplicationInterface : public Parent<QAccessibleApplication> {
public:
    Interfaces children() const override
    {
        Interfaces found;
        for (int i = 0; i < QAccessibleApplication::childCount(); ++i) {
            QAccessibleInterface *window = QAccessibleApplication::child(i);
            if (window && window->parent() == this)
                found.append(window);
        }
        return found;
    }
};

class WindowInterface : public Parent<QAccessibleWidget> {
public:
    explicit WindowInterface(MApplicationWindow *window)
        : Parent(window, QAccessible::Window)
    {
    }

    Interfaces children() const override
    {
        const auto *window = static_cast<MApplicationWindow *>(widget());
        if (QGraphicsWidget *panel = window->topPanel())
            return {QAccessible::queryAccessibleInterface(panel)};
        Interfaces found;
        const auto items = window->scene()->items(Qt::AscendingOrder);
        for (const QGraphicsItem *item : items) {
            if (!item->parentItem() && item->isVisible())
                collect(item->childItems(), found);
        }
        return found;
    }

    // The focus is on the item that has it in the scene, if one has.
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.focused = state.focused && !static_cast<MApplicationWindow *>(widget())->scene()->focusItem();
        return state;
    }
};

class ItemInterface : public Parent<QAccessibleObject>, public QAccessibleActionInterface {
public:
    explicit ItemInterface(QGraphicsWidget *widget)
        : Parent(widget)
    {
    }

    QGraphicsWidget *widget() const { return static_cast<QGraphicsWidget *>(object()); }

    QWindow *window() const override
    {
        const MApplicationWindow *window = windowOf(widget());
        return window ? window->windowHandle() : nullptr;
    }

    QAccessibleInterface *parent() const override
    {
        if (MButtonGroup *tabs = tabsOf(widget()))
            return QAccessible::queryAccessibleInterface(tabs);
        for (QGraphicsItem *above = widget()->parentItem(); above; above = above->parentItem()) {
            if (QAccessibleInterface *found = interfaceOf(above))
                return found;
        }
        MApplicationWindow *window = windowOf(widget());
        return window ? QAccessible::queryAccessibleInterface(window) : nullptr;
    }

    Interfaces children() const override
    {
        Interfaces found;
        collect(widget()->childItems(), found);
        return found;
    }

    QRect rect() const override { return onScreen(windowOf(widget()), widget()->mapRectToScene(widget()->rect())); }
    QAccessible::Role role() const override { return roleOf(widget()); }

    QString text(QAccessible::Text which) const override
    {
        const auto *known = qobject_cast<const MWidget *>(widget());
        return known && which == QAccessible::Name ? known->accessibleName() : QString();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.disabled = !widget()->isEnabled();
        state.invisible = !widget()->isVisible();
        state.focusable = widget()->isEnabled() && widget()->flags().testFlag(QGraphicsItem::ItemIsFocusable);
        state.focused = widget()->hasFocus();
        state.modal = widget()->isPanel();
        state.busy = qobject_cast<MProgressIndicator *>(widget()) && widget()->isVisible();
        if (const auto *button = qobject_cast<MButton *>(widget())) {
            state.selectable = role() == QAccessible::PageTab;
            state.selected = button->isChecked() && state.selectable;
        }
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }

    QStringList actionNames() const override
    {
        QStringList names;
        if (!widget()->isEnabled())
            return names;
        if (qobject_cast<MButton *>(widget()))
            names << pressAction();
        if (widget()->flags().testFlag(QGraphicsItem::ItemIsFocusable))
            names << setFocusAction();
        return names;
    }

    // From the event loop: whoever asked is waiting for an answer, and the button may be gone after its click.
    void doAction(const QString &name) override
    {
        if (!actionNames().contains(name))
            return;
        if (auto *button = name == pressAction() ? qobject_cast<MButton *>(widget()) : nullptr)
            QMetaObject::invokeMethod(button, &MButton::click, Qt::QueuedConnection);
        else
            widget()->setFocus(Qt::TabFocusReason);
    }

    QStringList keyBindingsForAction(const QString &) const override { return {}; }
};

/// A group of tabs, which is no item itself.
class TabsInterface : public Parent<QAccessibleObject> {
public:
    explicit TabsInterface(MButtonGroup *tabs)
        : Parent(tabs)
    {
    }

    Interfaces children() const override
    {
        Interfaces found;
        const auto buttons = tabs()->buttons();
        for (MButton *button : buttons) {
            if (button->isVisible())
                found.append(QAccessible::queryAccessibleInterface(button));
        }
        return found;
    }

    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(windowOf(tabs()->buttons().value(0)));
    }
    QWindow *window() const override { return parent() ? parent()->window() : nullptr; }

    QRect rect() const override
    {
        QRect area;
        const Interfaces all = children();
        for (const QAccessibleInterface *tab : all)
            area |= tab->rect();
        return area;
    }

    QAccessible::Role role() const override { return QAccessible::PageTabList; }
    QAccessible::State state() const override { return {}; }
    QString text(QAccessible::Text) const override { return QString(); }

private:
    MButtonGroup *tabs() const { return static_cast<MButtonGroup *>(object()); }
};

/// One row of a list, which is no object at all: the list's interface makes it and takes it back.
class RowInterface : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    RowInterface(MPopupList *list, int row)
        : m_list(list)
        , m_row(row)
    {
    }

    bool isValid() const override { return m_list && index().isValid(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return parent() ? parent()->window() : nullptr; }
    QAccessibleInterface *parent() const override
    {
        return m_list ? QAccessible::queryAccessibleInterface(m_list) : nullptr;
    }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }

    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Name ? index().data().toString() : QString();
    }
    void setText(QAccessible::Text, const QString &) override { }
    QRect rect() const override { return m_list ? onScreen(windowOf(m_list), m_list->rowArea(m_row)) : QRect(); }
    QAccessible::Role role() const override { return QAccessible::MenuItem; }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        state.focusable = state.selectable = true;
        state.focused = state.selected = isValid() && m_list->hasFocus() && m_list->currentIndex() == index();
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &name) override
    {
        if (m_list && name == pressAction())
            QMetaObject::invokeMethod(
                m_list, [list = m_list.data(), row = m_row] { list->pick(row); }, Qt::QueuedConnection);
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QModelIndex index() const
    {
        const QAbstractItemModel *model = m_list ? m_list->itemModel() : nullptr;
        return model ? model->index(m_row, 0) : QModelIndex();
    }

    QPointer<MPopupList> m_list;
    int m_row;
};

class ListInterface : public ItemInterface {
public:
    using ItemInterface::ItemInterface;

    ~ListInterface() override
    {
        for (QAccessible::Id row : std::as_const(m_rows))
            QAccessible::deleteAccessibleInterface(row);
    }

    // The focus is on the current row, if there is one.
    QAccessible::State state() const override
    {
        QAccessible::State state = ItemInterface::state();
        state.focused = state.focused && !static_cast<MPopupList *>(object())->currentIndex().isValid();
        return state;
    }

    Interfaces children() const override
    {
        auto *list = static_cast<MPopupList *>(object());
        const int count = list->itemModel() ? list->itemModel()->rowCount() : 0;
        while (m_rows.size() < count)
            m_rows.append(QAccessible::registerAccessibleInterface(new RowInterface(list, m_rows.size())));
        Interfaces found;
        for (int row = 0; row < count; ++row)
            found.append(QAccessible::accessibleInterface(m_rows[row]));
        return found;
    }

private:
    mutable QVector<QAccessible::Id> m_rows; // as many as there ever were
};

/// A document's text can be read, but has no cursor, and where its characters are is not known.
class DocumentInterface : public ItemInterface, public MAccessibleText {
public:
    explicit DocumentInterface(QGraphicsWidget *widget, const MAccessibleDocument *document)
        : ItemInterface(widget)
        , m_document(document)
    {
    }

    QAccessible::Role role() const override { return QAccessible::WebDocument; }
    QAccessible::State state() const override
    {
        QAccessible::State state = ItemInterface::state();
        state.readOnly = state.multiLine = true;
        return state;
    }
    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Name ? m_document->documentTitle() : QString();
    }
    QString text(int start, int end) const override { return MAccessibleText::text(start, end); }

    // Only what is the platform's own: an engine's editors and pages know nothing of their parent.
    Interfaces children() const override
    {
        Interfaces found = ItemInterface::children();
        found.erase(std::remove_if(found.begin(), found.end(),
                                   [](const QAccessibleInterface *child) { return child->object()->isWidgetType(); }),
                    found.end());
        return found;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface *>(this)
                                                  : ItemInterface::interface_cast(type);
    }

protected:
    QString wholeText() const override { return m_document->documentText(); }

private:
    const MAccessibleDocument *m_document;
};

/// Whether anybody wants to know of @p object. Outside of a scene nobody does, and it may be half built: an interface
/// made now would be that of its base class for good.
bool isKnown(QObject *object)
{
    const auto *item = qobject_cast<QGraphicsObject *>(object);
    return QAccessible::isActive() && (!item || item->scene()) && QAccessible::queryAccessibleInterface(object);
}

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    if (object == QCoreApplication::instance())
        return new ApplicationInterface;
    if (auto *window = qobject_cast<MApplicationWindow *>(object))
        return new WindowInterface(window);
    if (auto *tabs = qobject_cast<MButtonGroup *>(object))
        return new TabsInterface(tabs);
    if (auto *editor = qobject_cast<QWidget *>(object)) {
        QGraphicsProxyWidget *proxy = editor->graphicsProxyWidget();
        return proxy && embeddedEditor(proxy) == editor
            ? MAccessibleText::makeField(editor, static_cast<MTextEdit *>(proxy->parentWidget()))
            : nullptr;
    }
    auto *widget = qobject_cast<QGraphicsWidget *>(object);
    if (!widget)
        return nullptr;
    if (const auto *document = dynamic_cast<const MAccessibleDocument *>(object))
        return new DocumentInterface(widget, document);
    if (qobject_cast<MPopupList *>(object))
        return new ListInterface(widget);
    return roleOf(widget) != QAccessible::NoRole ? new ItemInterface(widget) : nullptr;
}

} // namespace

void MAccessibility::install()
{
    QAccessible::installFactory(makeInterface);
}

void MAccessibility::tellFocus(const QGraphicsItem *item)
{
    if (!item || !QAccessible::isActive())
        return;
    QObject *object = embeddedEditor(item);
    if (!object)
        object = const_cast<QGraphicsItem *>(item)->toGraphicsObject();
    if (object)
        tell(object, QAccessible::Focus);
}

void MAccessibility::tell(QObject *object, QAccessible::Event type)
{
    if (!isKnown(object))
        return;
    QAccessibleEvent event(object, type);
    QAccessible::updateAccessibility(&event);
}

void MAccessibility::tellCurrentRow(QObject *list, int row)
{
    if (!isKnown(list))
        return;
    QAccessibleEvent event(list, QAccessible::Focus);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

void MAccessibility::tellChecked(QObject *button, bool checked)
{
    if (!isKnown(button))
        return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(button, changed);
    QAccessible::updateAccessibility(&event);
    tell(button, checked ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
}
