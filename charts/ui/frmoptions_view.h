// The dialog frmOptions, "Chart Options": the eleven colour squares, the bar type, the numeric
// fields with their limits, the font, and the buttons. It mirrors FrmOptions and forwards acts.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <memory>

#include "charts/frmoptions.h"

class QButtonGroup;
class QLabel;
class QLineEdit;
class QPushButton;

namespace ostravel {

class FrmMain;

class FrmOptionsForm : public QDialog {
    Q_OBJECT
public:
    // `chartChanged` shows the chart again after an act that redrew it.
    FrmOptionsForm(FrmMain& chart, std::function<void()> chartChanged, QWidget* parent = nullptr);
    ~FrmOptionsForm() override;

    void refresh();

public Q_SLOTS:
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void act(const std::function<void()>& procedure);
    QLineEdit* addField(FrmOptions::Field field, const char* name);

    std::unique_ptr<FrmOptions> m_state;
    std::function<void()> m_chartChanged;
    std::array<QPushButton*, FrmOptions::kColours> m_colours{};
    QButtonGroup* m_barType;
    std::array<QLineEdit*, 4> m_fields{};
    std::array<QLabel*, 4> m_limits{};
    QLineEdit* m_txtFont;
};

}  // namespace ostravel
