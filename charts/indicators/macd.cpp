#include "charts/indicators/macd.h"

namespace ostravel {

namespace {

const QString kSection = QStringLiteral("MACDSettings");

}  // namespace

void MACD::Calculate(std::span<const double> x) {
    begin(x.size(), {&m_retVal, &m_retValSig, &m_retValHist}, MACDLen1 != -1 && MACDLen2 != -1 && MACDLen3 != -1);
    m_fast.ExpAvgLen = MACDLen1;
    m_slow.ExpAvgLen = MACDLen2;
    m_signal.ExpAvgLen = MACDLen3;
    ExpMovAvg::CalculateBoth(m_fast, m_slow, x);
    double* line = m_retVal.data();
    const double* fast = m_fast.values().data();
    const double* slow = m_slow.values().data();
    for (std::size_t i = 0; i < x.size(); ++i) line[i] = fast[i] - slow[i];
    m_signal.Calculate(m_retVal.values());
    m_signal.handOver(m_retValSig);
    const double* sig = m_retValSig.data();
    double* hist = m_retValHist.data();
    for (std::size_t i = 0; i < x.size(); ++i) hist[i] = line[i] - sig[i];
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
