#include "app/quick_view.h"

#include <QCheckBox>
#include <QTextBrowser>

#include "context/program.h"
#include "context/quick.h"
#include "runtime/apppath.h"
#include "runtime/trap.h"
#include "widgets/rich_text_box.h"

namespace ostravel {

namespace {

constexpr int kTwipsPerPixel = 15;

}  // namespace

quick::quick(Program& program, QWidget* parent) : QWidget(parent), m_program(program) {
    setObjectName(QStringLiteral("quick"));
    setWindowTitle(QStringLiteral("Quick Start"));
    m_RichTextBox1 = new QTextBrowser(this);
    m_RichTextBox1->setObjectName(QStringLiteral("RichTextBox1"));
    m_Check1 = new QCheckBox(QStringLiteral("Show This screen at Startup"), this);
    m_Check1->setObjectName(QStringLiteral("Check1"));

    trapped(program.reporter(), QStringLiteral("(Form) quick::Sub Form_Load"),
            [&] { loadRichText(m_RichTextBox1, appFile(QStringLiteral("help/quick.rtf"))); });
    m_Check1->setChecked(quickWantedAtStart(program));
    connect(m_Check1, &QCheckBox::toggled, this, [this](bool on) { setQuickAtStart(m_program, on); });
    resize(640, 480);
}

bool quick::wantedAtStart(Program& program) {
    return quickWantedAtStart(program);
}

void quick::resizeEvent(QResizeEvent*) {
    // The box is 200 twips narrower and 450 twips lower than the form, the check box 150 below it.
    const int w = width() - 200 / kTwipsPerPixel;
    const int h = height() - 450 / kTwipsPerPixel;
    m_RichTextBox1->setGeometry(0, 0, w, h);
    m_Check1->setGeometry(0, h + 150 / kTwipsPerPixel, w, m_Check1->sizeHint().height());
}

}  // namespace ostravel
