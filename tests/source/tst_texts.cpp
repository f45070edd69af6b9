#include "globaldefine.h"

#include <QtTest>

/// The texts of the chrome in five languages.
class tst_Texts : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { g_languageIdx = 0; }
    void languageChoosesTheRow();
    void accents_data();
    void accents();
    void rowsAreLatin1PaddedWithZeros();
};

void tst_Texts::languageChoosesTheRow()
{
    QStringList codes;
    for (g_languageIdx = 0; g_languageIdx < K_LANGUAGE_COUNT; ++g_languageIdx)
        codes << localized(TXT_VANTU_LANGUAGES);
    QCOMPARE(codes.join(QLatin1Char(' ')), QStringLiteral("EN FR DE IT SP"));
}

void tst_Texts::accents_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, int language, const auto &table, const QString &expected) {
        g_languageIdx = language;
        QTest::newRow(name) << language << localized(table) << expected;
    };
    row("capital A grave and a trailing blank", 1, TXT_SEND_TO, QStringLiteral("\u00C0: "));
    row("trailing blank", 4, TXT_SEND_TO, QStringLiteral("Para: "));
    row("umlaut and full stop", 2, TXT_NO_RECIEPIENTS,
        QStringLiteral("W\u00E4hle bitte mindestens einen Empf\u00E4nger."));
    row("no full stop in English", 0, TXT_NO_RECIEPIENTS, QStringLiteral("Please select at least one recipient"));
    row("ellipsis is three dots", 2, TXT_LOADING, QStringLiteral("L\u00E4dt..."));
    row("i acute", 4, TXT_EMPTY_MESSAGE, QStringLiteral("No puedes enviar un mensaje vac\u00EDo."));
    row("n tilde", 4, TXT_ADD_FRIEND, QStringLiteral("A\u00F1adir como amigo"));
    row("o umlaut", 2, TXT_DELETE_FRIEND, QStringLiteral("Freund l\u00F6schen"));
    row("u umlaut", 2, TXT_BACK, QStringLiteral("Zur\u00FCck"));
    row("a acute", 4, TXT_BACK, QStringLiteral("Atr\u00E1s"));
    row("capital E without accent", 1, TXT_RATE, QStringLiteral("Evaluer"));
    row("straight apostrophe", 1, TXT_RATE_DOWN, QStringLiteral("Je n'aime pas"));
    row("another phrase in German", 2, TXT_RECOMMEND_VIA, QStringLiteral("W\u00E4hle eine Option"));
}

void tst_Texts::accents()
{
    QFETCH(QString, text);
    QTEST(text, "expected");
}

void tst_Texts::rowsAreLatin1PaddedWithZeros()
{
    const QByteArray french(TXT_SEND_TO.rows[1], sizeof TXT_SEND_TO.rows[1]);
    QCOMPARE(french, QByteArray("\xC0: \0\0\0\0\0", 8));
}

QTEST_APPLESS_MAIN(tst_Texts)
#include "tst_texts.moc"
