// ostravel-cli quote and technical: the quote table of a request, and a day screener's grid.
#include <QDate>
#include <QTextStream>

#include "cli/commands.h"
#include "cli/headless_prompt.h"
#include "context/program.h"
#include "market/clsstockquote.h"
#include "market/history.h"
#include "market/technical.h"

namespace ostravel::cli {

int quote(const QStringList& args) {
    if (args.size() != 1 || args.front().isEmpty()) {
        QTextStream(stderr) << "usage: ostravel-cli [--folder DIR] quote CODE[+CODE...]\n";
        return 2;
    }
    HeadlessRun run;
    Program* program = run.open();
    if (!program)
        return 1;
    QuoteTables& tables = program->module<QuoteTables>();
    tables.QuoteRows = int(args.front().count(QLatin1Char('+')));
    clsStockQuote(*program).setSymbol(args.front());
    if (program->frame().caption == kLengthBelow20) {
        QTextStream(stderr) << kLengthBelow20 << '\n';
        return 1;
    }
    QTextStream out(stdout);
    for (const QuoteRow& row : tables.QuoteTable) {
        QStringList columns;
        for (int col = 1; col <= 12; ++col) columns << row[std::size_t(col)].toString();
        out << columns.join(QLatin1Char('\t')) << '\n';
    }
    return 0;
}

int technical(const QStringList& args) {
    const QStringList lists = {QStringLiteral("gainers"), QStringLiteral("lossers"), QStringLiteral("volume")};
    const QDate day = args.size() == 3 && args.at(0) == QLatin1String("--date")
                          ? QDate::fromString(args.at(1), Qt::ISODate)
                          : QDate();
    if (!day.isValid() || !lists.contains(args.value(2))) {
        QTextStream(stderr) << "usage: ostravel-cli [--folder DIR] technical --date YYYY-MM-DD "
                               "gainers|lossers|volume\n";
        return 2;
    }
    HeadlessRun run;
    Program* program = run.open();
    if (!program)
        return 1;
    Technical& screen = program->module<Technical>();
    screen.DTPicker1 = day;
    screen.Form_Load();
    const QString& list = args.at(2);
    if (list == lists[0])
        screen.Command1_Click();
    else if (list == lists[1])
        screen.Command2_Click();
    else
        screen.Command3_Click();
    QTextStream out(stdout);
    for (int row = 1; row < screen.MSFlexGrid1.rows(); ++row) {
        QStringList cells;
        for (int col = 0; col < Technical::kCols; ++col) cells << screen.MSFlexGrid1.textMatrix(row, col);
        out << cells.join(QLatin1Char('\t')) << '\n';
    }
    return 0;
}

}  // namespace ostravel::cli
