#include "market/clsstockquote.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

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
constexpr qint64 kYieldMs = 16;

// The numbers of a text such as "3/24/2021" or "3:30", each up to the next separator.
QList<int> numbersOf(QStringView text, QChar separator) {
    QList<int> numbers;
    for (const QStringView part : text.split(separator)) {
        bool ok = false;
        numbers << part.toInt(&ok);
        if (!ok)
            return {};
    }
    return numbers;
}

// The service writes its day month first ("3/24/2021") and its time as "3:30pm"; anything else
// is read as the run time reads a date, and a text that is no date ("N/A") stays text.
Variant serviceDate(const QString& text) {
    if (const QList<int> mdy = numbersOf(text, QLatin1Char('/')); mdy.size() == 3) {
        if (const QDate day(mdy[2], mdy[0], mdy[1]); day.isValid())
            return Variant::date(dateSerial(day));
    }
    const QString lower = text.toLower();
    if (lower.endsWith(QLatin1String("am")) || lower.endsWith(QLatin1String("pm"))) {
        const QList<int> hm = numbersOf(QStringView(lower).chopped(2).trimmed(), QLatin1Char(':'));
        if (hm.size() == 2 && hm[0] >= 1 && hm[0] <= 12 && hm[1] >= 0 && hm[1] < 60) {
            const int hour = hm[0] % 12 + (lower.endsWith(QLatin1String("pm")) ? 12 : 0);
            return Variant::date((hour * 60 + hm[1]) / 1440.0);
        }
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
    // The loop yields to the event loop as it goes, once a frame's time has passed: often
    // enough to keep the screens alive, and a long answer is not held back by the yields.
    QElapsedTimer sinceYield;
    sinceYield.start();
    while (lines.next(line)) {
        if (sinceYield.elapsed() >= kYieldMs) {
            QCoreApplication::processEvents();
            sinceYield.restart();
        }
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
