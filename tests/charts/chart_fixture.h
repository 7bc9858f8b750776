// The chart window of a test: TATAMOTORS's history from tests/data under the holding in work, a
// fresh Chart.INI with a font every machine has, and the window loaded at 800 by 600.
#pragma once

#include <gtest/gtest.h>

#include <QImage>

#include "charts/chart_settings.h"
#include "charts/frmmain.h"
#include "charts/mfunctions.h"
#include "market/history_import.h"
#include "runtime/apppath.h"
#include "tests/support/program_test.h"
#include "tests/support/selection.h"

namespace ostravel::test {

inline QString testData(const QString& relative) {
    return qEnvironmentVariable("OSTRAVEL_TEST_DATA") + QLatin1Char('/') + relative;
}

class ChartWindow : public ProgramTest {
protected:
    ChartWindow() {
        importHistoryFile(testData(QStringLiteral("history/TATAMOTORS.csv")), QStringLiteral("TATAMOTORS"));
        selectHolding(m_program.frame(), QStringLiteral("TATAMOTORS"), QStringLiteral("Long Term"));
        // A font every machine of the project has, so that the picture is the same everywhere.
        MakeIniFile(iniFile());
        WriteIni(iniFile(), QStringLiteral("Settings"), QStringLiteral("FontName"), QStringLiteral("DejaVu Sans"));
        chart.Form_Load();
        chart.Form_Resize(800, 600);
        chart.loadHistory();
    }
    static QString iniFile() { return appFile(QStringLiteral("Chart.INI")); }
    QString ini(const char* key) const {
        return GetIni(iniFile(), QStringLiteral("Settings"), QString::fromLatin1(key));
    }
    QString ini(const char* section, const char* key) const {
        return GetIni(iniFile(), QString::fromLatin1(section), QString::fromLatin1(key));
    }
    // Rows of the indicator pane, between the second split and the chart's bottom.
    bool paneIsBlank() {
        const QImage& picture = chart.ChartBoxV;
        const QRgb back = picture.pixel(picture.width() - 1, picture.height() - 1);
        for (int y = static_cast<int>(chart.settings().WindowSplit2) + 2; y < chart.ChartBottom; ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixel(x, y) != back)
                    return false;
        return true;
    }

    FrmMain chart{m_program};
};

}  // namespace ostravel::test
