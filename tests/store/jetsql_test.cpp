#include "store/jetsql.h"

#include <gtest/gtest.h>

#include "store/sqltext.h"

namespace ostravel {
namespace {

struct Translation {
    const char* jet;
    const char* sqlite;
};

class JetToSqlite : public ::testing::TestWithParam<Translation> {};

TEST_P(JetToSqlite, Rewrites) {
    EXPECT_EQ(jetToSqlite(QString::fromUtf8(GetParam().jet)), QString::fromUtf8(GetParam().sqlite));
}

INSTANTIATE_TEST_SUITE_P(
    Statements, JetToSqlite,
    ::testing::Values(Translation{"Delete * from simulation", "Delete from simulation"},
                      Translation{"delete * from portfolio where portfolioname='Growth';",
                                  "delete from portfolio where portfolioname='Growth';"},
                      Translation{"DELETE *FROM equity", "DELETE FROM equity"},
                      Translation{"delete from compare", "delete from compare"},
                      Translation{"select * from [equity]where EquitySymbol='INFY' And portname = 'Growth'",
                                  "select * from [equity]where EquitySymbol='INFY' And portname = 'Growth'"},
                      Translation{"select * from [transaction]", "select * from [transaction]"},
                      Translation{"select * from simulation where date >= #1/15/2005#",
                                  "select * from simulation where date >= '2005-01-15'"},
                      Translation{"select * from simulation where date = #15/1/2005#",
                                  "select * from simulation where date = '2005-01-15'"},
                      Translation{"select * from currentprice where date > #2005-01-15 10:30:00#",
                                  "select * from currentprice where date > '2005-01-15 10:30:00'"},
                      Translation{"select name from qoutense where name like 'Tata*'",
                                  "select name from qoutense where name like 'Tata%'"},
                      Translation{"select ticker from qoutense where ticker LIKE '?NFY'",
                                  "select ticker from qoutense where ticker LIKE '_NFY'"},
                      Translation{"select ticker from qoutense where ticker like 'HCC_RE*'",
                                  "select ticker from qoutense where ticker like 'HCC\\_RE%' escape '\\'"},
                      Translation{"select ticker from qoutense where name like '*[*]*'",
                                  "select ticker from qoutense where name like '%*%'"},
                      Translation{"select * from users where QUICK = True or QuoteDL = FALSE",
                                  "select * from users where QUICK = -1 or QuoteDL = 0"},
                      Translation{"select * from qoutense where name = 'True' or [False] = 1",
                                  "select * from qoutense where name = 'True' or [False] = 1"},
                      Translation{"select * from qoutense where name = \"Dr. Reddy's\"",
                                  "select * from qoutense where name = 'Dr. Reddy''s'"},
                      Translation{"select * from qoutense where name = 'Dr. Reddy''s' and ticker <> '#1/1/2005#'",
                                  "select * from qoutense where name = 'Dr. Reddy''s' and ticker <> '#1/1/2005#'"},
                      Translation{"select TrueValue, Deleted from t", "select TrueValue, Deleted from t"}));

struct Quoting {
    const char* value;
    const char* quoted;
};

class SqlText : public ::testing::TestWithParam<Quoting> {};

TEST_P(SqlText, DoublesSingleQuotes) {
    EXPECT_EQ(sqlText(QString::fromUtf8(GetParam().value)), QString::fromUtf8(GetParam().quoted));
}

INSTANTIATE_TEST_SUITE_P(Values, SqlText,
                         ::testing::Values(Quoting{"Growth", "Growth"}, Quoting{"Ravi's Picks", "Ravi''s Picks"},
                                           Quoting{"'", "''"}, Quoting{"''x'", "''''x''"}, Quoting{"", ""}));

}  // namespace
}  // namespace ostravel
