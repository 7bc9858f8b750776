#include "market/load_history.h"

#include <sqlite3.h>

#include <QFileInfo>
#include <cstdio>

#include "context/program.h"
#include "market/history.h"
#include "market/history_fields.h"
#include "market/text_lines.h"
#include "runtime/apppath.h"
#include "runtime/trap.h"
#include "runtime/variant.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "safety/whole_file.h"
#include "store/database.h"
#include "store/fieldvalue.h"
#include "store/sqliteconnection.h"

namespace ostravel {

namespace {

const QString kPlace = QStringLiteral("(Module) Module3::Function LoadHistoryFile");
const QString kInsert = QStringLiteral(
    "insert into simulation (date, Open, High, Low, Close, Volume, EquitySymbol) values (?, ?, ?, ?, ?, ?, ?)");

double fieldNumber(QByteArrayView field) {
    if (const std::optional<double> quick = plainDecimal(field))
        return *quick;
    return Val(QString::fromLatin1(field));
}

double roundedPrice(QByteArrayView field) {
    if (const std::optional<double> quick = roundedPlainDecimal(field))
        return *quick;
    return Round(fieldNumber(field), 3);
}

}  // namespace

QByteArrayView QToken::next() {
    while (m_pos < m_line.size() && m_line[m_pos] == '"') ++m_pos;
    if (m_pos >= m_line.size())
        return {};
    const bool quoted = m_pos > 0 && m_line[m_pos - 1] == '"';
    qsizetype end = m_pos;
    while (end < m_line.size() && m_line[end] != '"' && (quoted || m_line[end] != ',')) ++end;
    const QByteArrayView token = m_line.sliced(m_pos, end - m_pos);
    // Behind the token: its closing quote, then the comma that ends the field.
    m_pos = end;
    while (m_pos < m_line.size() && m_line[m_pos] == '"') ++m_pos;
    if (m_pos < m_line.size() && m_line[m_pos] == ',')
        ++m_pos;
    return token;
}

bool ExistFile(const QString& name) {
    return fileExists(name);
}

bool OpenDataFile(Program& program) {
    HistoryState& h = program.module<HistoryState>();
    const std::optional<QString> chosen =
        program.prompt().openFile(QStringLiteral("Open Data File"), appFile(QStringLiteral("history/Daily/")),
                                  QStringLiteral("Data Files (*.csv) (*.csv);;All files (*.*) (*)"));
    if (!chosen || chosen->isEmpty())
        return false;
    h.DataFile = *chosen;
    h.DataFileTitle = QFileInfo(*chosen).fileName();
    const qsizetype dot = h.DataFileTitle.indexOf(QLatin1Char('.'));
    h.DataFileStem = dot >= 0 ? h.DataFileTitle.left(dot) : QStringLiteral("???");
    program.frame().cmbequity = h.DataFileStem;
    program.frame().cmbequity_Change();
    program.frame().showChanges();
    return true;
}

bool LoadHistoryFile(Program& program) {
    HistoryState& h = program.module<HistoryState>();
    MainFrame& frame = program.frame();
    ErrorReporter& reporter = program.reporter();
    Database& database = program.store().database();

    h.DataFile = historyFilePath(frame);
    if (!ExistFile(h.DataFile) && !OpenDataFile(program)) {
        if (h.focusCmbequity)
            h.focusCmbequity();
        return false;
    }
    const QString symbol = historySymbol(frame);

    Transaction work(database, QStringLiteral("Load History"));
    trapped(reporter, kPlace, [&] { database.execute(QStringLiteral("Delete * from simulation")); });
    QByteArray text;
    if (!trapped(reporter, kPlace, [&] { text = readWholeFile(h.DataFile, kPlace); })) {
        work.commit();
        return false;
    }
    if (text.size() < kMinimumHistoryBytes) {
        frame.caption = kHistoryEmpty;
        frame.showChanges();
        h.HistoryIsEmpty = true;
        work.commit();
        return false;
    }

    // First pass: every line of 3 characters or more is a record, the first one the header.
    qsizetype count = 0;
    TextLines counting(text);
    for (QByteArrayView line; counting.next(line);)
        if (line.size() > 2)
            ++count;
    h.LastIdx = static_cast<std::int32_t>(count - 2);
    h.StockData.clear();
    trapped(reporter, kPlace, [&] {
        if (h.LastIdx < 0)
            raise(err::SubscriptOutOfRange);
        h.StockData.resize(static_cast<std::size_t>(h.LastIdx) + 1);
    });

    SqliteConnection& connection = *database.connection();
    Statement insert = connection.cached(kInsert);
    sqlite3_stmt* row = insert.get();
    const QByteArray symbolText = symbol.toUtf8();
    std::size_t index = 0;
    TextLines reading(text);
    QByteArrayView line;
    reading.next(line);  // the header, by position
    while (reading.next(line)) {
        if (line.size() < 3)
            continue;
        const std::size_t at = index++;
        if (line.startsWith("P3P"))
            continue;
        trapped(reporter, kPlace, [&] {
            if (at >= h.StockData.size())
                raise(err::SubscriptOutOfRange);
            StockRecord& record = h.StockData[at];
            QToken fields(line);
            const QByteArrayView date = fields.next();
            if (date.isEmpty())
                return;
            sqlite3_reset(row);
            sqlite3_clear_bindings(row);
            if (const std::optional<QDate> day = fileDay(date)) {
                char iso[11];
                std::snprintf(iso, sizeof iso, "%04d-%02d-%02d", day->year(), day->month(), day->day());
                record.Date = QString::fromLatin1(iso + 8, 2) + QLatin1Char('/') + QLatin1String(iso + 5, 2) +
                              QLatin1Char('/') + QLatin1String(iso, 4);
                sqlite3_bind_text(row, 1, iso, 10, SQLITE_TRANSIENT);
            } else {
                record.Date = format(Variant(QString::fromLatin1(date)), QStringLiteral("dd/mm/YYYY"));
                trapped(reporter, kPlace,
                        [&] { bindField(row, 1, toFieldValue(Variant(record.Date), FieldKind::Date)); });
            }
            double* prices[] = {&record.Open, &record.High, &record.Low, &record.Close};
            for (int column = 0; column < 4; ++column) {
                const QByteArrayView field = fields.next();
                if (field.isEmpty())
                    return;  // an empty field ends the line; the row is not written
                *prices[column] = roundedPrice(field);
                sqlite3_bind_double(row, column + 2, *prices[column]);
            }
            const QByteArrayView volume = fields.next();
            if (volume.isEmpty())
                return;
            const double value = fieldNumber(volume);
            sqlite3_bind_double(row, 6, value);
            sqlite3_bind_text(row, 7, symbolText.constData(), static_cast<int>(symbolText.size()), SQLITE_STATIC);
            trapped(reporter, kPlace, [&] { record.Volume = toLongInteger(value); });
            insert.step();
            connection.noteWrite();
        });
    }
    work.commit();

    frame.caption = QStringLiteral("Got history of ") + symbol + QStringLiteral(" From File");
    frame.showChanges();
    return true;
}

}  // namespace ostravel
