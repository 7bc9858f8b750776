// Technical, the day screener: gainers, losers and volume movers of one day out of the
// day-file store's table of that day's year, listed with a running number.
#pragma once

#include <QDate>
#include <QString>
#include <memory>

#include "context/gridformat.h"

namespace ostravel {

class DayStore;
class Program;

class Technical {
public:
    static inline const QString kFormat = QStringLiteral("^Nos|^Symbol|^Open|^High|^low|^Last|^Volume|^Date");
    static constexpr int kCols = 8;
    static constexpr int kColWidth = 1200;

    explicit Technical(Program& program);
    ~Technical();

    FlexGridData MSFlexGrid1{1, kCols};
    QDate DTPicker1 = QDate::currentDate();
    QString statement;  // the last button's statement

    // Opens the day-file store.
    void Form_Load();
    // "Gainers", "Lossers", "Volume" for the day in DTPicker1.
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    // A click on a row (from 1): its symbol becomes the stock in work.
    void MSFlexGrid1_Click(int row);

    // The buttons' statements for a day.
    static QString gainers(const QDate& day);
    static QString lossers(const QDate& day);
    static QString volume(const QDate& day);

private:
    void fill(const QString& place);

    Program& m_program;
    std::unique_ptr<DayStore> m_store;
};

}  // namespace ostravel
