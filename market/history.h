// The history of one stock: the module-level state of the download and of the loaded bars
// (StockData, LastIdx), which the simulation and the chart read, and the paging download.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

namespace ostravel {

class MainFrame;
class Program;

// One loaded day; the file's order, oldest first.
struct StockRecord {
    QString Date;  // "dd/mm/yyyy"
    QString Time;  // stays empty: a history file has no time column
    double Open = 0;
    double High = 0;
    double Low = 0;
    double Close = 0;
    std::int32_t Volume = 0;
};

inline const QString kLengthBelow20 = QStringLiteral("Length of data < 20...");
inline const QString kDateNotFound = QStringLiteral("Error with Data, \"Date\" not found");
inline const QString kHistoryEmpty = QStringLiteral("History is empty get the complete data from Internet");

// Module3's variables, one set per run (Program::module).
struct HistoryState {
    QByteArray DataBuffer;  // the raw or half-made answer, 8-bit text
    QString DataFile;       // the history file in work
    QString HistoryURL;
    QString HistoryBaseURL;
    int HistoryOffset = 0;
    std::vector<StockRecord> StockData;  // index 0 to LastIdx
    std::int32_t LastIdx = -1;
    int HistoryPageNo = 0;
    double HistoryDays = 0;
    bool HistoryIsEmpty = false;
    QString DataFileTitle;
    QString DataFileStem;

    // Set by the frame's window: LoadHistoryFile sends the user back to the code box.
    std::function<void()> focusCmbequity;
    // The click of "Get History", which "Get History All" runs for each stock; set by the
    // simulation's screens. Unset, the history is fetched or loaded alone.
    std::function<void()> Command1_Click;
};

// The cmbequity text with every ".NS" removed, in exactly that case: "hdfc.ns" keeps its suffix.
QString historySymbol(const MainFrame& frame);
// history/daily/<symbol>.csv under the program's folder.
QString historyFilePath(const MainFrame& frame);

// The URL of one page, for the code and the two dates of equitymanager and HistoryOffset.
void ConstructURL(Program& program);
// Pages of 200 rows, Round (to even) of the days / 200; one request for 0 or 1 pages. Then
// ParseAndSaveData, unless the answers hold fewer than 20 characters.
void getinternetdata(Program& program);

}  // namespace ostravel
