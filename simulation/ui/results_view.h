// The page "Results" beside the narrative on equitymanager: the figures of both investors
// after the last run, and a plot of their wealth day by day with the rule's trades marked,
// which exports as PNG and CSV.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "simulation/run_metrics.h"

class QIODevice;
class QLabel;
class QPushButton;
class QTableWidget;

class QChartView;

namespace ostravel {

class Program;

class SimulationResultsView : public QWidget {
    Q_OBJECT
public:
    explicit SimulationResultsView(Program& program, QWidget* parent = nullptr);

    // Reads the last run's figures again.
    void refresh();

private:
    void showFigures();
    void showPlot();
    void exportPng();
    void exportCsv();
    // Asks for a file and writes it whole, or says why it could not.
    void save(const QString& title, const QString& filter, const QString& suffix,
              const std::function<bool(QIODevice&)>& write);

    Program& m_program;
    std::optional<RunMetrics> m_metrics;
    QLabel* m_none = nullptr;
    QTableWidget* m_figures = nullptr;
    QChartView* m_plot = nullptr;
    QPushButton* m_png = nullptr;
    QPushButton* m_csv = nullptr;
};

}  // namespace ostravel
