// clsHuffman: the backup's compressor, a static Huffman coder over bytes that packs into the
// HE3 format (or its stored variant HE0) and unpacks from it, wholly in memory.
#pragma once

#include <QByteArray>
#include <QString>

#include "runtime/prompt.h"
#include "safety/huffman_progress.h"

namespace ostravel {

class clsHuffman {
public:
    // The event Huffman_Progress: the percentage done, 0 to 100, given only when it changes.
    he3::ProgressHandler Huffman_Progress;

    // Packs the file at `source` into `destination` and tells the user the backup is saved.
    void EncodeFile(const QString& source, const QString& destination, Prompt& prompt);
    // Unpacks the file at `source` into `destination`, then puts it in place of the live
    // database.
    void DecodeFile(const QString& source, const QString& destination, Prompt& prompt);
    // Replaces `bytes` by the packed form of its first `byteCount` bytes.
    void EncodeByte(QByteArray& bytes, qsizetype byteCount);
    QString DecodeString(const QString& text);
    QString EncodeString(const QString& text);
    // Replaces `bytes` by the plain data its first `byteCount` bytes hold; on an error `bytes`
    // stays as it was.
    void DecodeByte(QByteArray& bytes, qsizetype byteCount);
};

}  // namespace ostravel
