#include "charts/indicators/indicator.h"

#include <limits>

#include "runtime/trap.h"
#include "runtime/vberror.h"

namespace ostravel {

double ResultLine::at(int index) const {
    if (index < 0)
        return 0;
    if (static_cast<std::size_t>(index) >= m_values.size())
        raise(err::SubscriptOutOfRange);
    return m_values[static_cast<std::size_t>(index)];
}

void ResultLine::set(int index, double value) {
    if (index < 0)
        return;
    if (static_cast<std::size_t>(index) >= m_values.size())
        raise(err::SubscriptOutOfRange);
    m_values[static_cast<std::size_t>(index)] = value;
}

void Indicator::Calculate(std::span<const double>) {
    raise(err::TypeMismatch);
}

void Indicator::Calculate(std::span<const StockRecord>) {
    raise(err::TypeMismatch);
}

void Indicator::begin(std::size_t count, std::initializer_list<ResultLine*> lines, bool inFull) {
    if (count > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()) + 1)
        raise(err::Overflow);
    m_boundHi = static_cast<std::int16_t>(static_cast<int>(count) - 1);
    m_boundLo = 0;
    for (ResultLine* line : lines) {
        if (inFull)
            line->resize(count);
        else
            line->reset(count);
    }
}

QString keySuffix(std::int16_t sNum) {
    return sNum == 0 ? QString() : QString::number(sNum);
}

SectionValues::SectionValues(const QString& iniFile, QString section)
    : m_profile(ProfileFile::read(iniFile)), m_section(std::move(section)) {}

QString SectionValues::text(const QString& key) const {
    return m_profile.value(m_section, key).value_or(QString()).left(2000);
}

void writeSettingTexts(const QString& iniFile, const QString& section,
                       const std::vector<std::pair<QString, QString>>& keyValues) {
    ProfileFile profile = ProfileFile::read(iniFile);
    for (const auto& [key, value] : keyValues) profile.setValue(section, key, value);
    passedOver([&] { profile.write(iniFile, QStringLiteral("SaveCurrentSettings")); });
}

}  // namespace ostravel
