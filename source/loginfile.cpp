// SPDX-License-Identifier: MIT
#include "loginfile.h"

#include "encode.h"
#include "globaldefine.h"

#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <array>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint32 K_RECORD_COUNT = 3;
constexpr int K_RECORD_MAX = 255;
constexpr int K_FILE_MAX = 4 + K_RECORD_COUNT * (4 + K_RECORD_MAX);

/// Room for a record and the zero byte that the scrambling puts behind it.
using Buffer = std::array<char, K_RECORD_MAX + 1>;

QByteArray recordText(const QString &text)
{
    QByteArray bytes = text.toLatin1();
    bytes.replace("%%", "%");
    bytes.truncate(static_cast<int>(qstrnlen(bytes.constData(), static_cast<uint>(bytes.size()))));
    bytes.truncate(K_RECORD_MAX);
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
    if (in.status() != QDataStream::Ok || length < 0 || length > K_RECORD_MAX)
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

} // namespace

QString loginFilePath()
{
    return QFile::decodeName(K_LOGIN_FILE);
}

QByteArray loginRecords(const StoredLogin &login)
{
    QByteArray records;
    QDataStream out(&records, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << K_RECORD_COUNT;
    writeRecord(out, login.username);
    writeRecord(out, login.password);
    writeRecord(out, login.rememberMe);
    return records;
}

std::optional<StoredLogin> parseLoginRecords(const QByteArray &records)
{
    QDataStream in(records);
    in.setByteOrder(QDataStream::LittleEndian);
    qint32 count = 0;
    in >> count;
    StoredLogin login;
    if (count != K_RECORD_COUNT || !readRecord(in, &login.username) || !readRecord(in, &login.password)
        || !readRecord(in, &login.rememberMe) || !in.atEnd())
        return std::nullopt;
    return login;
}

bool writeLoginFile(const QString &path, const QByteArray &contents)
{
    const QFileInfo existing(path);
    if (existing.exists() && !existing.isFile())
        return false;
    const QString target = existing.exists() ? existing.canonicalFilePath()
        : existing.isSymLink()               ? existing.symLinkTarget()
                                             : path;
    // QSaveFile would create its file readable by others and only then narrow the permissions.
    QTemporaryFile file(target + QLatin1String(".XXXXXX"));
    if (!file.open() || file.write(contents) != contents.size() || !file.flush() || fsync(file.handle()) != 0)
        return false;
    if (std::rename(QFile::encodeName(file.fileName()).constData(), QFile::encodeName(target).constData()) != 0)
        return false;
    file.setAutoRemove(false);
    return true;
}

QByteArray readLoginFile(const QString &path)
{
    // Non-blocking: opening a pipe that nobody writes to would otherwise wait for ever.
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    QFile file;
    struct stat status = {};
    if (descriptor == -1 || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)
        || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > K_FILE_MAX)
        return {};
    return file.read(K_FILE_MAX);
}

bool clearLoginFile(const QString &path)
{
    const int descriptor = open(QFile::encodeName(path).constData(),
                                O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return descriptor != -1 && close(descriptor) == 0;
}
