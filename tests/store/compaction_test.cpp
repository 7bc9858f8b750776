#include "store/compaction.h"

#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QMap>
#include <stdexcept>

#include "store/dberrors.h"
#include "store/store.h"
#include "tests/store/storetestsupport.h"

namespace ostravel::test {
namespace {

using Counts = QMap<QString, long long>;

const CompactionPoint kEveryPoint[] = {CompactionPoint::RemoveStaleCopy,   CompactionPoint::CompactIntoCopy,
                                       CompactionPoint::VerifyCopy,        CompactionPoint::WriteReplacement,
                                       CompactionPoint::VerifyReplacement, CompactionPoint::ReplaceLive,
                                       CompactionPoint::RemoveCopy};

Counts counts(Database& db) {
    Counts result;
    for (const QString& table : db.tableNames()) result.insert(table, db.rowCount(table));
    return result;
}

// What the next start finds: the database opened as connection opens it.
Counts countsAtNextStart(const QString& path) {
    Database db;
    openLiveDatabase(db, path);
    return counts(db);
}

class CompactionTest : public ::testing::Test {
protected:
    void SetUp() override {
        addSampleData(store.db);
        // Rows written and removed again leave free pages for the compaction to drop.
        {
            Transaction work(store.db, QStringLiteral("Test"));
            for (int i = 0; i < 400; ++i)
                store.db.execute(
                    QStringLiteral("insert into simulation (date, Close, EquitySymbol) values (#1/3/2005#, %1, 'INFY')")
                        .arg(i));
            work.commit();
        }
        store.db.execute(QStringLiteral("delete * from simulation where Close >= 10"));
        expected = counts(store.db);
        store.db.close();
        copy = compactionCopyPath(store.path);
    }
    ScratchDatabase store;
    Counts expected;
    QString copy;
};

// The copy lies beside the live file, is there from the replacement on, and goes at the end.
TEST_F(CompactionTest, CompactsKeepingEveryRowThroughACopyAndLeavesOnlyTheLiveFile) {
    EXPECT_EQ(QFileInfo(copy).fileName(), QStringLiteral("ostraveltemp.mdb"));
    EXPECT_EQ(QFileInfo(copy).path(), QFileInfo(store.path).path());
    const qint64 before = QFileInfo(store.path).size();
    std::vector<CompactionPoint> seen;
    QStringList copies;
    compactDatabase(store.path, [&](CompactionPoint point) {
        seen.push_back(point);
        if (point == CompactionPoint::WriteReplacement || point == CompactionPoint::RemoveCopy)
            copies << (QFileInfo::exists(copy) ? QStringLiteral("copy") : QStringLiteral("no copy"));
    });
    EXPECT_EQ(seen, std::vector<CompactionPoint>(std::begin(kEveryPoint), std::end(kEveryPoint)));
    EXPECT_EQ(copies, (QStringList{QStringLiteral("copy"), QStringLiteral("copy")}));
    EXPECT_LT(QFileInfo(store.path).size(), before);
    EXPECT_EQ(countsAtNextStart(store.path), expected);
    EXPECT_EQ(QDir(QFileInfo(store.path).path()).entryList(QDir::Files), QStringList{QStringLiteral("ostravel.mdb")});
}

class FailingStep : public CompactionTest, public ::testing::WithParamInterface<CompactionPoint> {};

TEST_P(FailingStep, LeavesAWholeDatabase) {
    EXPECT_THROW(compactDatabase(store.path,
                                 [](CompactionPoint point) {
                                     if (point == GetParam())
                                         throw std::runtime_error("step failed");
                                 }),
                 std::runtime_error);
    EXPECT_EQ(countsAtNextStart(store.path), expected);
    EXPECT_FALSE(QFileInfo::exists(store.path + QStringLiteral(".compact")));
    // And the next exit compacts as usual.
    compactDatabase(store.path);
    EXPECT_EQ(countsAtNextStart(store.path), expected);
    EXPECT_FALSE(QFileInfo::exists(copy));
}

// The process dies inside the step: the next start must still find every row.
TEST_P(FailingStep, CrashLeavesAWholeDatabase) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        try {
            compactDatabase(store.path, [](CompactionPoint point) {
                if (point == GetParam())
                    _exit(0);
            });
        } catch (...) {
            _exit(2);
        }
        _exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_EQ(WEXITSTATUS(status), 0) << "the child did not reach the step";
    EXPECT_EQ(countsAtNextStart(store.path), expected);
    compactDatabase(store.path);
    EXPECT_EQ(countsAtNextStart(store.path), expected);
}

INSTANTIATE_TEST_SUITE_P(EveryStep, FailingStep, ::testing::ValuesIn(kEveryPoint));

TEST_F(CompactionTest, CopyLeftByAnEarlierCrashIsReplaced) {
    writeBytes(copy, QByteArray("half a copy"));
    compactDatabase(store.path);
    EXPECT_FALSE(QFileInfo::exists(copy));
    EXPECT_EQ(countsAtNextStart(store.path), expected);
}

TEST_F(CompactionTest, CopyLeftWithoutALiveFileBecomesTheLiveFileAgain) {
    ASSERT_TRUE(QFile::rename(store.path, copy));
    EXPECT_EQ(errorOf([&] { compactDatabase(store.path); }), dberr::CouldNotFindFile);
    EXPECT_TRUE(QFileInfo::exists(copy));
    EXPECT_EQ(countsAtNextStart(store.path), expected);
    EXPECT_FALSE(QFileInfo::exists(copy));
}

TEST_F(CompactionTest, UnsoundCopyWithoutALiveFileIsLeftAlone) {
    ASSERT_TRUE(QFile::remove(store.path));
    writeBytes(copy, QByteArray("half a copy"));
    recoverCompactionCopy(store.path);
    EXPECT_FALSE(QFileInfo::exists(store.path));
    EXPECT_EQ(fileBytes(copy), QByteArray("half a copy"));
}

TEST_F(CompactionTest, RefusedWhileAnUnfinishedWriteIsBesideTheFile) {
    const QByteArray before = fileBytes(store.path);
    const QString journal = store.path + QStringLiteral("-journal");
    writeBytes(journal, QByteArray(512, '\0'));
    writeBytes(copy, QByteArray("earlier copy"));
    EXPECT_EQ(errorOf([&] { compactDatabase(store.path); }), dberr::FileInUse);
    EXPECT_EQ(fileBytes(store.path), before);
    EXPECT_EQ(fileBytes(copy), QByteArray("earlier copy"));
    QFile::remove(journal);
}

}  // namespace
}  // namespace ostravel::test
