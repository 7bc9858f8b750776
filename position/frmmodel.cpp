#include "position/frmmodel.h"

#include "context/program.h"
#include "position/holding.h"
#include "runtime/trap.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kNextPlace = QStringLiteral("(Form) frmmodel::Sub ModelNextButton_Click");

struct Model {
    const char* caption;
    const char* suffix;
};

// Compared with the chosen option's caption, case sensitively.
// Kept: the third is spelled in lower case while its option reads "Conservative", so that "-C"
// is never appended.
constexpr Model kModels[] = {{"Default", "-D"}, {"Bullish", "-B"}, {"conservative", "-C"}};

}  // namespace

FrmModel::FrmModel(Program& program) : m_program(program) {}

void FrmModel::ModelNextButton_Click(const QString& portfolioName) {
    ErrorReporter& reporter = m_program.reporter();
    const auto statement = [&](auto&& body) { trapped(reporter, kNextPlace, body); };

    QString chosen;
    for (const Option& option : Option1)
        if (option.value)
            chosen = option.caption;
    std::shared_ptr<Recordset> portfolio;
    statement([&] {
        portfolio =
            m_program.store().database().openRecordset(QStringLiteral("select * from portfolio where portfolioname='") +
                                                       sqlText(portfolioName) + QLatin1Char('\''));
    });
    for (const Model& model : kModels) {
        if (chosen != QLatin1String(model.caption))
            continue;
        statement([&] { currentRow(portfolio).edit(); });
        statement([&] { currentRow(portfolio).setField(2, portfolioName + QLatin1String(model.suffix)); });
        statement([&] { currentRow(portfolio).update(); });
    }
    if (unload)
        unload();
    if (showNewholding)
        showNewholding();
}

void FrmModel::cancel() {
    if (unload)
        unload();
    if (showCreate)
        showCreate();
}

}  // namespace ostravel
