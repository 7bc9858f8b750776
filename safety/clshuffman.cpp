#include "safety/clshuffman.h"

#include "runtime/apppath.h"
#include "runtime/vberror.h"
#include "safety/he3_format.h"
#include "safety/he3_pack.h"
#include "safety/he3_unpack.h"
#include "safety/whole_file.h"

namespace ostravel {

namespace {

const std::uint8_t* bytesOf(const QByteArray& bytes) {
    return reinterpret_cast<const std::uint8_t*>(bytes.constData());
}

void checkByteCount(const QByteArray& bytes, qsizetype byteCount) {
    if (byteCount < 0 || byteCount > bytes.size())
        raise(err::SubscriptOutOfRange);
}

// Reads the source whole, or raises "Source file does not exist" as the file operations do.
QByteArray readSource(const QString& path, const QString& operation) {
    if (!fileExists(path))
        raise(he3::kObjectErrorBase, QStringLiteral("Source file does not exist"), operation);
    return readWholeFile(path, operation);
}

// Writes the result; a device that is not ready is told to the user rather than raised.
bool writeResult(const QString& path, const QByteArray& bytes, const QString& operation, Prompt& prompt) {
    try {
        replaceFile(path, bytes, operation);
        return true;
    } catch (const VbError& e) {
        if (e.number() != err::DiskNotReady)
            throw;
        // The texts speak of drive A: whatever the drive was.
        prompt.message(QStringLiteral("Please insert a disk to backup your data"), Buttons::OK, Icon::Exclamation,
                       QStringLiteral("There is no discette in drive A:"));
        return false;
    }
}

}  // namespace

void clsHuffman::EncodeFile(const QString& source, const QString& destination, Prompt& prompt) {
    const QString operation = QStringLiteral("clsHuffman.EncodeFile()");
    QByteArray bytes = readSource(source, operation);
    EncodeByte(bytes, bytes.size());
    if (!writeResult(destination, bytes, operation, prompt))
        return;
    prompt.message(QStringLiteral("Your database is now Backed up and saved.\r\nRemember to Back your database weekly"),
                   Buttons::OK, Icon::Information, QStringLiteral("Ostravel"));
}

void clsHuffman::DecodeFile(const QString& source, const QString& destination, Prompt& prompt) {
    const QString operation = QStringLiteral("clsHuffman.DecodeFile()");
    QByteArray bytes = readSource(source, operation);
    DecodeByte(bytes, bytes.size());
    if (!writeResult(destination, bytes, operation, prompt))
        return;
    replaceFile(appFile(QStringLiteral("database/ostravel.mdb")), bytes, operation);
}

void clsHuffman::EncodeByte(QByteArray& bytes, qsizetype byteCount) {
    checkByteCount(bytes, byteCount);
    if (byteCount > he3::kMaxPlainSize)
        raise(err::Overflow);
    he3::ProgressGauge progress(Huffman_Progress);
    bytes = he3::pack(bytesOf(bytes), byteCount, progress);
}

void clsHuffman::DecodeByte(QByteArray& bytes, qsizetype byteCount) {
    checkByteCount(bytes, byteCount);
    he3::ProgressGauge progress(Huffman_Progress);
    bytes = he3::unpack(bytesOf(bytes), byteCount, progress);
}

// Text goes through a one-byte code page in which every byte has a character of its own, so
// packed bytes survive the trip through a string.
QString clsHuffman::EncodeString(const QString& text) {
    QByteArray bytes = text.toLatin1();
    EncodeByte(bytes, bytes.size());
    return QString::fromLatin1(bytes);
}

QString clsHuffman::DecodeString(const QString& text) {
    QByteArray bytes = text.toLatin1();
    DecodeByte(bytes, bytes.size());
    return QString::fromLatin1(bytes);
}

}  // namespace ostravel
