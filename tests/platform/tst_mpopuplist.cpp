// SPDX-License-Identifier: MIT
#include "finger.h"
#include "mapplicationpage.h"
#include "mapplicationwindow.h"
#include "mpannableviewport.h"
#include "mpopuplist.h"
#include "mstyle.h"

#include <QStringListModel>
#include <QTest>

#include <memory>

class PopupListTest : public QObject {
    Q_OBJECT

    std::unique_ptr<MApplicationWindow> m_window;
    std::unique_ptr<MApplicationPage> m_page;
    std::unique_ptr<QStringListModel> m_model;
    std::unique_ptr<MPopupList> m_list;
    QStringList m_picked;

    // Where a row is, as long as the list is not scrolled.
    QPointF centreOf(int row) const
    {
        const QRectF rows = m_list->centralWidget()->geometry();
        return {rows.center().x(), rows.top() + (row + 0.5) * MStyle::rowHeight};
    }

    static QStringList numbers(int count)
    {
        QStringList rows;
        for (int i = 0; i < count; ++i)
            rows.append(QString::number(i));
        return rows;
    }

private slots:
    void init()
    {
        m_window = std::make_unique<MApplicationWindow>();
        m_window->resize(240, 407);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_page = std::make_unique<MApplicationPage>();
        m_page->appear(m_window.get());
        m_model = std::make_unique<QStringListModel>(numbers(3));
        m_list = std::make_unique<MPopupList>();
        m_list->setTitle(QStringLiteral("Title"));
        m_list->setItemModel(m_model.get());
        m_picked.clear();
        connect(m_list.get(), &MPopupList::clicked, this,
                [this](const QModelIndex &index) { m_picked.append(index.data().toString()); });
        m_list->appear(m_window.get());
        QTRY_VERIFY(m_list->hasAppeared());
    }

    void cleanup()
    {
        m_list.reset();
        m_page.reset();
        m_window.reset();
    }

    void tapPicksARow_data() { addFingerKinds(); }
    void tapPicksARow()
    {
        QFETCH(Finger::Kind, kind);
        Finger(m_window.get(), kind).tap(centreOf(1));
        QCOMPARE(m_picked, QStringList{QStringLiteral("1")});
        QVERIFY(!m_list->isOnDisplay());
    }

    void tapBesideItDismisses()
    {
        Finger(m_window.get()).tap({240, 20});
        QVERIFY(!m_list->isOnDisplay());
        QVERIFY(m_picked.isEmpty());
    }

    void onlyATapOnOneRowOrBesideItCounts()
    {
        Finger finger(m_window.get());
        finger.tap({240, m_list->centralWidget()->y() - 30});
        finger.drag(centreOf(1), centreOf(2));
        finger.drag({240, 20}, centreOf(1));
        finger.drag({240, m_list->centralWidget()->y() - 30}, {240, 20});
        QVERIFY(m_list->isOnDisplay());
        QVERIFY(m_picked.isEmpty());
    }

    void keysPick_data()
    {
        QTest::addColumn<QVector<int>>("keys");
        QTest::addColumn<QStringList>("picked");
        const auto row = [](const char *name, const QVector<int> &keys, int picked = -1) {
            QTest::newRow(name) << keys << (picked < 0 ? QStringList() : QStringList(QString::number(picked)));
        };
        row("none chosen", {Qt::Key_Return});
        row("first", {Qt::Key_Down, Qt::Key_Return}, 0);
        row("not beyond the last", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, 2);
        row("up from nowhere", {Qt::Key_Up, Qt::Key_Return}, 2);
        row("not before the first", {Qt::Key_Home, Qt::Key_Up, Qt::Key_Return}, 0);
        row("end", {Qt::Key_End, Qt::Key_Enter}, 2);
        row("escape", {Qt::Key_Down, Qt::Key_Escape});
    }

    void keysPick()
    {
        QFETCH(QVector<int>, keys);
        for (int key : keys)
            QTest::keyClick(m_window.get(), Qt::Key(key));
        QTEST(m_picked, "picked");
    }

    void changesOfTheModelShow()
    {
        const qreal height = m_list->centralWidget()->size().height();
        m_model->setStringList(numbers(5));
        QCoreApplication::processEvents();
        QCOMPARE(m_list->centralWidget()->size().height(), height + 2 * MStyle::rowHeight);
        Finger(m_window.get()).tap(centreOf(4));
        QCOMPARE(m_picked, QStringList{QStringLiteral("4")});
    }

    void currentRowThatIsRemovedIsNoLongerCurrent()
    {
        QTest::keyClick(m_window.get(), Qt::Key_End);
        m_model->setStringList(numbers(1));
        QCOMPARE(m_list->currentIndex().row(), 0);
        m_model->setStringList({});
        QVERIFY(!m_list->currentIndex().isValid());
        QTest::keyClick(m_window.get(), Qt::Key_Down);
        QTest::keyClick(m_window.get(), Qt::Key_Return);
        QVERIFY(m_picked.isEmpty());
    }

    void longListScrolls_data() { addFingerKinds(); }
    void longListScrolls()
    {
        QFETCH(Finger::Kind, kind);
        m_model->setStringList(numbers(50));
        QCoreApplication::processEvents();
        const QRectF rows = m_list->centralWidget()->geometry();
        QVERIFY(QRectF(0, 0, 480, 814).contains(rows));
        auto *viewport = static_cast<MPannableViewport *>(m_list->centralWidget());
        Finger finger(m_window.get(), kind);
        finger.drag({240, 600}, {240, 300}, 10);
        QVERIFY2(m_list->isOnDisplay() && m_picked.isEmpty(), "a drag must not pick");
        QTRY_VERIFY(viewport->position() > 100);
        QTest::keyClick(m_window.get(), Qt::Key_End);
        QCOMPARE(viewport->position(), 50 * MStyle::rowHeight - rows.height());
    }

    void handlerMayShowTheSameListAgain()
    {
        connect(m_list.get(), &MPopupList::clicked, m_list.get(), [this] { m_list->appear(m_window.get()); });
        for (int i = 0; i < 3; ++i) {
            Finger(m_window.get()).tap(centreOf(i));
            QVERIFY2(m_list->isOnDisplay(), "must not be picked from or left before it can be seen");
            Finger(m_window.get()).tap(centreOf(2));
            QTest::keyClick(m_window.get(), Qt::Key_End);
            QTest::keyClick(m_window.get(), Qt::Key_Return);
            QTRY_VERIFY(m_list->hasAppeared());
        }
        QCOMPARE(m_picked, numbers(3));
    }

    void handlerMayDestroyTheList()
    {
        connect(m_list.get(), &MPopupList::clicked, this, [this] { m_list.reset(); });
        Finger(m_window.get()).tap(centreOf(0));
        QVERIFY(!m_list);
        Finger(m_window.get()).tap({240, 400});
    }

    void handlerMayEmptyTheModel()
    {
        connect(m_list.get(), &MSceneWindow::disappeared, this, [this] { m_model->setStringList({}); });
        Finger(m_window.get()).tap(centreOf(0));
        QVERIFY2(m_picked.isEmpty(), "a row that is gone must not be told of");
    }
};

QTEST_MAIN(PopupListTest)
#include "tst_mpopuplist.moc"
