#include "market/history_import.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>

#include "market/text_lines.h"
#include "runtime/apppath.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "safety/whole_file.h"

namespace ostravel {

namespace {

const QString kSource = QStringLiteral("Import History");
// The columns in the order of the history file; Adj Close may be missing.
const std::array<QByteArray, 7> kColumns = {"date", "open", "high", "low", "close", "volume", "adj close"};
constexpr std::size_t kRequired = 6;

struct Row {
    double serial;
    QByteArray line;
};

}  // namespace

HistoryImport importHistory(const QByteArray& csv) {
    HistoryImport result;
    TextLines lines(csv);
    QByteArrayView header;
    while (lines.next(header) && header.trimmed().isEmpty()) {
    }
    std::array<qsizetype, 7> at{};
    at.fill(-1);
    QByteArray headerLine = header.toByteArray();
    if (headerLine.startsWith("\xEF\xBB\xBF"))
        headerLine.remove(0, 3);  // a spreadsheet's byte-order mark
    const QList<QByteArray> names = headerLine.split(',');
    for (qsizetype i = 0; i < names.size(); ++i)
        for (std::size_t c = 0; c < kColumns.size(); ++c)
            if (names[i].trimmed().toLower() == kColumns[c] && at[c] < 0)
                at[c] = i;
    for (std::size_t c = 0; c < kRequired; ++c)
        if (at[c] < 0) {
            result.error = QStringLiteral("The file has no column \"%1\".").arg(QString::fromLatin1(kColumns[c]));
            return result;
        }
    const std::size_t columns = at[6] >= 0 ? 7 : 6;

    std::vector<Row> rows;
    for (QByteArrayView view; lines.next(view);) {
        if (view.trimmed().isEmpty())
            continue;
        const QList<QByteArray> fields = view.toByteArray().split(',');
        const auto field = [&](std::size_t c) { return fields.value(at[c]).trimmed(); };
        const std::optional<double> serial = parseDate(QString::fromLatin1(field(0)));
        if (!serial || *std::max_element(at.begin(), at.begin() + static_cast<qsizetype>(columns)) >= fields.size()) {
            ++result.refused;
            continue;
        }
        bool isNull = false;
        QByteArray line = formatDate(*serial, QStringLiteral("dd/mmm/yyyy")).toLatin1();
        for (std::size_t c = 1; c < columns; ++c) {
            isNull = isNull || field(c).compare("null", Qt::CaseInsensitive) == 0;
            line += ',' + field(c);
        }
        if (isNull)
            ++result.nullRows;
        else
            rows.push_back({*serial, line});
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.serial < b.serial; });

    result.file = QByteArray("Date,Open,High,Low,Close,Volume") + (columns == 7 ? ",Adj Close" : "") + "\r\n";
    for (const Row& row : rows) result.file += row.line + "\r\n";
    result.written = static_cast<int>(rows.size());
    if (rows.empty()) {
        result.error = QStringLiteral("The file holds no rows to import.");
        result.file.clear();
    }
    return result;
}

HistoryImport importHistoryFile(const QString& source, const QString& symbol) {
    HistoryImport result;
    trapped(
        [&] {
            result = importHistory(readWholeFile(source, kSource));
            if (!result.error.isEmpty())
                return;
            const QString target = appFile(QStringLiteral("history/daily/") + symbol + QStringLiteral(".csv"));
            QDir().mkpath(QFileInfo(target).absolutePath());
            replaceFile(target, result.file, kSource);
        },
        [&](const VbError& e) {
            result.error = e.description();
            result.file.clear();
            result.written = 0;
        });
    return result;
}

QString importSummary(const HistoryImport& result) {
    if (!result.error.isEmpty())
        return result.error;
    return QStringLiteral("%1 rows written, %2 null rows skipped, %3 rows refused")
        .arg(result.written)
        .arg(result.nullRows)
        .arg(result.refused);
}

}  // namespace ostravel
