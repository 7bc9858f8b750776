#include <sqlite3.h>

#include "store/dberrors.h"
#include "store/sqliteconnection.h"
#include "tests/store/storetestsupport.h"

namespace ostravel::test {
namespace {

QString pragma(Database& db, const char* name) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db.connection()->handle(), (QByteArray("PRAGMA ") + name).constData(), -1, &statement, nullptr);
    sqlite3_step(statement);
    const QString value = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    sqlite3_finalize(statement);
    return value;
}

TEST(Database, OpensWithDurableSettings) {
    ScratchDatabase store;
    Database db;
    db.open(store.path);
    EXPECT_EQ(pragma(db, "journal_mode"), QStringLiteral("delete"));
    EXPECT_EQ(pragma(db, "synchronous"), QStringLiteral("2"));
    EXPECT_EQ(pragma(db, "foreign_keys"), QStringLiteral("1"));
}

TEST(Database, MissingFileIsNotMadeByOpen) {
    ScratchFolder folder;
    Database db;
    const QString path = folder.file(QStringLiteral("ostravel.mdb"));
    EXPECT_EQ(errorOf([&] { db.open(path); }), dberr::CouldNotFindFile);
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST(Database, CreateRefusesAnExistingFile) {
    ScratchDatabase store;
    addSampleData(store.db);
    store.db.close();
    const QByteArray before = fileBytes(store.path);
    Database db;
    EXPECT_EQ(errorOf([&] { db.create(store.path); }), dberr::DatabaseExists);
    EXPECT_EQ(fileBytes(store.path), before);
    EXPECT_FALSE(QFileInfo::exists(store.path + QStringLiteral(".new")));
}

TEST(Database, CreateReplacesAHalfMadeFileOfAnEarlierCrash) {
    ScratchFolder folder;
    const QString path = folder.file(QStringLiteral("ostravel.mdb"));
    writeBytes(path + QStringLiteral(".new"), QByteArray("SQLite format 3\0half", 20));
    Database db;
    db.create(path);
    EXPECT_EQ(db.rowCount(QStringLiteral("qoutense")), 2219);
    EXPECT_FALSE(QFileInfo::exists(path + QStringLiteral(".new")));
}

// Turns a sound database file into one that must be refused.
struct Damage {
    const char* what;
    std::function<QByteArray(const QByteArray&)> apply;
};

class UnusableFile : public ::testing::TestWithParam<Damage> {};

TEST_P(UnusableFile, IsRefusedAndLeftByteForByte) {
    ScratchDatabase store;
    addSampleData(store.db);
    store.db.close();
    const QByteArray damaged = GetParam().apply(fileBytes(store.path));
    writeBytes(store.path, damaged);

    Database db;
    try {
        db.open(store.path);
        FAIL() << "opened " << GetParam().what;
    } catch (const DatabaseUnusable& error) {
        EXPECT_EQ(error.number(), err::NotADatabase);
        EXPECT_EQ(error.path(), store.path);
        EXPECT_TRUE(error.description().contains(store.path));
        EXPECT_FALSE(error.reason().isEmpty());
    }
    EXPECT_FALSE(db.isOpen());
    EXPECT_EQ(fileBytes(store.path), damaged);
    EXPECT_FALSE(QFileInfo::exists(store.path + QStringLiteral("-journal")));
}

QByteArray overwritten(QByteArray bytes, qsizetype at, qsizetype length) {
    for (qsizetype i = 0; i < length && at + i < bytes.size(); ++i)
        bytes[at + i] = static_cast<char>((i * 37 + 11) & 0xff);
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Files, UnusableFile,
    ::testing::Values(
        Damage{"an empty file", [](const QByteArray&) { return QByteArray(); }},
        Damage{"a text file",
               [](const QByteArray&) { return QByteArray("Date,Open,High,Low,Close,Volume\n17-Feb-06,1,2,3,4,5\n"); }},
        Damage{"a header alone", [](const QByteArray& sound) { return sound.left(60); }},
        Damage{"a file cut in half", [](const QByteArray& sound) { return sound.left(sound.size() / 2); }},
        Damage{"a file cut inside a page", [](const QByteArray& sound) { return sound.left(sound.size() - 100); }},
        Damage{"a damaged page", [](const QByteArray& sound) { return overwritten(sound, 4096 * 2 + 8, 3000); }},
        Damage{"a damaged page size", [](const QByteArray& sound) { return overwritten(sound, 16, 2); }}),
    [](const ::testing::TestParamInfo<Damage>& param) {
        QString name = QString::fromLatin1(param.param.what);
        name.replace(QLatin1Char(' '), QLatin1Char('_'));
        return name.toStdString();
    });

TEST(Transaction, OuterDecidesForTheInnerOnes) {
    ScratchDatabase store;
    {
        Transaction outer(store.db, QStringLiteral("Test"));
        store.db.execute(QStringLiteral("insert into compare (EquitySymbol) values ('A')"));
        {
            Transaction inner(store.db, QStringLiteral("Test"));
            store.db.execute(QStringLiteral("insert into compare (EquitySymbol) values ('B')"));
            inner.commit();
        }
        EXPECT_EQ(store.db.rowCount(QStringLiteral("compare")), 2);
    }
    EXPECT_EQ(store.db.rowCount(QStringLiteral("compare")), 0);

    {
        Transaction outer(store.db, QStringLiteral("Test"));
        {
            Transaction inner(store.db, QStringLiteral("Test"));
            store.db.execute(QStringLiteral("insert into compare (EquitySymbol) values ('C')"));
        }
        outer.commit();
    }
    EXPECT_EQ(store.db.rowCount(QStringLiteral("compare")), 1);
}

TEST(Transaction, RollbackIsSeenByAnOpenRecordset) {
    ScratchDatabase store;
    const auto users = store.db.openRecordset(QStringLiteral("users"));
    {
        Transaction work(store.db, QStringLiteral("Test"));
        store.db.execute(QStringLiteral("update users set BuyFee = 1.5"));
        EXPECT_EQ(users->field(QStringLiteral("BuyFee")), Variant(1.5));
    }
    EXPECT_EQ(users->field(QStringLiteral("BuyFee")), Variant(0.85));
}

TEST(Transaction, CommittedWorkIsInTheFile) {
    ScratchDatabase store;
    {
        Transaction work(store.db, QStringLiteral("Test"));
        for (int i = 0; i < 100; ++i)
            store.db.execute(QStringLiteral("insert into simulation (date, Close) values (#1/3/2005#, %1)").arg(i));
        work.commit();
    }
    store.db.close();
    Database reopened;
    reopened.open(store.path);
    EXPECT_EQ(reopened.rowCount(QStringLiteral("simulation")), 100);
}

TEST(Database, ExecuteCountsTheRowsItChanged) {
    ScratchDatabase store;
    addSampleData(store.db);
    store.db.execute(QStringLiteral("delete * from trades where Buyselltype='Sell'"));
    EXPECT_EQ(store.db.recordsAffected(), 4);
}

}  // namespace
}  // namespace ostravel::test
