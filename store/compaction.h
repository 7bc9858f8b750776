// The compaction at exit, done so that no step can lose data: the live file is only ever
// replaced, in one step, by a complete copy that has been written to the disk and checked.
//
// The files come and go in the program's order: ostraveltemp.mdb is removed if an earlier
// run left it, the live file is compacted into it, the live file is replaced by a compaction of
// that copy, and the copy is removed.
#pragma once

#include <QString>
#include <functional>

namespace ostravel {

// The moments of the compaction, in order; a hook sees each before it happens.
enum class CompactionPoint {
    RemoveStaleCopy,    // before the copy an earlier run left is removed
    CompactIntoCopy,    // before the live file is compacted into the copy
    VerifyCopy,         // the copy is written, not yet synced and checked
    WriteReplacement,   // before the copy is compacted into the live file's replacement
    VerifyReplacement,  // the replacement is written, not yet synced and checked
    ReplaceLive,        // the replacement is checked, the live file not yet replaced
    RemoveCopy,         // the live file is replaced; before the copy is removed
};

using CompactionHook = std::function<void(CompactionPoint)>;

// "ostraveltemp.mdb" beside "ostravel.mdb".
QString compactionCopyPath(const QString& livePath);

// Compacts the closed live database. Refuses, changing nothing, when the live file is missing
// or while a journal of an unfinished write lies beside it. Raises VbError when it refuses or a step fails;
// whatever the failure, the live file is the old one or the compacted one, whole.
void compactDatabase(const QString& livePath, const CompactionHook& hook = {});

// When a crash of another program left the copy but no live file, the copy becomes the live
// file again; a copy that is no sound database is left where it is.
void recoverCompactionCopy(const QString& livePath);

}  // namespace ostravel
