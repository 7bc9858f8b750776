#include "safety/restore_database.h"

#include <QFile>
#include <QFileInfo>
#include <optional>

#include "runtime/apppath.h"
#include "safety/clshuffman.h"
#include "safety/he3_format.h"
#include "safety/restore_check.h"
#include "safety/whole_file.h"
#include "store/dberrors.h"
#include "store/durablefile.h"
#include "store/filecheck.h"
#include "store/store.h"

namespace ostravel {

namespace {

// The restore is the coder's DecodeFile made safe; its errors keep that operation's name.
const QString kOperation = QStringLiteral("clsHuffman.DecodeFile()");

QByteArray unpackBackup(clsHuffman& huffman, const QString& source) {
    if (!fileExists(source))
        raise(he3::kObjectErrorBase, QStringLiteral("Source file does not exist"), kOperation);
    QByteArray bytes = readWholeFile(source, kOperation);
    huffman.DecodeByte(bytes, bytes.size());
    return bytes;
}

// Writes `content` in place of the live file in one step and makes the new name durable.
void putInPlace(const QString& live, const QByteArray& content) {
    replaceFile(live, content, kOperation);
    syncFolder(QFileInfo(live).absolutePath());
}

// Runs connection; whether the database is open afterwards.
bool opens(Store& store) {
    try {
        store.connection();
    } catch (const DatabaseUnusable&) {
        return false;
    }
    return store.database().isOpen();
}

}  // namespace

void restoreDatabase(Store& store, clsHuffman& huffman, const QString& source) {
    const QByteArray restored = unpackBackup(huffman, source);
    // Kept: the unpacked copy stays under database/ after a good restore.
    const QString copy = appFile(kRestoredCopy);
    replaceFile(copy, restored, kOperation);
    try {
        checkRestoredDatabase(copy);
    } catch (const VbError&) {
        // What it holds is no database of the program: nothing is left under the database's name.
        QFile::remove(copy);
        throw;
    }

    const QString live = appFile(kLiveDatabase);
    store.closeDatabase();
    try {
        // A journal beside the live file would be played back into the restored one.
        if (hasHotJournal(live))
            raise(dberr::FileInUse, QStringLiteral("The database '") + live +
                                        QStringLiteral("' has an unfinished write and is not replaced now."));
        const std::optional<QByteArray> previous =
            fileExists(live) ? std::optional(readWholeFile(live, kOperation)) : std::nullopt;
        putInPlace(live, restored);
        if (!opens(store)) {
            // The restored file would not open after all: the old state comes back.
            if (previous)
                putInPlace(live, *previous);
            else
                removeFile(live);
            store.connection();
            raise(dberr::CannotOpen, QStringLiteral("Can't open database '") + copy + QStringLiteral("'."));
        }
    } catch (...) {
        if (!store.database().isOpen())
            store.connection();
        throw;
    }
}

}  // namespace ostravel
