#include "market/ui/frmnewsbar_view.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

namespace ostravel {

frmNewsBar::frmNewsBar(const QString& news, QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
    setObjectName(QStringLiteral("frmNewsBar"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_Label1 = new QLabel(news, this);
    m_Label1->setObjectName(QStringLiteral("Label1"));
    QFont font(QStringLiteral("Tahoma"));
    font.setPointSize(11);
    m_Label1->setFont(font);
    m_Label1->adjustSize();
    setStyleSheet(QStringLiteral("frmNewsBar { background: #ffffe1; }"));
    setAttribute(Qt::WA_StyledBackground);

    const QRect screen = QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->availableGeometry()
                                                          : QRect(0, 0, 800, 600);
    const int height = m_Label1->height() + 6;
    setGeometry(screen.left(), screen.bottom() - height - 24, screen.width(), height);
    m_state.Form_Load(screen.width(), m_Label1->width());
    m_Label1->move(m_state.Label1Left, 3);

    m_Timer1.setInterval(NewsBar::kTimer1Interval);
    connect(&m_Timer1, &QTimer::timeout, this, [this] {
        if (!m_state.Timer1_Timer()) {
            m_Timer1.stop();
            close();
            return;
        }
        m_Label1->move(m_state.Label1Left, m_Label1->y());
    });
    m_Timer1.start();
}

void showNewsBar() {
    const QString news = newsText();
    if (!news.isEmpty())
        (new frmNewsBar(news))->show();
}

}  // namespace ostravel
