#include "simulation/ui/results_view.h"

#include <QChart>
#include <QChartView>
#include <QDateTime>
#include <QDateTimeAxis>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineSeries>
#include <QPushButton>
#include <QSaveFile>
#include <QScatterSeries>
#include <QTableWidget>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>

#include "context/program.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"

namespace ostravel {

namespace {

const QString kMoney = QStringLiteral("#,##,##0.00");
const QString kShare = QStringLiteral("0.00%");

QString money(double value) {
    return QStringLiteral("Rs. ") + formatNumber(value, kMoney);
}

QString day(const std::optional<double>& serial) {
    return serial ? formatDate(*serial, QStringLiteral("dd/mm/yyyy")) : QStringLiteral("-");
}

// The rows of the figures, each with the texts of the rule's investor and of buy and hold.
QList<QStringList> figureRows(const RunMetrics& m) {
    const auto both = [&](const auto& text) { return QStringList{text(m.rule), text(m.buyHold)}; };
    const QString days = QString::number(m.days.size());
    return {
        QStringList{QStringLiteral("Final value")} + both([](const InvestorMetrics& i) { return money(i.finalValue); }),
        QStringList{QStringLiteral("Profit")} + both([](const InvestorMetrics& i) { return money(i.profit); }),
        QStringList{QStringLiteral("Growth a year (CAGR)")} +
            both([](const InvestorMetrics& i) { return i.cagr ? formatNumber(*i.cagr, kShare) : QStringLiteral("-"); }),
        QStringList{QStringLiteral("Maximum drawdown")} +
            both([](const InvestorMetrics& i) { return money(i.maxDrawdown); }),
        QStringList{QStringLiteral("Maximum drawdown, per cent")} +
            both([](const InvestorMetrics& i) { return formatNumber(i.maxDrawdownShare, kShare); }),
        QStringList{QStringLiteral("From peak to trough")} +
            both([](const InvestorMetrics& i) { return day(i.peakDay) + QStringLiteral(" to ") + day(i.troughDay); }),
        QStringList{QStringLiteral("Days in the market")} + both([&](const InvestorMetrics& i) {
            return QString::number(i.daysInMarket) + QStringLiteral(" of ") + days;
        }),
        QStringList{QStringLiteral("Buys")} + both([](const InvestorMetrics& i) { return QString::number(i.buys); }),
        QStringList{QStringLiteral("Sells")} + both([](const InvestorMetrics& i) { return QString::number(i.sells); }),
        QStringList{QStringLiteral("Cash share at the end")} +
            both([](const InvestorMetrics& i) { return formatNumber(i.cashShare, kShare); }),
    };
}

qint64 msecs(double serial) {
    return QDateTime(serialToDate(serial), QTime(0, 0)).toMSecsSinceEpoch();
}

}  // namespace

SimulationResultsView::SimulationResultsView(Program& program, QWidget* parent) : QWidget(parent), m_program(program) {
    setObjectName(QStringLiteral("simulationResults"));
    m_none = new QLabel(QStringLiteral("Run a simulation to see how both investors fared, day by day."), this);
    m_figures = new QTableWidget(this);
    m_figures->setObjectName(QStringLiteral("figures"));
    m_figures->setColumnCount(2);
    m_figures->setHorizontalHeaderLabels(
        {QStringLiteral("Ostravel investor"), QStringLiteral("Buy and Hold investor")});
    m_figures->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_figures->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_figures->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_figures->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);

    m_plot = new QChartView(this);
    m_plot->setObjectName(QStringLiteral("wealthPlot"));
    m_plot->setRenderHint(QPainter::Antialiasing);
    m_plot->setMinimumHeight(260);

    m_png = new QPushButton(QStringLiteral("Export &PNG..."), this);
    m_png->setObjectName(QStringLiteral("exportPng"));
    m_csv = new QPushButton(QStringLiteral("Export &CSV..."), this);
    m_csv->setObjectName(QStringLiteral("exportCsv"));
    connect(m_png, &QPushButton::clicked, this, &SimulationResultsView::exportPng);
    connect(m_csv, &QPushButton::clicked, this, &SimulationResultsView::exportCsv);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_png);
    buttons->addWidget(m_csv);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_none);
    layout->addWidget(m_figures);
    layout->addWidget(m_plot, 1);
    layout->addLayout(buttons);
    refresh();
}

void SimulationResultsView::refresh() {
    m_metrics = runMetrics(m_program);
    m_none->setVisible(!m_metrics);
    m_figures->setVisible(bool(m_metrics));
    m_png->setEnabled(bool(m_metrics));
    m_csv->setEnabled(bool(m_metrics));
    showFigures();
    showPlot();
}

void SimulationResultsView::showFigures() {
    const QList<QStringList> rows = m_metrics ? figureRows(*m_metrics) : QList<QStringList>();
    m_figures->setRowCount(int(rows.size()));
    for (int r = 0; r < rows.size(); ++r) {
        m_figures->setVerticalHeaderItem(r, new QTableWidgetItem(rows[r].at(0)));
        for (int c = 0; c < 2; ++c) {
            auto* item = new QTableWidgetItem(rows[r].at(c + 1));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_figures->setItem(r, c, item);
        }
    }
    int height = m_figures->horizontalHeader()->height() + 2 * m_figures->frameWidth();
    for (int r = 0; r < m_figures->rowCount(); ++r) height += m_figures->rowHeight(r);
    m_figures->setFixedHeight(height);
}

void SimulationResultsView::showPlot() {
    auto* chart = new QChart;
    chart->setTitle(QStringLiteral("Wealth of both investors"));
    m_plot->setChart(chart);  // the view owns the chart and drops the old one
    if (!m_metrics)
        return;
    auto* ruleLine = new QLineSeries;
    ruleLine->setName(QStringLiteral("Ostravel investor"));
    ruleLine->setColor(QColor(31, 90, 180));
    auto* holdLine = new QLineSeries;
    holdLine->setName(QStringLiteral("Buy and Hold investor"));
    holdLine->setColor(QColor(240, 140, 30));
    double low = m_metrics->begin;
    double high = m_metrics->begin;
    for (const WealthDay& d : m_metrics->days) {
        ruleLine->append(double(msecs(d.date)), d.rule);
        holdLine->append(double(msecs(d.date)), d.buyHold);
        low = std::min({low, d.rule, d.buyHold});
        high = std::max({high, d.rule, d.buyHold});
    }
    auto* buys = new QScatterSeries;
    buys->setName(QStringLiteral("Buy"));
    buys->setColor(QColor(0, 150, 0));
    auto* sells = new QScatterSeries;
    sells->setName(QStringLiteral("Sell"));
    sells->setColor(QColor(200, 0, 0));
    for (QScatterSeries* marks : {buys, sells}) {
        marks->setMarkerSize(7);
        marks->setBorderColor(Qt::transparent);
    }
    for (const TradeMark& t : m_metrics->trades) (t.shares > 0 ? buys : sells)->append(double(msecs(t.date)), t.wealth);

    auto* time = new QDateTimeAxis;
    time->setFormat(QStringLiteral("MMM yyyy"));
    time->setRange(QDateTime::fromMSecsSinceEpoch(msecs(m_metrics->days.front().date)),
                   QDateTime::fromMSecsSinceEpoch(msecs(m_metrics->days.back().date)));
    auto* rupees = new QValueAxis;
    rupees->setLabelFormat(QStringLiteral("%.0f"));
    rupees->setTitleText(QStringLiteral("Rs."));
    rupees->setRange(low, high);
    rupees->applyNiceNumbers();
    chart->addAxis(time, Qt::AlignBottom);
    chart->addAxis(rupees, Qt::AlignLeft);
    for (QXYSeries* series : std::initializer_list<QXYSeries*>{holdLine, ruleLine, buys, sells}) {
        chart->addSeries(series);
        series->attachAxis(time);
        series->attachAxis(rupees);
    }
}

void SimulationResultsView::save(const QString& title, const QString& filter, const QString& suffix,
                                 const std::function<bool(QIODevice&)>& write) {
    Prompt& prompt = m_program.prompt();
    const std::optional<QString> chosen = prompt.saveFile(title, QDir::homePath(), filter);
    if (!chosen || chosen->isEmpty())
        return;
    QString path = *chosen;
    if (!path.endsWith(suffix, Qt::CaseInsensitive))
        path += suffix;
    // The file appears whole or not at all.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !write(file) || !file.commit())
        prompt.message(
            QStringLiteral("The file could not be written:\n") + path + QStringLiteral("\n") + file.errorString(),
            Buttons::OK, Icon::Exclamation, title);
}

void SimulationResultsView::exportPng() {
    save(QStringLiteral("Export the plot"), QStringLiteral("PNG images (*.png)"), QStringLiteral(".png"),
         [this](QIODevice& file) { return m_plot->grab().save(&file, "PNG"); });
}

void SimulationResultsView::exportCsv() {
    if (!m_metrics)
        return;
    const QByteArray csv = wealthCsv(*m_metrics);
    save(QStringLiteral("Export the days"), QStringLiteral("CSV files (*.csv)"), QStringLiteral(".csv"),
         [&csv](QIODevice& file) { return file.write(csv) == csv.size(); });
}

}  // namespace ostravel
