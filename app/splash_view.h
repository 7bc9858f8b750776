// frmSplash: the start screen, shown for two seconds or until a key.
#pragma once

#include <QTimer>
#include <QWidget>

namespace ostravel {

class Program;

class frmSplash : public QWidget {
    Q_OBJECT
public:
    explicit frmSplash(Program& program, QWidget* parent = nullptr);

Q_SIGNALS:
    // The frame is to be shown now.
    void showFrame();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void unload();
    QTimer m_Timer1;
};

}  // namespace ostravel
