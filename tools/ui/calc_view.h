// calc: the calculator window over Calculator.
#pragma once

#include <QWidget>

#include "tools/calculator.h"

class QLineEdit;

namespace ostravel {

class calc : public QWidget {
    Q_OBJECT
public:
    explicit calc(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void press(const QString& key);
    Calculator m_calculator;
    QLineEdit* m_txtdisplay;
};

}  // namespace ostravel
