// frmNewsBar's text and run: one line of news, from the news host when hosts.ini names one and
// else from news.txt under the program's folder, run once from the bar's right end off its left.
#pragma once

#include <QString>

namespace ostravel {

inline const QString kNewsFile = QStringLiteral("news.txt");

// The news as one line (line breaks become blanks); empty when there is none to show.
QString newsText();

struct NewsBar {
    static constexpr int kTimer1Interval = 120;  // milliseconds
    static constexpr int kStepTwips = 60;
    static constexpr int kTwipsPerPixel = 15;

    int Label1Left = 0;  // pixels, in the form
    int Label1Width = 0;
    bool closed = false;

    // On load: the label at the right end of a form so wide.
    void Form_Load(int formWidth, int labelWidth);
    // A tick: the label 60 twips to the left, or the form closed once it has run off. False
    // when closed.
    bool Timer1_Timer();
};

}  // namespace ostravel
