#include "mabstractlayoutpolicy.h"
#include "mapplicationpage.h"
#include "mlayout.h"

#include <QGraphicsWidget>
#include <QTest>

#include <memory>

namespace {

/// Puts the items under each other, 10 pixels high.
class Column : public MAbstractLayoutPolicy {
public:
    using MAbstractLayoutPolicy::getContentsMargins;
    using MAbstractLayoutPolicy::itemGeometry;
    using MAbstractLayoutPolicy::MAbstractLayoutPolicy;
    using MAbstractLayoutPolicy::setItemGeometry;

    int relayouts = 0;

    QSizeF sizeHint(Qt::SizeHint, const QSizeF &) const override { return {7, 10.0 * count()}; }

    void relayout() override
    {
        ++relayouts;
        for (int i = 0; i < count(); ++i)
            setItemGeometry(i, QRectF(0, 10 * i, layout()->geometry().width(), 10));
    }
};

} // namespace

class LayoutTest : public QObject {
    Q_OBJECT

private slots:
    void itemsAddedBeforeAndAfterBecomeChildrenInOrder()
    {
        QGraphicsWidget parent;
        auto *layout = new MLayout;
        auto *policy = new Column(layout);
        auto *first = new QGraphicsWidget;
        auto *second = new QGraphicsWidget;
        auto *third = new QGraphicsWidget;
        policy->addItem(first);
        policy->addItem(second);
        QVERIFY(!first->parentItem());
        parent.setLayout(layout);
        policy->addItem(third);
        QCOMPARE(parent.childItems(), (QList<QGraphicsItem *>{first, second, third}));

        parent.resize(100, 100);
        layout->activate();
        QCOMPARE(third->geometry(), QRectF(0, 20, 100, 10));
        QCOMPARE(policy->itemGeometry(2), third->geometry());
        QCOMPARE(parent.preferredSize(), QSizeF(7, 30));
    }

    void unusableItemsAreLeftAlone()
    {
        MLayout layout;
        Column *policy = new Column(&layout);
        QGraphicsWidget item;
        policy->addItem(nullptr);
        policy->addItem(&layout);
        policy->addItem(&item);
        policy->addItem(&item);
        QCOMPARE(policy->count(), 1);
        QCOMPARE(layout.count(), 1);
        policy->removeAt(7);
        policy->removeItem(nullptr);
        QCOMPARE(policy->itemAt(-1), nullptr);
        QCOMPARE(policy->indexOf(nullptr), -1);
        QCOMPARE(policy->itemGeometry(1), QRectF());
        policy->removeAt(0);
        QCOMPARE(layout.count(), 0);
    }

    void destroyedItemIsForgotten()
    {
        QGraphicsWidget parent;
        auto *layout = new MLayout;
        auto *policy = new Column(layout);
        parent.setLayout(layout);
        auto *doomed = new QGraphicsWidget;
        auto *stays = new QGraphicsWidget;
        policy->addItem(doomed);
        policy->addItem(stays);
        delete doomed;
        QCOMPARE(policy->count(), 1);
        QCOMPARE(policy->itemAt(0), stays);
        QCOMPARE(layout->count(), 1);
    }

    void itemOutlivesTheLayout()
    {
        QGraphicsWidget item;
        {
            MLayout layout;
            (new Column(&layout))->addItem(&item);
        }
        QCOMPARE(item.parentLayoutItem(), nullptr);
    }

    void firstPolicyIsActiveUntilAnotherIsSet()
    {
        QGraphicsWidget parent;
        auto *layout = new MLayout;
        auto *first = new Column(layout);
        auto *second = new Column(layout);
        parent.setLayout(layout);
        QVERIFY(first->isActive());
        QGraphicsWidget item;
        first->addItem(&item);
        second->addItem(&item);
        QCOMPARE(layout->count(), 1);
        first->removeItem(&item);
        QCOMPARE(layout->count(), 1);

        MLayout other;
        layout->setPolicy(new Column(&other));
        layout->setPolicy(nullptr);
        QVERIFY(first->isActive());
        layout->setPolicy(second);
        layout->activate();
        QVERIFY(second->isActive());
        QVERIFY(second->relayouts > 0);
        QCOMPARE(first->relayouts, 0);
        delete second;
        QCOMPARE(layout->policy(), nullptr);
        layout->invalidate();
        layout->activate();
        second = nullptr;
    }

    void marginsAreTheLayouts()
    {
        MLayout layout;
        auto *policy = new Column(&layout);
        qreal left = -1, top = -1, right = -1, bottom = -1;
        layout.setContentsMargins(2, 3, 10, 20);
        policy->getContentsMargins(&left, &top, &right, &bottom);
        QCOMPARE(QRectF(left, top, right, bottom), QRectF(2, 3, 10, 20));
    }

    void neverBoundsItsWidgetFromAbove()
    {
        MApplicationPage page;
        auto *layout = new MLayout;
        new Column(layout);
        page.centralWidget()->setLayout(layout);
        page.resize(480, 814);
        QCOMPARE(page.centralWidget()->size(), QSizeF(480, 814));
    }
};

QTEST_MAIN(LayoutTest)
#include "tst_mlayout.moc"
