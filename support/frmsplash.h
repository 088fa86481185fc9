// The small window shown while the font list is being filled at start-up.
#pragma once
#include <QFrame>

class QLabel;

namespace krt {

class frmSplash : public QFrame {
    Q_OBJECT
public:
    explicit frmSplash(QWidget* parent = nullptr);

private:
    QLabel* labMessaggio_;
};

}  // namespace krt
