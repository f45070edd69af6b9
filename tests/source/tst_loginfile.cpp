// SPDX-License-Identifier: MIT
#include "encode.h"
#include "loginfile.h"
#include "testing.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

bool store(const QString &path, const char *name)
{
    return storeLogin(path, {QString::fromLatin1(name), QString(), QString()});
}

QString stored(const QString &path)
{
    return loadLogin(path).value_or(StoredLogin{}).username;
}

/// While what it returns lives, this process cannot write a single byte to a file, as on a full disk.
auto fullDisk()
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit saved{};
    getrlimit(RLIMIT_FSIZE, &saved);
    const rlimit none = {0, saved.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
    return qScopeGuard([saved] { setrlimit(RLIMIT_FSIZE, &saved); });
}

/// While what it returns lives, permissions count for this process also where the tests run as root.
auto laidDownRights()
{
    const uid_t saved = geteuid();
    if (saved == 0 && seteuid(65534) != 0)
        qFatal("Root's rights cannot be laid down");
    return qScopeGuard([saved] {
        if (seteuid(saved) != 0)
            qFatal("The rights cannot be taken back");
    });
}

} // namespace

/// The stored login: its scrambling, the format of its file and the care taken with it.
class tst_LoginFile : public QObject {
    Q_OBJECT

private slots:
    void init() { m_folder.reset(new QTemporaryDir); }

    void scramblingWritesItsBytesAndAZero()
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
    }

    void recordsByteForByte()
    {
        QVERIFY(storeLogin(path(), {"alice"_s, "secret1234"_s, "1"_s}));
        QCOMPARE(contentsOf(path()).toHex(),
                 QByteArray("03000000 05000000 080f0c1910 0a000000 514053431b081e061002 01000000 40").replace(' ', ""));
    }

    void storedText()
    {
        const auto letters = [](int length) { return QString(length, QLatin1Char('z')); };
        QVector<QPair<QString, QString>> texts{{letters(256), letters(255)},
                                               {"\u00E9\u00FF\u0080 \u00D1"_s, "\u00E9\u00FF\u0080 \u00D1"_s},
                                               {"5 \u20AC"_s, "5 ?"_s}, // no Latin-1
                                               {"ab"_s + QChar(0) + "c"_s, "ab"_s},
                                               {"%%%%"_s, "%%"_s},
                                               {"%%"_s + letters(255), "%"_s + letters(254)}};
        for (const int length : {0, 1, 7, 8, 9, 16, 17, 254, 255})
            texts.append({letters(length), letters(length)});
        for (const auto &[text, stored] : texts) {
            QVERIFY(storeLogin(path(), {text, "between"_s, text}));
            const auto login = loadLogin(path());
            QVERIFY2(login.has_value(), qPrintable(text));
            QCOMPARE(login->username, stored);
            QCOMPARE(login->password, "between"_s);
            QCOMPARE(login->rememberMe, stored);
        }
        // What follows in the file does not matter.
        QVERIFY(QFile::resize(path(), 1LL << 40));
        QCOMPARE(stored(path()), letters(255));
    }

    void damagedFileIsNoLogin()
    {
        const QByteArray sound = "03000000 01000000 10 01000000 10 00000000";
        QList<QByteArray> damaged{"02000000 01000000 10 01000000 10 00000000", // another count
                                  "00000003 00000001 10 00000001 10 00000000", // big-endian
                                  "03000000 ffffff7f 10 01000000 10 00000000", // a huge length
                                  "03000000 ffffffff 10 01000000 10 00000000", // a negative one
                                  "03000000 00010000" + QByteArray(256, '1').repeated(2) + QByteArray(16, '0')};
        for (int length = 0; length < sound.size(); ++length)
            damaged << sound.left(length);
        for (const QByteArray &contents : damaged) {
            QFile file(path());
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray::fromHex(contents)) >= 0);
            file.close();
            QVERIFY2(!loadLogin(path()).has_value(), contents);
        }
    }

    void permissionsAreRespected_data()
    {
        const Table<int, int, QString> row("file", "folder", "afterwards");
        row("file for reading only", 0444, 0777, "old"_s);
        row("folder for reading only", 0666, 0555, "new"_s);
        row("both for reading only", 0444, 0555, "old"_s);
    }
    void permissionsAreRespected()
    {
        QFETCH(int, file);
        QFETCH(int, folder);
        QVERIFY(store(path(), "old"));
        QVERIFY(QFile::link(path(), path("link")));
        chmod(QFile::encodeName(path()).constData(), static_cast<mode_t>(file));
        chmod(QFile::encodeName(m_folder->path()).constData(), static_cast<mode_t>(folder));
        {
            const auto user = laidDownRights();
            QCOMPARE(store(path("link"), "new"), file == 0666);
        }
        chmod(QFile::encodeName(m_folder->path()).constData(), 0700);
        QTEST(stored(path()), "afterwards");
        QVERIFY(QFileInfo(path("link")).isSymLink());
    }

    void killedRunLeavesNothingForLong()
    {
        for (const char *name : {"login.saving-AbCdEf", "login.backup", "other.saving-AbCdEf"})
            QVERIFY(QFile(path(name)).open(QIODevice::WriteOnly));
        QVERIFY(store(path(), "new"));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files),
                 (QStringList{"login"_s, "login.backup"_s, "other.saving-AbCdEf"_s}));
    }

    void fileIsItsOwnersOnly()
    {
        const mode_t previous = umask(0);
        QFile old(path());
        QVERIFY(old.open(QIODevice::WriteOnly));
        QVERIFY(store(path(), "new"));
        QVERIFY(forgetLogin(path("cleared")));
        umask(previous);
        for (const char *name : {"login", "cleared"}) {
            struct stat status;
            QCOMPARE(stat(QFile::encodeName(path(name)).constData(), &status), 0);
            QCOMPARE(status.st_mode & 07777U, 0600U);
        }
    }

    void fileIsReplacedWholeOrNotAtAll()
    {
        QVERIFY(store(path(), "old"));
        {
            const auto disk = fullDisk();
            QVERIFY(!store(path(), "new"));
        }
        QCOMPARE(stored(path()), "old"_s);
        QVERIFY(store(path(), "new"));
        QCOMPARE(stored(path()), "new"_s);
        QVERIFY(forgetLogin(path()));
        QCOMPARE(contentsOf(path()), QByteArray());
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList("login"_s));
        QVERIFY(!store(path("missing/login"), "new"));
        QVERIFY(!forgetLogin(path("missing/login")));
    }

    void linkIsFollowed()
    {
        // Over another link, to a file that is not there yet.
        QVERIFY(QFile::link(path("target"), path("between")));
        QVERIFY(QFile::link(path("between"), path()));
        for (const char *contents : {"first", "second"}) {
            QVERIFY(store(path(), contents));
            QCOMPARE(stored(path("target")), QString::fromLatin1(contents));
        }
        QVERIFY(QFileInfo(path()).isSymLink() && QFileInfo(path("between")).isSymLink());
    }

    void fileOfAnotherKindIsLeftAlone()
    {
        QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
        QVERIFY(QDir(m_folder->path()).mkdir("folder"_s));
        for (const QString &name : {path("pipe"), path("folder"), "/dev/zero"_s}) {
            QVERIFY2(!loadLogin(name).has_value() && !store(name, "new"), qPrintable(name));
            QVERIFY(QFileInfo::exists(name) && !QFileInfo(name).isFile());
        }
        QVERIFY(!loadLogin(path("missing")).has_value());
        QVERIFY(!QFileInfo::exists(path("missing")));
    }

private:
    QString path(const char *name = "login") const { return m_folder->filePath(QString::fromLatin1(name)); }

    QScopedPointer<QTemporaryDir> m_folder;
};

QTEST_APPLESS_MAIN(tst_LoginFile)
#include "tst_loginfile.moc"
