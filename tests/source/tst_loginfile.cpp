#include "encode.h"
#include "loginfile.h"

#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// While it lives, this process cannot write a single byte to a file, as on a full disk.
class FullDisk {
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_saved);
        const rlimit none = {0, m_saved.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_saved); }
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_saved;
};

} // namespace

/// The stored login: its scrambling, the format of its file and the care taken with it.
class tst_LoginFile : public QObject {
    Q_OBJECT

private slots:
    void init();

    void scramblingComesBack();
    void scramblingWritesItsBytesAndAZero();
    void recordsByteForByte();
    void storedText_data();
    void storedText();
    void damagedFileIsNoLogin_data();
    void damagedFileIsNoLogin();

    void fileIsItsOwnersOnly();
    void fileIsReplacedWholeOrNotAtAll();
    void linkIsFollowed();
    void fileOfAnotherKindIsLeftAlone_data();
    void fileOfAnotherKindIsLeftAlone();
    void missingFileIsNoLogin();
    void clearingLeavesAnEmptyFile();

private:
    QString path(const char *name = "login") const { return m_folder->filePath(QString::fromLatin1(name)); }

    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_LoginFile::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

void tst_LoginFile::scramblingComesBack()
{
    QByteArray text;
    for (int length = 0; length <= 300; ++length, text.append(static_cast<char>(length * 7))) {
        QByteArray scrambled(length + 1, 'x');
        QByteArray plain(length + 1, 'x');
        encode(text.constData(), scrambled.data(), length);
        decode(scrambled.constData(), plain.data(), length);
        QCOMPARE(plain, text + '\0');
    }
}

void tst_LoginFile::scramblingWritesItsBytesAndAZero()
{
    for (const auto routine : {encode, decode, reverse}) {
        char buffer[] = "......";
        routine("abc", buffer, 3);
        QCOMPARE(buffer[3], '\0');
        QCOMPARE(buffer[4], '.');
        char untouched[] = "......";
        routine("abc", untouched, -1);
        QCOMPARE(QByteArray(untouched), QByteArray("......"));
    }
    char reversed[4];
    reverse("abc", reversed, 3);
    QCOMPARE(QByteArray(reversed), QByteArray("cba"));
}

void tst_LoginFile::recordsByteForByte()
{
    const QByteArray records
        = loginRecords({QStringLiteral("alice"), QStringLiteral("secret1234"), QStringLiteral("1")});
    QCOMPARE(records.toHex(' '),
             hex("03000000"
                 "05000000"
                 "080f0c1910"
                 "0a000000"
                 "514053431b081e061002"
                 "01000000"
                 "40")
                 .toHex(' '));
    // Equal letters eight places apart scramble to zero, and an empty text is its length alone.
    QCOMPARE(loginRecords({QString(9, QLatin1Char('q')), QString(), QString()}).toHex(' '),
             hex("03000000"
                 "09000000"
                 "0010031e1c1d140400"
                 "00000000"
                 "00000000")
                 .toHex(' '));
}

void tst_LoginFile::storedText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");
    const auto same = [](const char *name, const QString &text) { QTest::newRow(name) << text << text; };
    same("empty", QString());
    for (const int length : {1, 7, 8, 9, 16, 17, 254, 255})
        same(qPrintable(QStringLiteral("%1 letters").arg(length)), QString(length, QLatin1Char('a')));
    same("Latin-1", QStringLiteral("\u00E9\u00FF\u0080 \u00D1"));
    same("single percent signs", QStringLiteral("100% %s %n %d"));
    QTest::newRow("two percent signs") << QStringLiteral("100%%") << QStringLiteral("100%");
    QTest::newRow("three percent signs") << QStringLiteral("%%%") << QStringLiteral("%%");
    QTest::newRow("four percent signs") << QStringLiteral("%%%%") << QStringLiteral("%%");
    QTest::newRow("outside Latin-1") << QStringLiteral("5 \u20AC") << QStringLiteral("5 ?");
    QTest::newRow("zero inside") << QStringLiteral("ab") + QChar(0) + QStringLiteral("c") << QStringLiteral("ab");
    QTest::newRow("256 letters") << QString(256, QLatin1Char('z')) << QString(255, QLatin1Char('z'));
    QTest::newRow("cut after the percent signs") << QStringLiteral("%%") + QString(255, QLatin1Char('z'))
                                                 << QStringLiteral("%") + QString(254, QLatin1Char('z'));
}

void tst_LoginFile::storedText()
{
    QFETCH(QString, text);
    QVERIFY(writeLoginFile(path(), loginRecords({text, QStringLiteral("between"), text})));
    const auto login = parseLoginRecords(readLoginFile(path()));
    QVERIFY(login.has_value());
    QTEST(login->username, "stored");
    QCOMPARE(login->password, QStringLiteral("between"));
    QTEST(login->rememberMe, "stored");
}

void tst_LoginFile::damagedFileIsNoLogin_data()
{
    QTest::addColumn<QByteArray>("contents");
    const QByteArray sound = hex("03000000"
                                 "01000000"
                                 "10"
                                 "01000000"
                                 "10"
                                 "00000000");
    QVERIFY(parseLoginRecords(sound).has_value());
    for (int length = 0; length < sound.size(); ++length)
        QTest::addRow("cut to %d bytes", length) << sound.left(length);
    QTest::newRow("other count") << hex("02000000"
                                        "01000000"
                                        "10"
                                        "01000000"
                                        "10"
                                        "00000000");
    QTest::newRow("big-endian") << hex("00000003"
                                       "00000001"
                                       "10"
                                       "00000001"
                                       "10"
                                       "00000000");
    QTest::newRow("length 256") << hex("03000000"
                                       "00010000")
            + QByteArray(256, 'x')
            + hex("00000000"
                  "00000000");
    QTest::newRow("huge length") << hex("03000000"
                                        "ffffff7f"
                                        "10"
                                        "01000000"
                                        "10"
                                        "00000000");
    QTest::newRow("negative length") << hex("03000000"
                                            "ffffffff"
                                            "10"
                                            "01000000"
                                            "10"
                                            "00000000");
    QTest::newRow("something behind") << sound + '\0';
    QTest::newRow("noise") << QByteArray(4096, '\xA5');
}

void tst_LoginFile::damagedFileIsNoLogin()
{
    QFETCH(QByteArray, contents);
    QVERIFY(!parseLoginRecords(contents).has_value());
    QVERIFY(writeLoginFile(path(), contents));
    QVERIFY(!parseLoginRecords(readLoginFile(path())).has_value());
}

void tst_LoginFile::fileIsItsOwnersOnly()
{
    const mode_t previous = umask(0);
    QFile old(path());
    QVERIFY(old.open(QIODevice::WriteOnly));
    QVERIFY(writeLoginFile(path(), "new"));
    QVERIFY(clearLoginFile(path("cleared")));
    umask(previous);
    for (const char *name : {"login", "cleared"}) {
        struct stat status;
        QCOMPARE(stat(QFile::encodeName(path(name)).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777U, 0600U);
    }
}

void tst_LoginFile::fileIsReplacedWholeOrNotAtAll()
{
    QVERIFY(writeLoginFile(path(), "old"));
    {
        const FullDisk disk;
        QVERIFY(!writeLoginFile(path(), "new"));
    }
    QCOMPARE(contentsOf(path()), QByteArray("old"));
    QVERIFY(writeLoginFile(path(), "new"));
    QCOMPARE(contentsOf(path()), QByteArray("new"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList(QStringLiteral("login")));
    QVERIFY(!writeLoginFile(path("missing/login"), "new"));
}

void tst_LoginFile::linkIsFollowed()
{
    QVERIFY(QFile::link(path("target"), path()));
    for (const char *contents : {"first", "second"}) {
        QVERIFY(writeLoginFile(path(), contents));
        QCOMPARE(contentsOf(path("target")), QByteArray(contents));
    }
    QVERIFY(QFileInfo(path()).isSymLink());
}

void tst_LoginFile::fileOfAnotherKindIsLeftAlone_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("pipe") << QStringLiteral("pipe");
    QTest::newRow("folder") << QStringLiteral("folder");
    QTest::newRow("endless device") << QStringLiteral("/dev/zero");
    QTest::newRow("huge file") << QStringLiteral("huge");
}

void tst_LoginFile::fileOfAnotherKindIsLeftAlone()
{
    QFETCH(QString, file);
    const QString name = QDir(m_folder->path()).absoluteFilePath(file);
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QVERIFY(QFile(path("huge")).open(QIODevice::WriteOnly) && QFile::resize(path("huge"), 1LL << 40));

    QCOMPARE(readLoginFile(name), QByteArray());
    if (!QFileInfo(name).isFile()) {
        QVERIFY(!writeLoginFile(name, "new"));
        QVERIFY(!QFileInfo(name).isFile());
    }
}

void tst_LoginFile::missingFileIsNoLogin()
{
    QVERIFY(!parseLoginRecords(readLoginFile(path())).has_value());
    QVERIFY(!QFile::exists(path()));
}

void tst_LoginFile::clearingLeavesAnEmptyFile()
{
    QVERIFY(writeLoginFile(path(), loginRecords({})));
    QVERIFY(clearLoginFile(path()));
    QCOMPARE(contentsOf(path()), QByteArray());
    QVERIFY(!parseLoginRecords(readLoginFile(path())).has_value());
    QVERIFY(!clearLoginFile(path("missing/login")));
}

QTEST_APPLESS_MAIN(tst_LoginFile)
#include "tst_loginfile.moc"
