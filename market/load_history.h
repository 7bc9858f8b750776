// LoadHistoryFile and its helpers: a history file into StockData and the table simulation,
// the same days in the file's order.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace ostravel {

class Program;

// GetQToken's splitter over one line: fields between commas, a field that follows a double
// quote runs to the next double quote. Two commas in a row give an empty field, and the end of
// the line gives one too.
class QToken {
public:
    explicit QToken(QByteArrayView line) : m_line(line) {}
    QByteArrayView next();

private:
    QByteArrayView m_line;
    qsizetype m_pos = 0;
};

// The file can be measured: it exists and is a file.
bool ExistFile(const QString& name);

// The dialog "Open Data File" through the prompt; a chosen file becomes DataFile, and its stem
// (or "???" without a ".") the stock in work.
bool OpenDataFile(Program& program);

// The history file of cmbequity (or one the user picks when there is none) into StockData and
// simulation, in one transaction. False when nothing was loaded.
bool LoadHistoryFile(Program& program);

// A file below this many bytes holds no history, whatever lines it has.
constexpr qsizetype kMinimumHistoryBytes = 500;

}  // namespace ostravel
