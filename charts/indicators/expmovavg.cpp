#include "charts/indicators/expmovavg.h"

#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kSection = QStringLiteral("ExpAvgSettings");

}  // namespace

template <std::size_t N>
void ExpMovAvg::calculate(const std::array<ExpMovAvg*, N>& averages, std::span<const double> x) {
    std::array<double, N> weight{};
    std::array<double, N> rest{};
    std::array<double*, N> out{};
    for (std::size_t a = 0; a < N; ++a) {
        ExpMovAvg& average = *averages[a];
        // Only a period of -1 fails, at its weight.
        average.begin(x.size(), {&average.m_retVal}, average.ExpAvgLen != -1);
        const float w = toSingleChecked(divide(2.0, static_cast<double>(average.ExpAvgLen) + 1.0));
        weight[a] = static_cast<double>(w);
        rest[a] = static_cast<double>(toSingleChecked(1.0 - static_cast<double>(w)));
        out[a] = average.m_retVal.data();
    }
    if (x.empty())
        return;
    // The last values kept apart from the lines: for all the compiler knows a line may be the
    // values themselves, and reading each step back from memory would lengthen the chain.
    std::array<double, N> last{};
    last.fill(x[0]);
    for (std::size_t a = 0; a < N; ++a) out[a][0] = last[a];
    for (std::size_t i = 1; i < x.size(); ++i) {
        const double value = x[i];
        for (std::size_t a = 0; a < N; ++a) out[a][i] = last[a] = weight[a] * value + rest[a] * last[a];
    }
}

void ExpMovAvg::Calculate(std::span<const double> x) {
    calculate<1>({this}, x);
}

void ExpMovAvg::CalculateBoth(ExpMovAvg& first, ExpMovAvg& second, std::span<const double> x) {
    calculate<2>({&first, &second}, x);
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
