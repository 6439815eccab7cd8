#pragma once

#include <QGridLayout>
#include <QString>
#include <QWidget>

namespace korvel {

/// Keys for a finger where there is no keyboard: letters, digits and what routes are written with.
/// They go to the line of the same window that has the focus, and never take it away.
class KeyPad : public QWidget {
 public:
    explicit KeyPad(QWidget* parent);

 private:
    void addKey(int row, int column, const QString& label, int key, int rows = 1);
    void press(int key);

    QGridLayout grid_;
};

}  // namespace korvel
