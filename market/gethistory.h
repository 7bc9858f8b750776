// The ways the main frame gets history: the history half of mainprocedures, "Get History All"
// and the online mode that decides between the service and the file.
#pragma once

#include <QString>
#include <functional>

namespace ostravel {

class Program;

// How the history half of mainprocedures ended: loaded, not loaded by LoadHistoryFile, or a
// download that ended on another caption than "Ready" (nothing was loaded then).
enum class HistoryLoad { Loaded, NotLoaded, DownloadFailed };

// The history of the stock in work into StockData and simulation: downloaded when HistoryDL is
// 0 and the program is online (and loaded only when the caption then reads "Ready"), else
// from its file.
HistoryLoad historyIntoSimulation(Program& program);

// mnugethistory: for each record of niftyquote, the stock in work, the last 1500 days, and
// `command1` (the click of "Get History"). Stops early when `stop` says so.
void mnugethistory_Click(Program& program, const std::function<void()>& command1,
                         const std::function<bool()>& stop = {});

// cmdonlinestatus: "Online Mode" goes offline (QuoteDL and HistoryDL 1), otherwise online; the
// caption names the mode in force. Returns the new caption.
QString cmdonlinestatus_Click(Program& program, const QString& caption);

}  // namespace ostravel
