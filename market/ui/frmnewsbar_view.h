// frmNewsBar: a top-most strip at the foot of the screen whose label runs the news once from its
// right end off its left, then closes.
#pragma once

#include <QTimer>
#include <QWidget>

#include "market/newsbar.h"

class QLabel;

namespace ostravel {

class frmNewsBar : public QWidget {
    Q_OBJECT
public:
    explicit frmNewsBar(const QString& news, QWidget* parent = nullptr);

private:
    NewsBar m_state;
    QLabel* m_Label1;
    QTimer m_Timer1;
};

// Shows the bar with the news of newsText(), when there is any.
void showNewsBar();

}  // namespace ostravel
