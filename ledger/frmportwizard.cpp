#include "ledger/frmportwizard.h"

#include "context/program.h"
#include "context/screens.h"
#include "ledger/datecaption.h"
#include "ledger/portfolioexplorer.h"
#include "position/holding.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "store/dberrors.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

// Kept: the screen reports under the name of the portfolio wizard's Add.
const QString kPlace = QStringLiteral("(Form) Create::Sub cmdadd_Click");
const QString kCostPattern = QStringLiteral("####.##");

}  // namespace

PortfolioManager::PortfolioManager(Program& program) : FormState(program) {}

void PortfolioManager::handle(const VbError& error, bool atLoad) {
    if (error.number() == dberr::DuplicateKey) {
        m_program->prompt().message(QStringLiteral("Duplicate Portfolio name"), Buttons::OK, Icon::None,
                                    QStringLiteral("Duplicate portfolio"));
        // Nothing may be pending: then there is nothing to cancel.
        passedOver([&] {
            if (m_program->store().portfolio)
                m_program->store().portfolio->cancelUpdate();
        });
        Text1.text.clear();
        focus = QStringLiteral("Text1");
        return;
    }
    // No portfolio exists yet.
    if (atLoad && error.number() == err::NoCurrentRecord)
        return;
    m_program->reporter().report(error, kPlace);
}

template <class Statement>
bool PortfolioManager::statement(Statement&& body, bool atLoad) {
    return trappedGrowing([&] { MSFlexGrid1.addRow(); }, body, [&](const VbError& e) { handle(e, atLoad); });
}

void PortfolioManager::Form_Load() {
    statement(
        [&] {
            Recordset& portfolio = currentRow(m_program->store().portfolio);
            for (portfolio.moveFirst(); !portfolio.eof(); portfolio.moveNext())
                Combo1.items << portfolio.field(QStringLiteral("PortfolioName")).toString();
        },
        true);
    if (!Combo1.items.isEmpty()) {
        Combo1.text = Combo1.items.front();
        Combo1_Click();
    }
    fillGrid(kLoadFormat, kLoadDateWidth);
    Frame2Visible = false;
    cmdtwizard.enabled = false;
    DatePicker1Visible = false;
}

void PortfolioManager::Combo1_Click() {
    fillGrid(kChosenFormat, kColWidth);
}

void PortfolioManager::fillGrid(const QString& formatString, int dateWidth) {
    statement([&] { MSFlexGrid1.clear(kGridRows); });
    statement([&] { MSFlexGrid1.setFormatString(formatString); });
    for (int c = 1; c < kDateCol; ++c) statement([&] { MSFlexGrid1.setColWidth(c, kColWidth); });
    statement([&] { MSFlexGrid1.setColWidth(kDateCol, dateWidth); });

    std::shared_ptr<Recordset> rows;
    statement([&] {
        rows = m_program->store().database().openRecordset(
            QStringLiteral("select EquitySymbol,OriginalPrice,OriginalShares,OriginalCash,CurrentQuotePrice,"
                           "EquityStartDate,cps from equity where portname='") +
            sqlText(Combo1.text) + QStringLiteral("';"));
    });
    if (!rows)
        return;
    int i = 0;
    for (; !rows->eof(); rows->moveNext()) {
        ++i;
        statement([&] { MSFlexGrid1.setTextMatrix(i, 0, QString::number(i)); });
        for (int field = 0; field < 5; ++field)
            statement([&] { MSFlexGrid1.setTextMatrix(i, field + 1, rows->field(field).toString()); });
        statement([&] { MSFlexGrid1.setTextMatrix(i, 6, format(rows->field(6), kCostPattern)); });
        statement([&] { MSFlexGrid1.setTextMatrix(i, kDateCol, rows->field(5).toString()); });
    }
    rows->close();
}

void PortfolioManager::MSFlexGrid1_Click(int newRow, int newCol) {
    row = newRow;
    col = newCol;
    cmdtwizard.enabled = true;
    Frame2Visible = true;
    Frame2Enabled = true;
    col = kSymbolCol;
    statement([&] {
        Text1.text = MSFlexGrid1.textMatrix(row, col);
        Text2.text = Text1.text;
    });
    statement([&] { cmdestartdate.caption = MSFlexGrid1.textMatrix(row, kDateCol); });
}

// Kept: the holding is found by its symbol alone: the first row of that symbol changes, whatever
// portfolio it is in.
void PortfolioManager::cmdupdate_Click() {
    std::shared_ptr<Recordset> holding;
    statement([&] {
        holding = m_program->store().database().openRecordset(
            QStringLiteral("select * from equity where equitysymbol='") + sqlText(Text2.text) + QStringLiteral("';"));
    });
    // With no holding of that symbol there is nothing to write.
    if (statement([&] { currentRow(holding).edit(); })) {
        std::optional<Transaction> work;
        statement([&] { work.emplace(m_program->store().database(), QStringLiteral("Update Holding")); });
        statement([&] { holding->setField(QStringLiteral("EquitySymbol"), Text1.text); });
        statement([&] { holding->setField(QStringLiteral("EquityStartDate"), cmdestartdate.caption); });
        statement([&] { holding->update(); });
        if (work)
            statement([&] { work->commit(); });
    }
    Text2.text = Text1.text;
    statement([&] { selectportfolio(*m_program); });
    Combo1_Click();
}

// Kept: found by the symbol alone, as Update finds it: the first row of that symbol goes.
void PortfolioManager::cmddelete_Click() {
    std::shared_ptr<Recordset> holding;
    statement([&] {
        holding = m_program->store().database().openRecordset(
            QStringLiteral("select * from equity where equitysymbol='") + sqlText(Text1.text) + QStringLiteral("';"));
    });
    if (m_program->prompt().message(QStringLiteral("ARE YOU SURE"), Buttons::YesNo, Icon::Critical,
                                    QStringLiteral("Confirmation")) != Answer::Yes)
        return;
    statement([&] {
        Transaction work(m_program->store().database(), QStringLiteral("Delete Holding"));
        currentRow(holding).deleteCurrent();
        work.commit();
    });
    statement([&] { selectportfolio(*m_program); });
    Combo1_Click();
}

void PortfolioManager::cmdpwizard_Click() {
    m_program->module<Screens>().show(QStringLiteral("Create"));
}

void PortfolioManager::cmdadd_Click() {
    m_program->module<Screens>().show(QStringLiteral("Newholding"));
}

void PortfolioManager::cmdtwizard_Click() {
    MainFrame& frame = m_program->frame();
    frame.cmbequity = Text1.text;
    frame.cmbequity_Change();
    if (frame.cmbportfolio.text != Combo1.text) {
        frame.cmbportfolio.text = Combo1.text;
        frame.cmbportfolio_Change();
    }
    m_program->module<Screens>().show(QStringLiteral("trade"));
}

void PortfolioManager::cmdclose_Click() {
    unload();
}

void PortfolioManager::cmdestartdate_Click() {
    DatePicker1Value = parseDate(cmdestartdate.caption).value_or(today());
    DatePicker1Visible = true;
}

void PortfolioManager::DatePicker1_OK(double serial) {
    DatePicker1Visible = false;
    cmdestartdate.caption = pickedDateCaption(serial);
}

void PortfolioManager::DatePicker1_Cancel() {
    DatePicker1Visible = false;
}

}  // namespace ostravel
