#include "store/store.h"

#include <QDir>

#include "runtime/apppath.h"
#include "runtime/reporterror.h"
#include "runtime/scripted_prompt.h"
#include "store/dberrors.h"
#include "tests/store/storetestsupport.h"

namespace ostravel::test {
namespace {

class StoreTest : public ::testing::Test {
protected:
    void SetUp() override { setAppPath(folder.path()); }
    QString livePath() const { return folder.file(QStringLiteral("database/ostravel.mdb")); }
    std::vector<std::shared_ptr<Recordset>*> all() {
        return {&store.users,    &store.portfolio,       &store.trades,       &store.equity,
                &store.qoutense, &store.niftyQuoteTable, &store.currentprice, &store.simulation,
                &store.compare,  &store.niftyquote,      &store.bank,         &store.transaction_};
    }

    ScratchFolder folder;
    ScriptedPrompt prompt;
    ErrorReporter reporter{prompt, [] { FAIL() << "the program was ended"; }};
    Store store{reporter};
};

TEST_F(StoreTest, FirstStartMakesTheFoldersAndTheDatabase) {
    store.connection();
    EXPECT_TRUE(prompt.asked().isEmpty());
    EXPECT_TRUE(QFileInfo(livePath()).isFile());
    EXPECT_TRUE(QFileInfo(folder.file(QStringLiteral("history/daily"))).isDir());
    for (std::shared_ptr<Recordset>* recordset : all()) EXPECT_NE(*recordset, nullptr);
    EXPECT_EQ(store.users->recordCount(), 1);
    EXPECT_EQ(store.users->field(QStringLiteral("LastName")), Variant("Enter your surname"));
    EXPECT_EQ(store.qoutense->recordCount(), 2219);
    EXPECT_TRUE(store.portfolio->eof());
}

TEST_F(StoreTest, StartEmptiesSimulationAndKeepsTheRest) {
    store.connection();
    addSampleData(store.database());
    store.database().execute(QStringLiteral("insert into simulation (date, Close) values (#1/3/2005#, 1.5)"));
    store.closeDatabase();
    EXPECT_EQ(store.users, nullptr);

    store.connection();
    EXPECT_EQ(store.database().rowCount(QStringLiteral("simulation")), 0);
    EXPECT_EQ(store.simulation->recordCount(), 0);
    EXPECT_TRUE(store.simulation->eof());
    EXPECT_EQ(store.trades->recordCount(), 12);
    EXPECT_EQ(store.portfolio->field(QStringLiteral("PortfolioName")), Variant("Growth"));
}

TEST_F(StoreTest, CalledAgainWhileOpenReopensTheRecordsets) {
    store.connection();
    const auto earlier = store.users;
    store.connection();
    EXPECT_NE(store.users, earlier);
    EXPECT_EQ(earlier->field(QStringLiteral("pkUserID")), store.users->field(QStringLiteral("pkUserID")));
    EXPECT_TRUE(prompt.asked().isEmpty());
}

TEST_F(StoreTest, KeptMissingUnreadTableIsReportedAndTheNextStepsRun) {
    store.connection();
    store.database().execute(QStringLiteral("drop table bank"));
    store.database().execute(QStringLiteral("insert into simulation (date, Close) values (#1/3/2005#, 1.5)"));
    store.closeDatabase();

    prompt.answer(Answer::OK);
    store.connection();
    ASSERT_EQ(prompt.messages().size(), 1);
    EXPECT_TRUE(prompt.messages().front().contains(QStringLiteral("(Module) Module1::Sub connection")));
    EXPECT_TRUE(prompt.messages().front().contains(QString::number(dberr::TableNotFound)));
    EXPECT_EQ(store.bank, nullptr);
    EXPECT_NE(store.transaction_, nullptr);
    EXPECT_EQ(store.database().rowCount(QStringLiteral("simulation")), 0);
}

TEST_F(StoreTest, UnusableFileEndsTheStartAndIsLeftAsItIs) {
    QDir().mkpath(folder.file(QStringLiteral("database")));
    const QByteArray content("Standard Jet DB, or anything else that is not SQLite");
    writeBytes(livePath(), content);
    try {
        store.connection();
        FAIL() << "connection went on";
    } catch (const DatabaseUnusable& error) {
        EXPECT_EQ(error.path(), livePath());
    }
    EXPECT_TRUE(prompt.asked().isEmpty());
    EXPECT_EQ(fileBytes(livePath()), content);
    for (std::shared_ptr<Recordset>* recordset : all()) EXPECT_EQ(*recordset, nullptr);
}

}  // namespace
}  // namespace ostravel::test
