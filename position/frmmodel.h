// The dialog frmmodel ("Model"): a choice of three models that only suffixes the portfolio's name.
#pragma once

#include <array>
#include <functional>

#include "context/controls.h"

namespace ostravel {

class Program;

class FrmModel {
public:
    struct Option {
        QString caption;
        QString description;  // the label beside it
        bool value = false;
    };

    explicit FrmModel(Program& program);

    std::array<Option, 3> Option1{{
        {QStringLiteral("Default"), QStringLiteral("Halvard Torne Standard Vealie  is disabled"), false},
        {QStringLiteral("Bullish"), QStringLiteral("33% Cash Vealie is enabled"), false},
        {QStringLiteral("Conservative"), QStringLiteral("50% Cash Start Vealie  is enabled"), false},
    }};

    // Set by the screen that shows the dialog: the wizard goes on to Newholding, or back to Create.
    std::function<void()> showNewholding;
    std::function<void()> showCreate;
    std::function<void()> unload;

    // portfolioName: the name typed in Create. Appends the chosen model's suffix to it in
    // portfolio, unloads, and shows Newholding.
    void ModelNextButton_Click(const QString& portfolioName);
    // The cancel path: unloads and shows Create again.
    void cancel();

private:
    Program& m_program;
};

}  // namespace ostravel
