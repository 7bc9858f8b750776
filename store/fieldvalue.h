// How a column's value travels between SQLite and the program's Variant: dates are kept as ISO
// text so that "order by date" is chronological, and a value written to a column is converted
// by the column's declared type the way the store converts text typed into a box.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/variant.h"

struct sqlite3_stmt;
struct sqlite3_value;

namespace ostravel {

// Untyped: a computed column, read by what SQLite holds.
enum class FieldKind { Integer, Real, Text, Date, Untyped };

FieldKind fieldKindOf(const char* declaredType);

// "yyyy-MM-dd", or "yyyy-MM-dd hh:mm:ss" when the serial has a time of day.
QString isoDateText(double serial);
std::optional<double> parseIsoDate(const QString& text);

// Column i of the statement's current row; a missing value is Null.
Variant readField(sqlite3_stmt* statement, int column, FieldKind kind);
// The same from the column's value as the engine holds it (sqlite3_column_value): read straight,
// without the engine's checks around each call, as the program's one thread owns its handles.
Variant readValue(sqlite3_value* value, FieldKind kind);

// The value a column of that kind keeps for what the program assigns: numbers and numeric
// texts to number columns, dates and date texts to date columns, anything to text columns.
// Null and Empty stay Null; anything else raises 3421.
Variant toFieldValue(const Variant& value, FieldKind kind);

// Binds a value as toFieldValue gives it; dates go in as ISO text.
void bindField(sqlite3_stmt* statement, int index, const Variant& value);

// The text a value goes into the file as, when it goes in as text: a text in UTF-8, a date as
// ISO text. Appended to `texts`; false for a number or Null, which bindField binds as it is.
bool appendStoredText(const Variant& value, std::string& texts);
// Binds such a text where it lies, without a copy: it must stay put until the statement has run.
void bindStoredText(sqlite3_stmt* statement, int index, std::string_view text);

}  // namespace ostravel
