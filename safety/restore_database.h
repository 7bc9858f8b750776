// Bringing a backup back: unpacked beside the live database, checked, then put in its place in
// one step while the store is closed, and the store opened on it again. Whatever goes wrong
// before the swap leaves the live database and the open store as they were.
#pragma once

#include <QString>

namespace ostravel {

class Store;
class clsHuffman;

// Where the backup is unpacked to; it stays there after a restore.
inline const QString kRestoredCopy = QStringLiteral("database/ostravel_bk.mdb");

// Unpacks the backup at `source` with `huffman` (whose progress event fires) into
// ostravel_bk.mdb, and makes it the live database. Raises "Source file does not exist", the
// coder's errors for a file that is no backup or is damaged, and DatabaseUnusable for one that
// holds no database of the program.
void restoreDatabase(Store& store, clsHuffman& huffman, const QString& source);

}  // namespace ostravel
