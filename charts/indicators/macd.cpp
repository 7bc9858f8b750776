#include "charts/indicators/macd.h"

namespace ostravel {

namespace {

const QString kSection = QStringLiteral("MACDSettings");

}  // namespace

void MACD::Calculate(std::span<const double> x) {
    begin(x.size(), {&m_retVal, &m_retValSig, &m_retValHist});
    m_fast.ExpAvgLen = MACDLen1;
    m_slow.ExpAvgLen = MACDLen2;
    m_signal.ExpAvgLen = MACDLen3;
    m_fast.Calculate(x);
    m_slow.Calculate(x);
    double* line = m_retVal.data();
    for (std::size_t i = 0; i < x.size(); ++i) line[i] = m_fast.values()[i] - m_slow.values()[i];
    m_signal.Calculate(m_retVal.values());
    double* sig = m_retValSig.data();
    double* hist = m_retValHist.data();
    for (std::size_t i = 0; i < x.size(); ++i) {
        sig[i] = m_signal.values()[i];
        hist[i] = line[i] - sig[i];
    }
}

const std::initializer_list<SettingKey<MACD>> kKeys = {
    {"MACDColor1", &MACD::MACDColor1}, {"MACDColor2", &MACD::MACDColor2}, {"MACDColor3", &MACD::MACDColor3},
    {"PlotWidth", &MACD::PlotWidth},   {"MACDLen1", &MACD::MACDLen1},     {"MACDLen2", &MACD::MACDLen2},
    {"MACDLen3", &MACD::MACDLen3}};

void MACD::GetSavedSettings(std::int16_t sNum) {
    readSettings(*this, m_iniFile, kSection, keySuffix(sNum), kKeys);
}

void MACD::SaveCurrentSettings(std::int16_t sNum) {
    writeSettings(*this, m_iniFile, kSection, keySuffix(sNum), kKeys);
}

}  // namespace ostravel
