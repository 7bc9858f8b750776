// The program writes its statements in Jet's dialect. SQLite takes most of it as it stands
// ([bracket] names, "]where" without a blank, distinct, as, sum, avg); this step rewrites the rest.
#pragma once

#include <QString>

namespace ostravel {

// "delete * from t" -> "delete from t"; #m/d/yyyy# date literals -> 'yyyy-MM-dd'; like
// patterns with * and ? -> % and _; True/False -> -1/0; "text" -> 'text'. Texts in quotes and
// names in brackets are left alone.
QString jetToSqlite(const QString& jetSql);

}  // namespace ostravel
