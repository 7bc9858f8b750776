#include "widgets/help_panel.h"

#include <QTextBrowser>
#include <QVBoxLayout>

#include "runtime/apppath.h"
#include "runtime/trap.h"
#include "widgets/flexgrid.h"
#include "widgets/rich_text_box.h"

namespace ostravel {

namespace {
constexpr int kHelpHeightTwips = 3000;
}

HelpPanel::HelpPanel(QWidget* parent, int roomBelowTwips, ErrorReporter& reporter, QString place, QString file)
    : QWidget(parent),
      m_RichTextBox1(new QTextBrowser(this)),
      m_reporter(reporter),
      m_place(std::move(place)),
      m_file(std::move(file)) {
    m_RichTextBox1->setObjectName(QStringLiteral("RichTextBox1"));
    m_RichTextBox1->setFixedHeight(twipsToPixels(kHelpHeightTwips));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, twipsToPixels(roomBelowTwips));
    layout->addWidget(m_RichTextBox1);
    hide();
}

void HelpPanel::load() {
    if (m_loaded)
        return;
    m_loaded = true;
    trapped(m_reporter, m_place, [&] { loadRichText(m_RichTextBox1, appFile(m_file)); });
}

void HelpPanel::mirror(bool shown) {
    if (shown)
        load();
    setVisible(shown);
}

}  // namespace ostravel
