#include "charts/ui/frmdrawingtools_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "charts/frmdrawingtools.h"
#include "charts/mfunctions.h"
#include "charts/ui/dialog_controls.h"

namespace ostravel {

namespace {

// How long a released tool button shows its press before the form hides.
constexpr double kPressShown = 0.1;

QComboBox* combo(const char* name, const QStringList& rows, QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->addItems(rows);
    return box;
}

QCheckBox* check(const char* name, QWidget* parent) {
    auto* box = new QCheckBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

}  // namespace

FrmDrawingToolsForm::FrmDrawingToolsForm(Program& program, CDrawingToolschart& tools, QWidget* parent)
    : QDialog(parent), m_state(std::make_unique<FrmDrawingTools>(program, tools)) {
    setObjectName(QStringLiteral("frmDrawingTools"));
    setWindowTitle(QStringLiteral("Drawing Tools"));
    setModal(true);

    auto* picContainer = new QWidget(this);
    picContainer->setObjectName(QStringLiteral("picContainer"));
    auto* buttons = new QVBoxLayout(picContainer);
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        // A caption's "&" is shown, not taken for a mnemonic.
        auto* b = new QPushButton(QString(FrmDrawingTools::kButtons[i]).replace(QLatin1Char('&'), QStringLiteral("&&")),
                                  picContainer);
        b->setObjectName(QStringLiteral("picButton(%1)").arg(i));
        b->setAutoDefault(false);
        m_buttons[i] = b;
        buttons->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, i] { ToggleButton(static_cast<int>(i)); });
    }
    m_buttons.back()->setEnabled(false);  // for future use: no tool behind it

    auto* settings = new QGroupBox(QStringLiteral("Draw Settings"), this);
    auto* form = new QFormLayout(settings);
    m_lblColor = makeColourSquare(QStringLiteral("lblColor"), settings);
    m_cboStyle = combo("cboStyle", FrmDrawingTools::kStyles, settings);
    m_cboWidth = combo("cboWidth", FrmDrawingTools::kWidths, settings);
    m_cboMode = combo("cboMode", FrmDrawingTools::kModes, settings);
    m_lblFillColor = makeColourSquare(QStringLiteral("lblFillColor"), settings);
    m_cboFillStyle = combo("cboFillStyle", FrmDrawingTools::kFillStyles, settings);
    m_chkExtend = check("chkExtend", settings);
    m_chkExtendLeft = check("chkExtendLeft", settings);
    m_chkSquare = check("chkSquare", settings);
    m_chkCircle = check("chkCircle", settings);
    form->addRow(QStringLiteral("DrawColor:"), m_lblColor);
    form->addRow(QStringLiteral("DrawStyle:"), m_cboStyle);
    form->addRow(QStringLiteral("DrawWidth:"), m_cboWidth);
    form->addRow(QStringLiteral("DrawMode:"), m_cboMode);
    form->addRow(QStringLiteral("FillColor:"), m_lblFillColor);
    form->addRow(QStringLiteral("FillStyle:"), m_cboFillStyle);
    auto* extend = new QGroupBox(QStringLiteral("TL Extend"), settings);
    auto* extendForm = new QFormLayout(extend);
    extendForm->addRow(QStringLiteral("Right:"), m_chkExtend);
    extendForm->addRow(QStringLiteral("Left:"), m_chkExtendLeft);
    form->addRow(extend);
    form->addRow(QStringLiteral("Perfect Square:"), m_chkSquare);
    form->addRow(QStringLiteral("Perfect Circle:"), m_chkCircle);
    auto* points = new QHBoxLayout;
    const QString captions[] = {QStringLiteral("Opp.Pts"), QStringLiteral("Origin")};
    for (std::size_t i = 0; i < m_optCircPt.size(); ++i) {
        m_optCircPt[i] = new QRadioButton(captions[i], settings);
        m_optCircPt[i]->setObjectName(QStringLiteral("optCircPt(%1)").arg(i));
        points->addWidget(m_optCircPt[i]);
        connect(m_optCircPt[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                m_state->optCircPt = {i == 0, i == 1};
        });
    }
    form->addRow(points);
    auto* cmdSetDefault = makeDialogButton("cmdSetDefault", QStringLiteral("Set Current as Default"), settings);
    form->addRow(cmdSetDefault);

    connect(m_lblColor, &QPushButton::clicked, this, [this] { act([this] { m_state->lblColor_Click(); }); });
    connect(m_lblFillColor, &QPushButton::clicked, this, [this] { act([this] { m_state->lblFillColor_Click(); }); });
    connect(m_cboStyle, &QComboBox::activated, this,
            [this](int row) { act([this, row] { m_state->cboStyle_Click(row); }); });
    connect(m_cboWidth, &QComboBox::activated, this, [this](int row) { m_state->cboWidth = row; });
    connect(m_cboMode, &QComboBox::activated, this, [this](int row) { m_state->cboMode = row; });
    connect(m_cboFillStyle, &QComboBox::activated, this, [this](int row) { m_state->cboFillStyle = row; });
    connect(m_chkExtend, &QCheckBox::toggled, this, [this](bool on) { m_state->chkExtend = on; });
    connect(m_chkExtendLeft, &QCheckBox::toggled, this, [this](bool on) { m_state->chkExtendLeft = on; });
    connect(m_chkSquare, &QCheckBox::toggled, this, [this](bool on) { m_state->chkSquare = on; });
    connect(m_chkCircle, &QCheckBox::toggled, this, [this](bool on) { m_state->chkCircle = on; });
    connect(cmdSetDefault, &QPushButton::clicked, this, [this] { act([this] { m_state->cmdSetDefault_Click(); }); });

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(picContainer);
    layout->addWidget(settings);

    loadInto(this, *m_state);
    refresh();
}

FrmDrawingToolsForm::~FrmDrawingToolsForm() {
    m_state->unload = nullptr;
}

void FrmDrawingToolsForm::refresh() {
    const FrmDrawingTools& s = *m_state;
    showColour(m_lblColor, s.lblColor);
    showColour(m_lblFillColor, s.lblFillColor);
    m_cboStyle->setCurrentIndex(s.cboStyle);
    m_cboWidth->setCurrentIndex(s.cboWidth);
    m_cboWidth->setEnabled(s.cboWidthEnabled);
    m_cboMode->setCurrentIndex(s.cboMode);
    m_cboFillStyle->setCurrentIndex(s.cboFillStyle);
    m_chkExtend->setChecked(s.chkExtend);
    m_chkExtendLeft->setChecked(s.chkExtendLeft);
    m_chkSquare->setChecked(s.chkSquare);
    m_chkCircle->setChecked(s.chkCircle);
    for (std::size_t i = 0; i < m_optCircPt.size(); ++i) m_optCircPt[i]->setChecked(s.optCircPt[i]);
    if (!s.Visible)
        hide();
}

void FrmDrawingToolsForm::act(const std::function<void()>& procedure) {
    procedure();
    refresh();
}

void FrmDrawingToolsForm::ToggleButton(int index) {
    QPushButton* pressed = m_buttons[static_cast<std::size_t>(index)];
    pressed->setDown(true);
    Delay(kPressShown);
    pressed->setDown(false);
    act([this, index] { m_state->picButton_MouseUp(index); });
}

}  // namespace ostravel
