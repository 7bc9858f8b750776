// The journal of changes: one entry a row and action with the row before and after, writes
// outside an action under "Other change", and a restore that puts back exactly what went.
#include "store/journal.h"

#include "store/compaction.h"
#include "store/store.h"
#include "tests/store/storetestsupport.h"

namespace ostravel::test {
namespace {

// Every row of the journaled tables as text; prices without their keys, which a restore renews.
QStringList ledgerRows(Database& db) {
    QStringList rows;
    for (const QString& table : journaledTables()) {
        auto rs = db.openRecordset(QStringLiteral("select * from ") + table);
        for (; !rs->eof(); rs->moveNext()) {
            QStringList fields{table};
            for (int i = 0; i < rs->fieldCount(); ++i)
                fields << (rs->field(i).isNull() ? QStringLiteral("Null") : rs->field(i).toString());
            rows << fields.join(QLatin1Char('|'));
        }
    }
    rows.sort();
    return rows;
}

void inAction(Database& db, const QString& action, const std::function<void()>& writes) {
    Transaction work(db, action);
    writes();
    work.commit();
}

void restore(Database& db, const JournalAction& action) {
    inAction(db, QStringLiteral("Restore"), [&] { restoreJournalAction(db, action); });
}

std::optional<JournalClash::Reason> clashOf(Database& db, const JournalAction& action) {
    try {
        restore(db, action);
    } catch (const JournalClash& clash) {
        return clash.reason();
    }
    return std::nullopt;
}

TEST(Journal, DeletedPortfolioComesBackWithItsHoldingsTradesAndPricesUnderTheirKeys) {
    ScratchDatabase store;
    addSampleData(store.db);
    const QStringList before = ledgerRows(store.db);
    inAction(store.db, QStringLiteral("Delete Portfolio"),
             [&] { store.db.execute(QStringLiteral("delete * from portfolio where portfolioname='Growth'")); });
    ASSERT_NE(ledgerRows(store.db), before);

    // Compaction keeps the journal with the rest of the file.
    const QString path = store.db.path();
    store.db.close();
    compactDatabase(path);
    store.db.open(path);

    const std::vector<JournalAction> actions = journalActions(store.db);
    ASSERT_FALSE(actions.empty());
    const JournalAction& deleted = actions.front();
    EXPECT_EQ(deleted.action, QStringLiteral("Delete Portfolio"));
    QMap<QString, int> counts;
    for (const JournalEntry& entry : deleted.entries) {
        EXPECT_EQ(entry.kind(), JournalEntry::Kind::Deleted);
        EXPECT_EQ(entry.portname, QStringLiteral("Growth"));
        ++counts[entry.table];
    }
    EXPECT_EQ(counts, (QMap<QString, int>{{"portfolio", 1}, {"equity", 3}, {"trades", 9}, {"currentprice", 6}}));

    restore(store.db, deleted);
    EXPECT_EQ(ledgerRows(store.db), before);
    EXPECT_EQ(clashOf(store.db, deleted), JournalClash::Reason::KeyInUse);
    EXPECT_EQ(ledgerRows(store.db), before);
}

TEST(Journal, OneEntryForEachRowAnActionTouchedWithTheRowBeforeAndAfter) {
    ScratchDatabase store;
    addSampleData(store.db);
    inAction(store.db, QStringLiteral("Add Trade"), [&] {
        store.db.execute(QStringLiteral("update equity set CurrentCash = 4000 where pkEquityID = 1"));
        store.db.execute(QStringLiteral("update equity set CurrentCash = 3000 where pkEquityID = 1"));
        // Added and deleted by the same action: nothing to tell.
        store.db.execute(QStringLiteral("insert into trades (fkequityid, EquitySymbol) values (1, 'INFY')"));
        store.db.execute(QStringLiteral("delete * from trades where Tradedshares is null"));
    });
    store.db.execute(QStringLiteral("update equity set CurrentQuotePrice = 1 where pkEquityID = 2"));

    const std::vector<JournalAction> actions = journalActions(store.db);
    ASSERT_GE(actions.size(), 2u);
    EXPECT_EQ(actions.at(0).action, QStringLiteral("Other change"));
    const JournalAction& trade = actions.at(1);
    EXPECT_EQ(trade.action, QStringLiteral("Add Trade"));
    ASSERT_EQ(trade.entries.size(), 1u);
    const JournalEntry& holding = trade.entries.front();
    EXPECT_EQ(holding.kind(), JournalEntry::Kind::Changed);
    EXPECT_EQ(holding.symbol, QStringLiteral("INFY"));
    EXPECT_EQ(holding.changedColumns(), QStringList{QStringLiteral("CurrentCash")});
    EXPECT_EQ(holding.value(*holding.before, QStringLiteral("CurrentCash")).toDouble(), 5000);
    EXPECT_EQ(holding.value(*holding.after, QStringLiteral("CurrentCash")).toDouble(), 3000);
    EXPECT_FALSE(trade.deletedRows());
}

// A deleted trade comes back with the holding's figures as they were, unless a later change
// wrote over what the delete wrote; a later change elsewhere in the row stays.
TEST(Journal, DeleteOfATradeComesBackOnlyWhileTheHoldingHoldsWhatTheDeleteWrote) {
    const struct {
        const char* later;
        std::optional<JournalClash::Reason> clash;
    } cases[] = {
        {"update equity set CurrentQuotePrice = 1 where pkEquityID = 1", std::nullopt},
        {"update equity set CurrentCash = 1 where pkEquityID = 1", JournalClash::Reason::ChangedSince},
        {"delete * from equity where pkEquityID = 1", JournalClash::Reason::RowGone},
    };
    for (const auto& c : cases) {
        ScratchDatabase store;
        addSampleData(store.db);
        inAction(store.db, QStringLiteral("Delete trade"), [&] {
            store.db.execute(QStringLiteral("update equity set CurrentCash = 4000 where pkEquityID = 1"));
            store.db.execute(QStringLiteral("delete * from trades where pktradeid = 1"));
        });
        store.db.execute(QString::fromLatin1(c.later));
        const QStringList before = ledgerRows(store.db);
        const JournalAction deleted = journalActions(store.db).at(1);
        ASSERT_TRUE(deleted.deletedRows());

        EXPECT_EQ(clashOf(store.db, deleted), c.clash) << c.later;
        if (c.clash) {
            EXPECT_EQ(ledgerRows(store.db), before) << c.later;
            continue;
        }
        EXPECT_EQ(store.db.rowCount(QStringLiteral("trades")), 12);
        auto holding =
            store.db.openRecordset(QStringLiteral("select CurrentCash, CurrentQuotePrice from equity "
                                                  "where pkEquityID = 1"));
        EXPECT_EQ(holding->field(0).toDouble(), 5000);
        EXPECT_EQ(holding->field(1).toDouble(), 1);
    }
}

// A file of an earlier version, or one whose journal was cut short, gets it whole on opening.
TEST(Journal, AFileWithoutItsJournalGetsItWhenOpened) {
    ScratchDatabase store;
    addSampleData(store.db);
    store.db.execute(QStringLiteral("drop table journal_now"));
    store.db.execute(QStringLiteral("drop trigger journal_trades_delete"));
    const QString path = store.db.path();
    store.db.close();

    openLiveDatabase(store.db, path);
    inAction(store.db, QStringLiteral("Delete trade"),
             [&] { store.db.execute(QStringLiteral("delete * from trades where pktradeid = 1")); });
    const JournalAction deleted = journalActions(store.db).front();
    EXPECT_EQ(deleted.action, QStringLiteral("Delete trade"));
    EXPECT_TRUE(deleted.deletedRows());
}

}  // namespace
}  // namespace ostravel::test
