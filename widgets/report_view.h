// A report screen: a line that says what is shown, and a read-only grid of text rows.
#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

namespace ostravel {

class ReportView : public QWidget {
    Q_OBJECT
public:
    ReportView(const QString& name, const QString& caption, const QString& note, const QStringList& headings,
               const std::vector<QStringList>& rows, QWidget* parent = nullptr);
};

}  // namespace ostravel
