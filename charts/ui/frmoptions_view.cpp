#include "charts/ui/frmoptions_view.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "charts/frmmain.h"
#include "charts/ui/dialog_controls.h"

namespace ostravel {

namespace {

using Field = FrmOptions::Field;

struct FieldRow {
    Field field;
    const char* name;
    const char* caption;
    const char* limit;
};
constexpr FieldRow kFieldRows[] = {
    {Field::Div1, "txtDiv1", "Divider1 Position", "lblDiv1"},
    {Field::Div2, "txtDiv2", "Divider2 Position", "lblDiv2"},
    {Field::CrosshairMode, "txtCrosshairMode", "CrossHair Mode", "lblCHmode"},
    {Field::ScrollIncrement, "txtScrollIncrement", "Scroll Increment", "lblScrollIncrement"},
};

// The bar types as the group's buttons, by TicType.
struct BarType {
    const char* name;
    const char* caption;
    int ticType;
};
constexpr BarType kBarTypes[] = {
    {"picTypeCandle", "Candle", 3}, {"picTypeHLOC", "HLOC", 2}, {"picTypeLine", "Line", 1}};

}  // namespace

FrmOptionsForm::FrmOptionsForm(FrmMain& chart, std::function<void()> chartChanged, QWidget* parent)
    : QDialog(parent), m_state(std::make_unique<FrmOptions>(chart)), m_chartChanged(std::move(chartChanged)) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Chart Options"));
    setModal(true);

    auto* colours = new QGroupBox(QStringLiteral("Color Options"), this);
    auto* colourGrid = new QGridLayout(colours);
    for (int i = 0; i < FrmOptions::kColours; ++i) {
        QPushButton* square = makeColourSquare(QStringLiteral("lblColor(%1)").arg(i), colours);
        square->setAccessibleName(FrmOptions::kColourCaptions[static_cast<std::size_t>(i)]);
        m_colours[static_cast<std::size_t>(i)] = square;
        colourGrid->addWidget(square, i, 0);
        colourGrid->addWidget(new QLabel(FrmOptions::kColourCaptions[static_cast<std::size_t>(i)], colours), i, 1);
        connect(square, &QPushButton::clicked, this, [this, i] { act([this, i] { m_state->lblColor_Click(i); }); });
    }

    auto* barFrame = new QGroupBox(QStringLiteral("Data Bar Type"), this);
    auto* picBarTypeCont = new QWidget(barFrame);
    picBarTypeCont->setObjectName(QStringLiteral("picBarTypeCont"));
    auto* barLayout = new QHBoxLayout(picBarTypeCont);
    m_barType = new QButtonGroup(this);
    for (const BarType& type : kBarTypes) {
        auto* pic = new QToolButton(picBarTypeCont);
        pic->setObjectName(QString::fromLatin1(type.name));
        pic->setText(QString::fromLatin1(type.caption));
        pic->setCheckable(true);
        m_barType->addButton(pic, type.ticType);
        barLayout->addWidget(pic);
    }
    connect(m_barType, &QButtonGroup::idClicked, this, [this](int ticType) {
        act([this, ticType] { m_state->picType_Click(static_cast<std::int16_t>(ticType)); });
    });
    (new QVBoxLayout(barFrame))->addWidget(picBarTypeCont);

    auto* misc = new QGroupBox(QStringLiteral("Misc Settings"), this);
    auto* miscGrid = new QGridLayout(misc);
    for (const FieldRow& row : kFieldRows) {
        const int r = static_cast<int>(row.field);
        miscGrid->addWidget(new QLabel(QString::fromLatin1(row.caption), misc), r, 0);
        QLineEdit* edit = addField(row.field, row.name);
        edit->setParent(misc);
        miscGrid->addWidget(edit, r, 1);
        auto* limit = new QLabel(misc);
        limit->setObjectName(QString::fromLatin1(row.limit));
        m_limits[static_cast<std::size_t>(r)] = limit;
        miscGrid->addWidget(limit, r, 2);
    }

    auto* fontFrame = new QGroupBox(QStringLiteral("Chart Font (Click to Change)"), this);
    m_txtFont = new QLineEdit(fontFrame);
    m_txtFont->setObjectName(QStringLiteral("txtFont"));
    m_txtFont->setReadOnly(true);
    m_txtFont->installEventFilter(this);
    (new QVBoxLayout(fontFrame))->addWidget(m_txtFont);

    auto* cmdBackup = makeDialogButton("cmdBackup", QStringLiteral("&Backup INI"), this);
    auto* cmdDefaults = makeDialogButton("cmdDefaults", QStringLiteral("&Reset to Defaults"), this);
    auto* cmdSaveExit = makeDialogButton("cmdSaveExit", QStringLiteral("Save && E&xit"), this);
    auto* cmdCancel = makeDialogButton("cmdCancel", QStringLiteral("&Cancel && Exit"), this);
    connect(cmdBackup, &QPushButton::clicked, this, [this] { act([this] { m_state->cmdBackup_Click(); }); });
    connect(cmdDefaults, &QPushButton::clicked, this, [this] { act([this] { m_state->cmdDefaults_Click(); }); });
    connect(cmdSaveExit, &QPushButton::clicked, this, [this] { act([this] { m_state->cmdSaveExit_Click(); }); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { act([this] { m_state->cmdCancel_Click(); }); });

    auto* right = new QVBoxLayout;
    right->addWidget(barFrame);
    right->addWidget(misc);
    right->addWidget(fontFrame);
    right->addStretch();
    auto* top = new QHBoxLayout;
    top->addWidget(colours);
    top->addLayout(right);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {cmdBackup, cmdDefaults, cmdSaveExit, cmdCancel}) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(buttons);

    loadInto(this, *m_state);
    refresh();
}

FrmOptionsForm::~FrmOptionsForm() {
    // The boxes lose their focus as they go, after the state: nothing may reach it then.
    for (QLineEdit* edit : m_fields) edit->removeEventFilter(this);
    m_txtFont->removeEventFilter(this);
    m_state->unload = nullptr;
}

QLineEdit* FrmOptionsForm::addField(Field field, const char* name) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(QString::fromLatin1(name));
    edit->installEventFilter(this);
    m_fields[static_cast<std::size_t>(field)] = edit;
    connect(edit, &QLineEdit::textEdited, this,
            [this, field](const QString& text) { m_state->field(field).text = text; });
    return edit;
}

void FrmOptionsForm::refresh() {
    for (std::size_t i = 0; i < m_colours.size(); ++i) showColour(m_colours[i], m_state->lblColor[i]);
    if (QAbstractButton* pressed = m_barType->button(m_state->TicType))
        pressed->setChecked(true);
    for (const FieldRow& row : kFieldRows) {
        const auto r = static_cast<std::size_t>(row.field);
        const QString& text = m_state->field(row.field).text;
        if (m_fields[r]->text() != text)
            m_fields[r]->setText(text);
    }
    m_limits[0]->setText(m_state->lblDiv1);
    m_limits[1]->setText(m_state->lblDiv2);
    m_limits[2]->setText(m_state->lblCHmode);
    m_limits[3]->setText(m_state->lblScrollIncrement);
    m_txtFont->setText(m_state->txtFont);
}

void FrmOptionsForm::act(const std::function<void()>& procedure) {
    procedure();
    refresh();
    if (m_chartChanged)
        m_chartChanged();
}

void FrmOptionsForm::reject() {
    // Esc and the window's close go as Cancel & Exit.
    act([this] { m_state->cmdCancel_Click(); });
}

bool FrmOptionsForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_txtFont) {
        const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
        const bool press =
            key && (key->key() == Qt::Key_Space || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter);
        if (event->type() == QEvent::MouseButtonRelease || press) {
            act([this] { m_state->txtFont_Click(); });
            return true;
        }
        return QDialog::eventFilter(watched, event);
    }
    const auto found = std::find(m_fields.begin(), m_fields.end(), watched);
    if (found == m_fields.end())
        return QDialog::eventFilter(watched, event);
    const auto field = static_cast<Field>(found - m_fields.begin());
    QLineEdit* edit = *found;
    if (event->type() == QEvent::FocusOut) {
        act([this, field] { m_state->fieldEnter(field); });
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Escape) {
        act([this, field] { m_state->fieldEscape(field); });
        edit->selectAll();
        return true;
    }
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        act([this, field] { m_state->fieldEnter(field); });
        return true;
    }
    if (key->text().size() == 1 && FrmOptions::fieldKey(field, key->text().front().unicode()) == 0)
        return true;
    return QDialog::eventFilter(watched, event);
}

}  // namespace ostravel
