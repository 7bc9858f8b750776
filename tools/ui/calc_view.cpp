#include "tools/ui/calc_view.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

namespace ostravel {

calc::calc(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("calc"));
    setWindowTitle(QStringLiteral("Calculator"));
    setProperty("keepsSize", true);

    m_txtdisplay = new QLineEdit(m_calculator.display(), this);
    m_txtdisplay->setObjectName(QStringLiteral("txtdisplay"));
    m_txtdisplay->setReadOnly(true);
    m_txtdisplay->setFocusPolicy(Qt::ClickFocus);
    m_txtdisplay->setAlignment(Qt::AlignRight);
    m_txtdisplay->setFocusPolicy(Qt::NoFocus);
    QFont big = m_txtdisplay->font();
    big.setPointSize(big.pointSize() + 4);
    m_txtdisplay->setFont(big);

    auto* grid = new QGridLayout(this);
    grid->addWidget(m_txtdisplay, 0, 0, 1, 4);
    const char* keys[5][4] = {{"C", "CE", "BS", "/"},
                              {"7", "8", "9", "*"},
                              {"4", "5", "6", "-"},
                              {"1", "2", "3", "+"},
                              {"+/-", "0", ".", "="}};
    for (int r = 0; r < 5; ++r) {
        for (int c = 0; c < 4; ++c) {
            const QString key = QString::fromLatin1(keys[r][c]);
            auto* button = new QPushButton(key == QLatin1String("BS") ? QStringLiteral("\u2190") : key, this);
            button->setObjectName(QStringLiteral("cmd") + key);
            button->setFocusPolicy(Qt::NoFocus);
            button->setMinimumSize(48, 36);
            connect(button, &QPushButton::clicked, this, [this, key] { press(key); });
            grid->addWidget(button, r + 1, c);
        }
    }
    setFocusPolicy(Qt::StrongFocus);
    adjustSize();
}

void calc::press(const QString& key) {
    m_calculator.press(key);
    m_txtdisplay->setText(m_calculator.display());
}

void calc::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            press(QStringLiteral("="));
            return;
        case Qt::Key_Escape:
            press(QStringLiteral("C"));
            return;
        case Qt::Key_Backspace:
            press(QStringLiteral("BS"));
            return;
        case Qt::Key_Delete:
            press(QStringLiteral("CE"));
            return;
        default:
            break;
    }
    const QString text = event->text();
    if (text.size() == 1 && QStringLiteral("0123456789.+-*/=").contains(text[0]))
        press(text);
    else
        QWidget::keyPressEvent(event);
}

}  // namespace ostravel
