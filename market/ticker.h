// The ticker of the main frame: the button cmdticker, MsgScroller1 filled with the quotes of the
// open portfolio and of the index, its refresh by Timer1, and the click that opens the stock.
#pragma once

#include <QString>

#include "market/scroller/msgscroller.h"

namespace ostravel {

class Program;

struct Ticker {
    static inline const QString kTicker = QStringLiteral("Ticker");
    static inline const QString kRunning = QStringLiteral("Portfoliio");

    MsgScroller MsgScroller1;
    bool MsgScroller1Visible = false;
    QString cmdticker = kTicker;  // the button's caption tells its state
    int Timer1Interval = 0;       // milliseconds; 0 is off
    bool Timer1Enabled = false;
    QString symbols;  // the request's codes joined by "+", the index first
    int lastRefreshMinute = 0;
    // The intraday chart that a click on an item asks the web navigator for.
    QString browserAddress;
    QString browserCaption;
};

void cmdticker_Click(Program& program);
// One request for all the codes; the ring takes the answer, or keeps its items when none came.
void RefreshTicker(Program& program);
void addstock(Program& program, int row);
// Each second while the ticker runs; `minute` is the clock's minute.
void Timer1_Timer(Program& program, int minute);
void MsgScroller1_HotSpotClick(Program& program, int index);

}  // namespace ostravel
