#include "charts/indicators/expmovavg.h"

#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kSection = QStringLiteral("ExpAvgSettings");

}  // namespace

void ExpMovAvg::Calculate(std::span<const double> x) {
    begin(x.size(), {&m_retVal});
    const float weight = toSingleChecked(divide(2.0, static_cast<double>(ExpAvgLen) + 1.0));
    const float rest = toSingleChecked(1.0 - static_cast<double>(weight));
    if (x.empty())
        return;
    double* out = m_retVal.data();
    out[0] = x[0];
    for (std::size_t i = 1; i < x.size(); ++i)
        out[i] = static_cast<double>(weight) * x[i] + static_cast<double>(rest) * out[i - 1];
}

const std::initializer_list<SettingKey<ExpMovAvg>> kKeys = {{"ExpAvgLen", &ExpMovAvg::ExpAvgLen},
                                                            {"ExpAvgColor", &ExpMovAvg::ExpAvgColor},
                                                            {"PlotWidth", &ExpMovAvg::PlotWidth}};

void ExpMovAvg::GetSavedSettings(std::int16_t sNum) {
    readSettings(*this, m_iniFile, kSection, keySuffix(sNum), kKeys);
}

void ExpMovAvg::SaveCurrentSettings(std::int16_t) {
    writeSettings(*this, m_iniFile, kSection, kLiteralSuffix, kKeys);
}

}  // namespace ostravel
