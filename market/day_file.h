// The exchange's day file (bhav copy): SYMBOL, SERIES, OPEN, HIGH, LOW, CLOSE, LAST, PREVCLOSE,
// TOTTRDQTY, TOTTRDVAL, TIMESTAMP, then fields that are kept out of the store.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <array>
#include <vector>

namespace ostravel {

struct DayRow {
    QString SYMBOL;
    QString SERIES;
    // OPEN, HIGH, LOW, CLOSE, LAST, PREVCLOSE, TOTTRDQTY, TOTTRDVAL
    std::array<double, 8> numbers{};
    QString TIMESTAMP;  // as the file writes it, "23-MAR-2021"
    QDate day;          // the same day, for the year's table
};

struct DayFile {
    std::vector<DayRow> rows;
    int refused = 0;  // lines too short, or with a text where a number or the day belongs
};

// The eleven column names in their order.
const std::array<const char*, 11>& dayColumns();

// Reads a day file; the header line is recognised by its first name "SYMBOL" and passed over.
DayFile parseDayFile(const QByteArray& text);

// True when the text starts like a day file, so that an error page is never kept as one.
bool looksLikeDayFile(const QByteArray& text);

// The day as the files write it in TIMESTAMP, and the store keeps it: "24-MAR-2021".
QString dayTimestamp(const QDate& day);

// The exchange's name of the day's file, "cm23MAR2021bhav.csv", and its path on the bhav host.
QString dayFileName(const QDate& day);
QString dayFilePath(const QDate& day);

}  // namespace ostravel
