// clsStockQuote: the quote service's CSV answer for one code or several joined by "+". Setting
// Symbol fetches, parses and fills; the last line's fields stay as text properties, and every
// line goes to a row of QuoteTable (or, through DMA, of DmaTable for the screeners).
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <array>
#include <vector>

#include "runtime/variant.h"

namespace ostravel {

class Program;

// One row of QuoteTable or DmaTable: columns 1 to 12; column 0 is not used.
using QuoteRow = std::array<Variant, 13>;

// The module-level tables that take the answers of many codes (one set per run).
struct QuoteTables {
    std::vector<QuoteRow> QuoteTable;  // rows 0 to QuoteRows, kept across calls
    int QuoteRows = 0;                 // set by the caller before a lookup
    std::vector<QuoteRow> DmaTable;    // dimensioned by the screen that fills it
    int DmaRow = 0;                    // the next row Lookupdma fills, kept between calls
};

inline const QString kQuoteFormat = QStringLiteral("&f=sl1cc1pva2d1t1m3m4n&e=.csv");
inline const QString kQuoteScratchFile = QStringLiteral("history/datafile.csv");

class clsStockQuote {
public:
    explicit clsStockQuote(Program& program) : m_program(program) {}

    const QString& exdiv() const { return m_exdiv; }
    const QString& yield() const { return m_yield; }
    const QString& peg() const { return m_peg; }
    const QString& yearest() const { return m_yearest; }
    const QString& divdate() const { return m_divdate; }
    const QString& pricesale() const { return m_pricesale; }
    const QString& asksize() const { return m_asksize; }
    const QString& avvolume() const { return m_avvolume; }
    const QString& weekrange() const { return m_weekrange; }
    const QString& bidsize() const { return m_bidsize; }
    const QString& marketcap() const { return m_marketcap; }
    const QString& daysrange() const { return m_daysrange; }
    const QString& lastclose() const { return m_lastclose; }
    const QString& Symbol() const { return m_Symbol; }
    // Stored as it is, then Lookup runs.
    void setSymbol(const QString& symbol);
    const QString& Quote() const { return m_Quote; }
    const QString& LastTradeDate() const { return m_LastTradeDate; }
    const QString& LastTradeTime() const { return m_LastTradeTime; }
    const QString& change() const { return m_change; }
    const QString& Opening() const { return m_Opening; }
    const QString& DayHigh() const { return m_DayHigh; }
    const QString& DayLow() const { return m_DayLow; }
    const QString& Bid() const { return m_Bid; }
    const QString& Ask() const { return m_Ask; }
    const QString& Volume() const { return m_Volume; }
    const QString& Dividend() const { return m_Dividend; }
    const QString& eps() const { return m_eps; }
    const QString& peratio() const { return m_peratio; }
    const QString& fiftydaysmov() const { return m_fiftydaysmov; }
    const QString& twohundaysmov() const { return m_twohundaysmov; }
    const QString& name() const { return m_name; }
    QByteArray OpenURL(const QString& url) const;
    // Kept: in spite of its name it holds the plain change (field 3).
    const QString& PercentageChange() const { return m_PercentageChange; }
    // Stored in Symbol, then Lookupdma runs.
    void setDMA(const QString& symbols);

    // The fields' "no data" values.
    void NA();

    // After the fetch: every line of an answer into the properties and QuoteTable, or into
    // DmaTable. False when Lookupdma met the end of DmaTable, which ends that answer there.
    bool LookupLines(QByteArrayView answer);
    bool LookupdmaLines(QByteArrayView answer);

private:
    enum class Table { Quote, Dma };
    void Lookup(Table table);
    bool readLines(QByteArrayView answer, Table table);
    void fillQuoteRow(const QStringList& fields, int row);
    void fillDmaRow(const QStringList& fields, int row);
    void fillCommon(const QStringList& fields, const QString& place);

    Program& m_program;
    QString m_exdiv, m_yield, m_peg, m_yearest, m_divdate, m_pricesale, m_asksize, m_avvolume, m_weekrange, m_bidsize,
        m_marketcap, m_daysrange, m_lastclose, m_Symbol, m_Quote, m_LastTradeDate, m_LastTradeTime, m_change, m_Opening,
        m_DayHigh, m_DayLow, m_Bid, m_Ask, m_Volume, m_Dividend, m_eps, m_peratio, m_fiftydaysmov, m_twohundaysmov,
        m_name, m_PercentageChange;
};

// The number of delimiters in the line; 0 for an empty delimiter.
int NumberofOccurrences(const QString& line, const QString& delimiter);
// The text with every double quote removed.
QString StripQuote(const QString& text);

// The quote request for the codes: the quote service's host, the codes, the format.
QString quoteUrl(const QString& symbols);

}  // namespace ostravel
