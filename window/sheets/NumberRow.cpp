#include "window/sheets/NumberRow.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "base/TextNumbers.h"
#include "window/QtText.h"
#include "window/sheets/Sheet.h"

namespace korvel {

void addNumberRow(QFormLayout& form, QLineEdit& line, const QString& name, int step, int decimals) {
    line.setMinimumHeight(Sheet::kRowPixels);
    line.setAccessibleName(name);
    auto* row = new QHBoxLayout;  // the form's
    row->addWidget(&line);
    for (const int by : {-step, step}) {
        auto* button = new QPushButton(by < 0 ? QStringLiteral("−") : QStringLiteral("+"));
        button->setAutoDefault(false);
        button->setFixedSize(Sheet::kRowPixels * 3 / 2, Sheet::kRowPixels);
        row->addWidget(button);  // and so is it
        QObject::connect(button, &QPushButton::clicked, &line, [&line, by, decimals] {
            const std::string typed = line.text().toStdString();
            std::string_view rest = typed;
            const double value = std::max(0.0, scanDouble(rest).value_or(0) + by);
            line.setText(toQString(formatFixed(value, decimals)));
        });
    }
    auto* label = new QLabel(name);  // the form's
    label->setWordWrap(true);
    label->setMinimumHeight(Sheet::kRowPixels);
    label->setBuddy(&line);
    form.addRow(label, row);
}

}  // namespace korvel
