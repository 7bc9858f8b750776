// The controls of the position screens as plain values: the texts, colours, captions and
// flags that the widgets mirror and that the rule reads back.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

namespace ostravel {

// Colours as the program keeps them: one number, red in the low byte.
constexpr std::uint32_t kBlack = 0;
constexpr std::uint32_t kRed = 255;
constexpr std::uint32_t kGreen = 65280;
constexpr std::uint32_t kWhite = 16777215;

struct TextBox {
    QString text;
    std::uint32_t foreColour = kBlack;
    bool enabled = true;
};

struct Label {
    QString caption;
    bool visible = true;
    bool enabled = true;
};

struct Button {
    QString caption;
    bool enabled = true;
};

struct ComboBox {
    QStringList items;
    QString text;
};

}  // namespace ostravel
