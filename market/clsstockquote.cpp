#include "market/clsstockquote.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "context/program.h"
#include "market/history.h"
#include "market/hosts.h"
#include "market/openurl.h"
#include "market/text_lines.h"
#include "runtime/apppath.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kLookupPlace = QStringLiteral("(Class Module) clsStockQuote::Sub Lookup");
const QString kLookupdmaPlace = QStringLiteral("(Class Module) clsStockQuote::Sub Lookupdma");
const QString kNA = QStringLiteral("N/A");
const QString kSuffix = QStringLiteral(".NS");
constexpr int kFewestCommas = 8;
constexpr float kThinVolume = 10000;

// The service writes its day month first ("3/24/2021") and its time as "3:30pm"; anything else
// is read as the run time reads a date, and a text that is no date ("N/A") stays text.
Variant serviceDate(const QString& text) {
    static const QRegularExpression monthFirst(QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{4})$"));
    static const QRegularExpression clock(QStringLiteral("^(\\d{1,2}):(\\d{2})\\s*([ap])m$"),
                                          QRegularExpression::CaseInsensitiveOption);
    if (const auto m = monthFirst.match(text); m.hasMatch()) {
        const QDate day(m.captured(3).toInt(), m.captured(1).toInt(), m.captured(2).toInt());
        if (day.isValid())
            return Variant::date(dateSerial(day));
    }
    if (const auto m = clock.match(text); m.hasMatch()) {
        const int hour = m.captured(1).toInt() % 12 + (m.captured(3).toLower() == QLatin1String("p") ? 12 : 0);
        return Variant::date((hour * 60 + m.captured(2).toInt()) / 1440.0);
    }
    if (const auto serial = parseDate(text))
        return Variant::date(*serial);
    return Variant(text);
}

void writeScratch(const QString& path, const QByteArray& data) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(data) != data.size())
        raise(err::PathFileAccess, file.errorString());
}

}  // namespace

int NumberofOccurrences(const QString& line, const QString& delimiter) {
    return delimiter.isEmpty() ? 0 : int(line.count(delimiter));
}

QString StripQuote(const QString& text) {
    return QString(text).remove(QLatin1Char('"'));
}

QString quoteUrl(const QString& symbols) {
    // A code with "&" (M&M) would end the query's codes there: it goes out as "%26".
    return serviceBase(QStringLiteral("quote")) + QStringLiteral("/d/quotes.csv?s=") +
           QString(symbols).replace(QLatin1Char('&'), QStringLiteral("%26")) + kQuoteFormat;
}

QByteArray clsStockQuote::OpenURL(const QString& url) const {
    return ostravel::OpenURL(url);
}

void clsStockQuote::setSymbol(const QString& symbol) {
    m_Symbol = symbol;
    Lookup(Table::Quote);
}

void clsStockQuote::setDMA(const QString& symbols) {
    m_Symbol = symbols;
    Lookup(Table::Dma);
}

void clsStockQuote::NA() {
    m_Quote = QStringLiteral("0.00");
    for (QString* field : {&m_LastTradeDate, &m_LastTradeTime, &m_change, &m_PercentageChange, &m_Opening, &m_DayHigh,
                           &m_DayLow, &m_Bid, &m_Ask, &m_Volume})
        *field = kNA;
}

void clsStockQuote::Lookup(Table table) {
    HistoryState& history = m_program.module<HistoryState>();
    history.DataBuffer = OpenURL(quoteUrl(m_Symbol));
    if (history.DataBuffer.size() < 20) {
        m_program.frame().caption = kLengthBelow20;
        m_program.frame().showChanges();
        return;
    }
    // The answer is parsed from a copy: a yield in the loop may let another lookup refill the buffer.
    const QByteArray answer = history.DataBuffer;
    trapped(m_program.reporter(), table == Table::Quote ? kLookupPlace : kLookupdmaPlace,
            [&] { writeScratch(appFile(kQuoteScratchFile), answer); });
    if (table == Table::Quote)
        LookupLines(answer);
    else
        LookupdmaLines(answer);
}

bool clsStockQuote::LookupLines(QByteArrayView answer) {
    QuoteTables& tables = m_program.module<QuoteTables>();
    tables.QuoteTable.resize(static_cast<std::size_t>(std::max(tables.QuoteRows, 0) + 1));
    return readLines(answer, Table::Quote);
}

bool clsStockQuote::LookupdmaLines(QByteArrayView answer) {
    return readLines(answer, Table::Dma);
}

bool clsStockQuote::readLines(QByteArrayView answer, Table table) {
    QuoteTables& tables = m_program.module<QuoteTables>();
    const QString& place = table == Table::Quote ? kLookupPlace : kLookupdmaPlace;
    int row = 0;  // Lookup's own counter; Lookupdma counts in DmaRow
    TextLines lines(answer);
    QByteArrayView line;
    while (lines.next(line)) {
        QCoreApplication::processEvents();
        const QString text = QString::fromLatin1(line);
        if (NumberofOccurrences(text, QStringLiteral(",")) < kFewestCommas) {
            NA();
            continue;
        }
        // A field that a short line lacks reads as "".
        QStringList fields = text.split(QLatin1Char(','));
        for (QString& field : fields) field = StripQuote(field);
        if (table == Table::Dma) {
            // Kept: a thin stock is dropped only when the line before left a price, so the
            // first line of an answer, or one behind a line of no data, is always stored.
            const std::optional<double> average = parseNumber(fields.value(6));
            if (Val(m_Quote) > 0 && average && toSingle(*average) < kThinVolume && Val(fields.value(9)) > 0)
                continue;
        }
        std::vector<QuoteRow>& rows = table == Table::Quote ? tables.QuoteTable : tables.DmaTable;
        const int target = table == Table::Quote ? row : tables.DmaRow;
        // A row past the table's end is reported once, and the rest of the answer is left.
        if (target < 0 || std::size_t(target) >= rows.size()) {
            m_program.reporter().report(VbError(err::SubscriptOutOfRange), place);
            return false;
        }
        if (table == Table::Quote) {
            fillQuoteRow(fields, target);
            ++row;
        } else {
            fillDmaRow(fields, target);
            ++tables.DmaRow;
        }
    }
    return true;
}

void clsStockQuote::fillCommon(const QStringList& fields, const QString& place) {
    m_Symbol = QString(fields.value(0)).remove(kSuffix);
    m_Quote = fields.value(1);
    m_lastclose = fields.value(4);
    m_avvolume = fields.value(6);
    m_LastTradeDate = fields.value(7);
    m_LastTradeTime = fields.value(8);
    m_fiftydaysmov = fields.value(9);
    m_twohundaysmov = fields.value(10);
    // Kept: the volume is grouped when the average volume is a number, whatever the volume is.
    trapped(m_program.reporter(), place, [&] {
        m_Volume = Variant(m_avvolume).isNumeric()
                       ? formatNumber(textToDouble(fields.value(5)), QStringLiteral("#,##0"))
                       : fields.value(5);
    });
}

void clsStockQuote::fillQuoteRow(const QStringList& fields, int row) {
    fillCommon(fields, kLookupPlace);
    m_change = fields.value(2);
    m_PercentageChange = fields.value(3);
    QuoteRow& r = m_program.module<QuoteTables>().QuoteTable[std::size_t(row)];
    r[1] = m_Symbol;
    r[2] = m_Quote;
    r[3] = m_PercentageChange;
    r[4] = m_lastclose;
    r[5] = m_Volume;
    r[7] = m_avvolume;
    r[10] = m_LastTradeTime;
    r[11] = m_fiftydaysmov;
    r[12] = m_twohundaysmov;
}

void clsStockQuote::fillDmaRow(const QStringList& fields, int row) {
    fillCommon(fields, kLookupdmaPlace);
    m_change = fields.value(3);
    m_name = fields.value(11);
    QuoteRow& r = m_program.module<QuoteTables>().DmaTable[std::size_t(row)];
    r[1] = m_Symbol;
    r[2] = Val(m_Quote);
    r[3] = m_name;
    r[4] = Val(m_lastclose);
    r[5] = m_Volume;
    r[6] = Val(m_change);
    r[7] = m_avvolume;
    r[8] = serviceDate(m_LastTradeDate);
    r[10] = serviceDate(m_LastTradeTime);
    r[11] = Val(m_fiftydaysmov);
    r[12] = Val(m_twohundaysmov);
}

}  // namespace ostravel
