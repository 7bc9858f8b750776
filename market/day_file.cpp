#include "market/day_file.h"

#include "market/text_lines.h"
#include "runtime/vbdate.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

QString upperMonth(const QDate& day) {
    return monthName(day.month(), true).toUpper();
}

}  // namespace

const std::array<const char*, 11>& dayColumns() {
    static const std::array<const char*, 11> names = {
        "SYMBOL", "SERIES", "OPEN", "HIGH", "LOW", "CLOSE", "LAST", "PREVCLOSE", "TOTTRDQTY", "TOTTRDVAL", "TIMESTAMP"};
    return names;
}

bool looksLikeDayFile(const QByteArray& text) {
    return text.startsWith("SYMBOL,SERIES,");
}

DayFile parseDayFile(const QByteArray& text) {
    DayFile file;
    TextLines lines(text);
    for (QByteArrayView line; lines.next(line);) {
        if (line.trimmed().isEmpty() || line.startsWith("SYMBOL,"))
            continue;
        const QList<QByteArray> fields = line.toByteArray().split(',');
        DayRow row;
        bool good = fields.size() >= 11 && !fields[0].trimmed().isEmpty() && !fields[1].trimmed().isEmpty();
        for (std::size_t i = 0; good && i < row.numbers.size(); ++i) {
            const std::optional<double> number =
                parseNumber(QString::fromLatin1(fields[static_cast<qsizetype>(i) + 2]));
            good = number.has_value();
            if (good)
                row.numbers[i] = *number;
        }
        if (good) {
            row.SYMBOL = QString::fromLatin1(fields[0].trimmed());
            row.SERIES = QString::fromLatin1(fields[1].trimmed());
            row.TIMESTAMP = QString::fromLatin1(fields[10].trimmed());
            const std::optional<double> serial = parseDate(row.TIMESTAMP);
            good = serial.has_value();
            if (good)
                row.day = serialToDate(*serial);
        }
        if (good)
            file.rows.push_back(std::move(row));
        else
            ++file.refused;
    }
    return file;
}

QString dayTimestamp(const QDate& day) {
    return QStringLiteral("%1-%2-%3").arg(day.day(), 2, 10, QLatin1Char('0')).arg(upperMonth(day)).arg(day.year());
}

QString dayFileName(const QDate& day) {
    return QStringLiteral("cm%1%2%3bhav.csv")
        .arg(day.day(), 2, 10, QLatin1Char('0'))
        .arg(upperMonth(day))
        .arg(day.year());
}

QString dayFilePath(const QDate& day) {
    return QStringLiteral("/content/historical/EQUITIES/%1/%2/").arg(day.year()).arg(upperMonth(day)) +
           dayFileName(day);
}

}  // namespace ostravel
