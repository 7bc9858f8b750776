#include "charts/ui/frmmain_view.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPaintEvent>
#include <QPainter>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>

#include "charts/drawing_geometry.h"
#include "charts/frmmain.h"
#include "charts/ui/frmdrawingtools_view.h"
#include "charts/ui/frmindicators_view.h"
#include "charts/ui/frmoptions_view.h"

namespace ostravel {

namespace {

// One notch of the wheel, in eighths of a degree.
constexpr int kNotch = 120;
// A running tool's loop makes a pass this often between the mouse's events.
constexpr int kToolPassMs = 100;

QLine lineOf(const OverLine& line) {
    return QLine(line.X1, line.Y1, line.X2, line.Y2);
}

QString colourStyle(std::int32_t back, std::int32_t fore) {
    return QStringLiteral("QLabel { background: %1; color: %2; }")
        .arg(programColour(back).name(), programColour(fore).name());
}

}  // namespace

ChartBoxView::ChartBoxView(FrmMain& state, QWidget* parent) : QWidget(parent), m_state(state) {
    setObjectName(QStringLiteral("ChartBoxV"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_label = new QLabel(this);
    m_label->setObjectName(QStringLiteral("lblMousePrice"));
    m_label->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_label->hide();
    m_instruct = new QLabel(this);
    m_instruct->setObjectName(QStringLiteral("txtDrawInstruct"));
    m_instruct->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_instruct->setMargin(4);
    m_instruct->move(8, 8);
    m_instruct->hide();
    m_heartbeat = new QTimer(this);
    m_heartbeat->setInterval(kToolPassMs);
    connect(m_heartbeat, &QTimer::timeout, this, [this] {
        m_state.DrawingTools.DoLoop();
        Q_EMIT changed();
    });
}

QRegion ChartBoxView::overRegion() const {
    QRegion region;
    const auto strip = [&](const OverLine& line, int thickness) {
        if (line.Visible)
            region += QRect(lineOf(line).p1(), lineOf(line).p2())
                          .normalized()
                          .adjusted(-thickness, -thickness, thickness, thickness);
    };
    strip(m_state.ChLine1, 1);
    strip(m_state.ChLine2, 1);
    strip(m_state.Divider[0], 2);
    strip(m_state.Divider[1], 2);
    return region;
}

void ChartBoxView::mirror() {
    const MouseLabelState& label = m_state.lblMousePrice;
    m_label->setVisible(label.Visible && !label.Caption.isEmpty());
    if (m_label->isVisible()) {
        m_label->setStyleSheet(colourStyle(label.BackColor, label.ForeColor));
        m_label->setText(label.Caption);
        m_label->adjustSize();
        const int left = std::max(0, std::min(label.Left, width() - m_label->width()));
        const int top = std::clamp(label.Top - m_label->height() / 2, 0, std::max(0, height() - m_label->height()));
        m_label->move(left, top);
    }
    const InstructionBox& instruct = m_state.txtDrawInstruct;
    m_instruct->setVisible(instruct.Visible);
    if (instruct.Visible) {
        // The heartbeat of the tool's loop shows as the box's shade changing.
        m_instruct->setStyleSheet(
            QStringLiteral("QLabel { background: %1; color: black; border: 1px solid black; }")
                .arg(m_state.DrawLoopBeat ? QStringLiteral("#fff8c0") : QStringLiteral("#ffffe0")));
        m_instruct->setText(instruct.Text);
        m_instruct->adjustSize();
        m_instruct->raise();
    }
    const bool drawing = m_state.DrawingTools.Active();
    if (drawing != m_heartbeat->isActive())
        drawing ? m_heartbeat->start() : m_heartbeat->stop();
    if (m_state.SystemCursorHidden)
        setCursor(Qt::BlankCursor);
    else if (m_state.MousePointer == Pointer::Divider)
        setCursor(Qt::SplitVCursor);
    else if (m_state.MousePointer == Pointer::Custom)
        setCursor(Qt::CrossCursor);
    else
        unsetCursor();
    // The lines over the picture move without a redraw of the picture itself.
    const QRegion over = overRegion();
    const bool banded = !m_state.DrawingTools.RubberBand().empty();
    if (banded || m_banded) {
        m_banded = banded;
        m_shownPicture = m_state.ChartBoxV.cacheKey();
        update();
    } else if (m_state.ChartBoxV.cacheKey() != m_shownPicture) {
        m_shownPicture = m_state.ChartBoxV.cacheKey();
        update();
    } else {
        update(m_lastOver + over);
    }
    m_lastOver = over;
}

void ChartBoxView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (m_state.ChartBoxV.size() != size())
        painter.fillRect(event->rect(), programColour(m_state.ChartBox.BackColor));
    painter.drawImage(event->rect(), m_state.ChartBoxV, event->rect());
    for (const OverLine& divider : m_state.Divider) {
        if (!divider.Visible)
            continue;
        painter.setPen(QPen(programColour(m_state.ChartBox.ForeColor), 2));
        painter.drawLine(lineOf(divider));
    }
    // A tool's rubber band lies over the shown picture and leaves the picture itself alone.
    const CDrawingToolschart& tools = m_state.DrawingTools;
    painter.setPen(QPen(programColour(tools.ToolColor), 1));
    painter.setBrush(Qt::NoBrush);
    for (const Figure& figure : tools.RubberBand()) {
        switch (figure.kind) {
            case Figure::Kind::Line:
                painter.drawLine(figure.points);
                break;
            case Figure::Kind::Box:
                painter.drawRect(QRectF(figure.points.p1(), figure.points.p2()).normalized());
                break;
            case Figure::Kind::Ellipse:
                painter.drawEllipse(QRectF(figure.points.p1(), figure.points.p2()).normalized());
                break;
        }
    }
    painter.setCompositionMode(rasterMode(m_state.crossHairMode()));
    painter.setPen(QPen(programColour(m_state.crossHairColor()), 1));
    for (const OverLine* line : {&m_state.ChLine1, &m_state.ChLine2})
        if (line->Visible)
            painter.drawLine(lineOf(*line));
}

void ChartBoxView::confinePointer(const QPoint& at) {
    const std::optional<QRect>& band = m_state.DrawingTools.CursorClip();
    if (!band || band->contains(at))
        return;
    QCursor::setPos(mapToGlobal(confinedPoint(*band, at)));
}

void ChartBoxView::resizeEvent(QResizeEvent*) {
    m_state.Form_Resize(width(), height());
    Q_EMIT changed();
}

void ChartBoxView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        Q_EMIT popUp(event->globalPosition().toPoint());
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    const double seconds = QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
    m_state.MouseDown(event->position().x(), event->position().y(), seconds);
    Q_EMIT changed();
}

void ChartBoxView::mouseMoveEvent(QMouseEvent* event) {
    confinePointer(event->position().toPoint());
    m_state.MouseMove(event->buttons() & Qt::LeftButton, event->position().x(), event->position().y());
    Q_EMIT changed();
}

void ChartBoxView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_state.MouseUp();
    Q_EMIT changed();
}

void ChartBoxView::wheelEvent(QWheelEvent* event) {
    // Whole notches only, each worth the desktop's lines per notch in bars; a touch pad's small
    // steps add up.
    m_wheelEighths += event->angleDelta().y();
    const int notches = m_wheelEighths / kNotch;
    if (notches == 0)
        return;
    m_wheelEighths -= notches * kNotch;
    m_state.MouseWheel1_WheelRotate(notches * QApplication::wheelScrollLines(), event->modifiers() != Qt::NoModifier);
    Q_EMIT changed();
}

FrmMainForm::FrmMainForm(Program& program, std::function<void()> exitProgram, QWidget* parent)
    : QWidget(parent), m_state(std::make_unique<FrmMain>(program)), m_exitProgram(std::move(exitProgram)) {
    setObjectName(QStringLiteral("frmMain"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* bar = new QMenuBar(this);
    layout->setMenuBar(bar);
    m_chart = new ChartBoxView(*m_state, this);
    layout->addWidget(m_chart);
    setFocusProxy(m_chart);
    buildMenus(bar);
    buildPopUp();
    connect(m_chart, &ChartBoxView::changed, this, &FrmMainForm::refresh);
    connect(m_chart, &ChartBoxView::popUp, this, [this](const QPoint& at) { m_popUp->popup(at); });

    m_state->Form_Load();
    {
        const QSignalBlocker quiet(m_overlay);
        m_overlay->setChecked(m_state->ruleOverlay());
    }
    resize(900, 640);
    refresh();
}

FrmMainForm::~FrmMainForm() = default;

void FrmMainForm::loadHistory() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_state->loadHistory();
    QApplication::restoreOverrideCursor();
    refresh();
}

void FrmMainForm::refresh() {
    setWindowTitle(m_state->Caption.isEmpty() ? QStringLiteral("Chart") : m_state->Caption);
    // While a tool runs, what would redraw, zoom or open a dialog waits; only its cancel is offered.
    const bool drawing = m_state->DrawingTools.Active();
    for (QAction* action : m_waiting) action->setEnabled(!drawing);
    m_cancelDrawing->setEnabled(drawing);
    m_chart->mirror();
}

void FrmMainForm::act(const std::function<void()>& procedure) {
    procedure();
    refresh();
}

void FrmMainForm::buildMenus(QMenuBar* bar) {
    const auto add = [this](QMenu* menu, const char* name, const QString& caption, bool available) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(QString::fromLatin1(name));
        action->setEnabled(available);
        return action;
    };
    QMenu* file = bar->addMenu(QStringLiteral("File"));
    file->setObjectName(QStringLiteral("menufile"));
    connect(add(file, "mnefileopen", QStringLiteral("Open"), true), &QAction::triggered, this,
            [this] { act([this] { m_state->mnefileopen_Click(); }); });
    connect(add(file, "mnuexit", QStringLiteral("Exit"), true), &QAction::triggered, this, [this] {
        if (m_exitProgram)
            m_exitProgram();
    });

    QMenu* tools = bar->addMenu(QStringLiteral("&Tools"));
    tools->setObjectName(QStringLiteral("tools"));
    QAction* options = add(tools, "mnuoptions", QStringLiteral("Options"), true);
    connect(options, &QAction::triggered, this, &FrmMainForm::GetOptionsDlg);
    QAction* indicators = add(tools, "mnuindicators", QStringLiteral("Indicators"), true);
    connect(indicators, &QAction::triggered, this, &FrmMainForm::showIndicators);
    tools->addSeparator();
    m_overlay = add(tools, "mnuruleoverlay", QStringLiteral("&Rule on Chart"), true);
    m_overlay->setCheckable(true);
    connect(m_overlay, &QAction::toggled, this, [this](bool on) { act([this, on] { m_state->setRuleOverlay(on); }); });

    QAction* drawing = bar->addAction(QStringLiteral("&Drawing"));
    drawing->setObjectName(QStringLiteral("drawing"));
    connect(drawing, &QAction::triggered, this, &FrmMainForm::showDrawingTools);
    QAction* redraw = bar->addAction(QStringLiteral("&Redraw"));
    redraw->setObjectName(QStringLiteral("mnuredraw"));
    connect(redraw, &QAction::triggered, this, [this] { act([this] { m_state->mnuredraw_Click(); }); });
    QAction* dec = bar->addAction(QStringLiteral("Zoom &Out"));
    dec->setObjectName(QStringLiteral("mnudec"));
    dec->setShortcuts({QKeySequence(Qt::Key_Minus)});
    dec->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(dec, &QAction::triggered, this, [this] { act([this] { m_state->mnudec_Click(); }); });
    QAction* increase = bar->addAction(QStringLiteral("Zoom &In"));
    increase->setObjectName(QStringLiteral("mnuincrease"));
    increase->setShortcuts({QKeySequence(Qt::Key_Plus), QKeySequence(Qt::Key_Equal)});
    increase->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(increase, &QAction::triggered, this, [this] { act([this] { m_state->mnuincrease_Click(); }); });
    addActions({dec, increase});
    m_waiting << options << indicators << m_overlay << drawing << redraw << dec << increase;
}

void FrmMainForm::buildPopUp() {
    m_popUp = new QMenu(this);
    m_popUp->setObjectName(QStringLiteral("mnuChartPopUp"));
    const auto add = [this](QMenu* menu, const char* name, const QString& caption, std::function<void()> procedure) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(QString::fromLatin1(name));
        connect(action, &QAction::triggered, this, std::move(procedure));
        return action;
    };
    const auto state = [this](void (FrmMain::*procedure)()) {
        return [this, procedure] { act([this, procedure] { (*m_state.*procedure)(); }); };
    };
    m_cancelDrawing =
        add(m_popUp, "mnuPuCancelDrawing", QStringLiteral("Cancel Drawing"), state(&FrmMain::mnuPuCancelDrawing_Click));
    QAction* options = add(m_popUp, "mnuPuSettingsChart", QStringLiteral("Chart Options"), [this] { GetOptionsDlg(); });
    QMenu* crossHair = m_popUp->addMenu(QStringLiteral("CrossHair"));
    crossHair->setObjectName(QStringLiteral("mnuPuCrossHair"));
    QAction* colour = add(crossHair, "mnuPuCrossHairColor", QStringLiteral("Color"),
                          [this] { act([this] { m_state->mnuPuCrossHairColor_Click(this); }); });
    QAction* mode =
        add(crossHair, "mnuPuCrossHairMode", QStringLiteral("Mode"), state(&FrmMain::mnuPuCrossHairMode_Click));
    QAction* spacing =
        add(m_popUp, "mnuPuBarSpacing", QStringLiteral("Bar Spacing"), state(&FrmMain::mnuPuBarSpacing_Click));
    QAction* blank =
        add(m_popUp, "mnuPuBlankSpace", QStringLiteral("BlankSpace"), state(&FrmMain::mnuPuBlankSpace_Click));
    QAction* indicators =
        add(m_popUp, "mnuPuIndSettings", QStringLiteral("Indicator Settings"), [this] { showIndicators(); });
    m_waiting << options << colour << mode << spacing << blank << indicators;
}

void FrmMainForm::GetOptionsDlg() {
    FrmOptionsForm dialog(
        *m_state, [this] { refresh(); }, this);
    dialog.exec();
    // Whichever way the dialog closed, the chart reads its file again.
    act([this] { m_state->reloadSettings(); });
}

void FrmMainForm::showIndicators() {
    FrmIndicatorsForm dialog(m_state->program(), this);
    dialog.exec();
    act([this] { m_state->ChartBoxDraw(); });
}

void FrmMainForm::showDrawingTools() {
    FrmDrawingToolsForm dialog(m_state->program(), m_state->DrawingTools, this);
    dialog.exec();
    m_chart->setFocus();
    refresh();
}

void FrmMainForm::keyPressEvent(QKeyEvent* event) {
    // The window sees the keys first: with Ctrl held, End, Home and the arrows and pages.
    if (event->modifiers() & Qt::ControlModifier) {
        using Key = FrmMain::ScrollKey;
        const std::pair<int, Key> keys[] = {{Qt::Key_End, Key::End},     {Qt::Key_Home, Key::Home},
                                            {Qt::Key_Left, Key::Left},   {Qt::Key_PageUp, Key::PageUp},
                                            {Qt::Key_Right, Key::Right}, {Qt::Key_PageDown, Key::PageDown}};
        for (const auto& [code, key] : keys) {
            if (event->key() == code) {
                act([this, key = key] { m_state->controlKey(key); });
                return;
            }
        }
    }
    if (event->key() == Qt::Key_Escape && m_state->DrawingTools.Active()) {
        act([this] { m_state->mnuPuCancelDrawing_Click(); });
        return;
    }
    if (event->key() == Qt::Key_Menu || (event->key() == Qt::Key_F10 && event->modifiers() & Qt::ShiftModifier)) {
        m_popUp->popup(m_chart->mapToGlobal(m_chart->rect().center()));
        return;
    }
    QWidget::keyPressEvent(event);
}

}  // namespace ostravel
