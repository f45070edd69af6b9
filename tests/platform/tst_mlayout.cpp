// SPDX-License-Identifier: MIT
#include "mabstractlayoutpolicy.h"
#include "mapplicationpage.h"
#include "mlayout.h"

#include <QGraphicsWidget>
#include <QTest>

namespace {

/// Puts the items under each other, 10 pixels high.
class Column : public MAbstractLayoutPolicy {
public:
    using MAbstractLayoutPolicy::MAbstractLayoutPolicy;

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
        parent.setLayout(layout);
        policy->addItem(third);
        QCOMPARE(parent.childItems(), (QList<QGraphicsItem *>{first, second, third}));

        auto *front = new QGraphicsWidget;
        policy->insertItem(0, front);
        parent.resize(100, 100);
        layout->activate();
        QCOMPARE(front->geometry(), QRectF(0, 0, 100, 10));
        QCOMPARE(third->geometry(), QRectF(0, 30, 100, 10));
        QCOMPARE(parent.preferredSize(), QSizeF(7, 40));
    }

    void itemsAndLayoutOutliveEachOther()
    {
        QGraphicsWidget stays;
        {
            MLayout layout;
            auto *policy = new Column(&layout);
            auto *doomed = new QGraphicsWidget;
            policy->addItem(doomed);
            policy->addItem(&stays);
            delete doomed;
            QCOMPARE(policy->count(), 1);
            QCOMPARE(policy->itemAt(0), &stays);
            QCOMPARE(layout.count(), 1);
        }
        QCOMPARE(stays.parentLayoutItem(), nullptr);
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

        layout->setPolicy(second);
        layout->activate();
        QVERIFY(second->isActive());
        QVERIFY(second->relayouts > 0);
        QCOMPARE(first->relayouts, 0);
        delete second;
        QCOMPARE(layout->policy(), nullptr);
        layout->invalidate();
        layout->activate();
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
