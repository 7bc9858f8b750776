// frmBrowser: the built-in web view with its toolbar (Back, Forward, Refresh, Stop, Home), the
// address list and "Nav Hide". A build without Qt WebEngine opens pages in the desktop's browser.
#pragma once

#include <QWidget>

class QComboBox;
class QPushButton;
class QWebEngineView;

namespace ostravel {

class FrmBrowser;
class Program;

#ifdef OSTRAVEL_HAVE_WEBENGINE
class FrmBrowserForm : public QWidget {
    Q_OBJECT
public:
    explicit FrmBrowserForm(Program& program, QWidget* parent = nullptr);
    ~FrmBrowserForm() override;

    // Goes to the state's starting address.
    void navigateStart();
    QWebEngineView* view() const { return m_brwWebBrowser; }

private:
    void navigate(const QString& address);
    void refreshAddresses();

    Program& m_program;
    FrmBrowser& m_state;
    QComboBox* m_cboAddress;
    QPushButton* m_Command1;
    QWebEngineView* m_brwWebBrowser;
};
#endif

// Shows the state's starting address: in frmBrowser as a child of the frame (make gives the
// window a place), or in the desktop's browser when the build has no web view or it can't run in
// this process; a page that opens nowhere is told.
void showBrowser(Program& program, const std::function<QWidget*(const std::function<QWidget*()>&)>& place);

}  // namespace ostravel
