#include "app/splash_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "context/program.h"
#include "context/version.h"
#include "market/connectivity.h"
#include "market/ui/frmnewsbar_view.h"
#include "runtime/trap.h"

namespace ostravel {

frmSplash::frmSplash(Program& program, QWidget* parent) : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("frmSplash"));
    trapped(program.reporter(), QStringLiteral("(Form) frmSplash::Sub Form_Load"),
            [&] { program.store().users->moveFirst(); });

    auto* title = new QLabel(QStringLiteral("Ostravel"), this);
    title->setObjectName(QStringLiteral("lblProductName"));
    QFont big = title->font();
    big.setPointSize(28);
    big.setBold(true);
    title->setFont(big);
    auto* line = new QLabel(QStringLiteral("A Friendly Stock Consultant"), this);
    line->setObjectName(QStringLiteral("lblCompanyProduct"));
    auto* version = new QLabel(productversion(), this);
    version->setObjectName(QStringLiteral("productversion"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(40, 30, 40, 30);
    for (QLabel* label : {title, line, version}) {
        label->setAlignment(Qt::AlignCenter);
        layout->addWidget(label);
    }
    setStyleSheet(QStringLiteral("#frmSplash { background: #10365a; } QLabel { color: white; }"));
    setAttribute(Qt::WA_StyledBackground);
    resize(480, 260);

    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_Timer1.setSingleShot(true);
    m_Timer1.setInterval(2000);
    connect(&m_Timer1, &QTimer::timeout, this, [this, &program] {
        Q_EMIT showFrame();
        // The news runs across the screen once when there is a connection to bring it.
        if (CheckInternetConnection(program.prompt()) == -1)
            showNewsBar();
        unload();
    });
    m_Timer1.start();
    setFocusPolicy(Qt::StrongFocus);
}

void frmSplash::keyPressEvent(QKeyEvent* event) {
    // Kept: Escape only unloads the splash, and the frame never comes; any other key goes on
    // to the frame at once.
    if (event->key() != Qt::Key_Escape)
        Q_EMIT showFrame();
    unload();
}

void frmSplash::unload() {
    m_Timer1.stop();
    if (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    close();
}

}  // namespace ostravel
