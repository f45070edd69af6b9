// SPDX-License-Identifier: MIT
#include "globaldefine.h"

#include <QtTest>

/// The texts of the chrome in five languages.
class tst_Texts : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { g_languageIdx = 0; }

    void accentsAreLatin1()
    {
        g_languageIdx = 2;
        QCOMPARE(localized(TXT_NO_RECIEPIENTS), QStringLiteral("W\u00E4hle bitte mindestens einen Empf\u00E4nger."));
        g_languageIdx = 4;
        QCOMPARE(localized(TXT_ADD_FRIEND), QStringLiteral("A\u00F1adir como amigo"));
        const QByteArray french(TXT_SEND_TO.rows[1], sizeof TXT_SEND_TO.rows[1]);
        QCOMPARE(french, QByteArray("\xC0: \0\0\0\0\0", 8));
    }
};

QTEST_APPLESS_MAIN(tst_Texts)
#include "tst_texts.moc"
