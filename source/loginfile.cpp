// SPDX-License-Identifier: MIT
#include "loginfile.h"

#include "encode.h"
#include "globaldefine.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <array>
#include <cstdio>
#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint32 recordCount = 3;
constexpr int recordMax = 255;
constexpr int fileMax = 4 + recordCount * (4 + recordMax);
/// Between the name of a file and what makes the name of its successor its own, until that takes its place.
const QLatin1String temporaryInfix(".saving-");

/// Room for a record and the zero byte that the scrambling puts behind it.
using Buffer = std::array<char, recordMax + 1>;

QByteArray recordText(const QString &text)
{
    QByteArray bytes = text.toLatin1();
    bytes.replace("%%", "%");
    bytes.truncate(static_cast<int>(qstrnlen(bytes.constData(), static_cast<uint>(bytes.size()))));
    bytes.truncate(recordMax);
    return bytes;
}

void writeRecord(QDataStream &out, const QString &text)
{
    const QByteArray plain = recordText(text);
    Buffer scrambled;
    Buffer record;
    encode(plain.constData(), scrambled.data(), plain.size());
    reverse(scrambled.data(), record.data(), plain.size());
    out << qint32(plain.size());
    out.writeRawData(record.data(), plain.size());
}

bool readRecord(QDataStream &in, QString *text)
{
    qint32 length = -1;
    in >> length;
    if (in.status() != QDataStream::Ok || length < 0 || length > recordMax)
        return false;
    Buffer record;
    Buffer scrambled;
    if (in.readRawData(record.data(), length) != length)
        return false;
    reverse(record.data(), scrambled.data(), length);
    decode(scrambled.data(), record.data(), length);
    *text = QString::fromLatin1(record.data());
    return true;
}

/// Where @p path leads in the end, also when nothing is there yet.
QString linkTarget(QString path)
{
    constexpr int linksMax = 40; // As many as the system follows; more are a circle, which cannot be opened.
    QFileInfo file(path);
    for (int i = 0; i < linksMax && file.isSymLink(); ++i)
        file.setFile(file.symLinkTarget());
    return file.filePath();
}

/// A run that was killed while it saved has left these beside @p target.
void removeStaleFiles(const QString &target)
{
    const QFileInfo file(target);
    const QDir folder = file.dir();
    const auto stale
        = folder.entryList({file.fileName() + temporaryInfix + QLatin1String("??????")}, QDir::Files | QDir::Hidden);
    for (const QString &name : stale)
        QFile::remove(folder.filePath(name));
}

enum class Replacement { Done, Failed, NotInThisFolder };

/// Puts a new file with @p contents in the place of @p target.
Replacement replaceFile(const QString &target, const QByteArray &contents)
{
    removeStaleFiles(target);
    // QSaveFile would create its file readable by others and only then narrow the permissions.
    QTemporaryFile file(target + temporaryInfix + QLatin1String("XXXXXX"));
    if (!file.open())
        return Replacement::NotInThisFolder;
    if (file.write(contents) != contents.size() || !file.flush() || fsync(file.handle()) != 0)
        return Replacement::Failed;
    if (std::rename(QFile::encodeName(file.fileName()).constData(), QFile::encodeName(target).constData()) != 0)
        return Replacement::NotInThisFolder;
    file.setAutoRemove(false);
    return Replacement::Done;
}

/// Deliberately in place, and so not all or nothing: the folder allows no more. What is cut off comes last, so that a
/// full disk leaves the old contents.
bool overwrite(int file, const QByteArray &contents)
{
    if (file != -1)
        fchmod(file, S_IRUSR | S_IWUSR);
    return file != -1 && write(file, contents.constData(), static_cast<size_t>(contents.size())) == contents.size()
        && ftruncate(file, contents.size()) == 0 && fsync(file) == 0;
}

QByteArray records(const StoredLogin &login)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << recordCount;
    writeRecord(out, login.username);
    writeRecord(out, login.password);
    writeRecord(out, login.rememberMe);
    return bytes;
}

std::optional<StoredLogin> parseRecords(const QByteArray &bytes)
{
    QDataStream in(bytes);
    in.setByteOrder(QDataStream::LittleEndian);
    qint32 count = 0;
    in >> count;
    StoredLogin login;
    if (count != recordCount || !readRecord(in, &login.username) || !readRecord(in, &login.password)
        || !readRecord(in, &login.rememberMe))
        return std::nullopt;
    return login;
}

QByteArray readFile(const QString &path)
{
    // Non-blocking: opening a pipe that nobody writes to would otherwise wait for ever.
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    QFile file;
    struct stat status = {};
    if (descriptor == -1 || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)
        || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    return file.read(fileMax);
}

} // namespace

QString loginFilePath()
{
    return QFile::decodeName(K_LOGIN_FILE);
}

std::optional<StoredLogin> loadLogin(const QString &path)
{
    return parseRecords(readFile(path));
}

bool storeLogin(const QString &path, const StoredLogin &login)
{
    const QByteArray contents = records(login);
    const QString target = linkTarget(path);
    const int existing = open(QFile::encodeName(target).constData(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    // Deliberately left alone when it may not be written, although its folder would let it be replaced.
    if (existing == -1 && errno != ENOENT)
        return false;
    struct stat status = {};
    const bool isPlain = existing == -1 || (fstat(existing, &status) == 0 && S_ISREG(status.st_mode));
    const Replacement done = isPlain ? replaceFile(target, contents) : Replacement::Failed;
    const bool isWritten
        = done == Replacement::Done || (done == Replacement::NotInThisFolder && overwrite(existing, contents));
    if (existing != -1)
        close(existing);
    return isWritten;
}

bool forgetLogin(const QString &path)
{
    const int descriptor = open(QFile::encodeName(path).constData(),
                                O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return descriptor != -1 && close(descriptor) == 0;
}
