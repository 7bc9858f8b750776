// The dialog frmProxy, "Proxy Settings": mirrors FrmProxy and forwards its events.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace ostravel {

class FrmProxy;

class FrmProxyForm : public QDialog {
    Q_OBJECT
public:
    explicit FrmProxyForm(FrmProxy& state, QWidget* parent = nullptr);

    void refresh();

private:
    FrmProxy& m_state;
    QCheckBox* m_chkProxy;
    QLineEdit* m_txtProxyIP;
    QLineEdit* m_txtProxyPort;
    QPushButton* m_Cmdsave;
};

}  // namespace ostravel
