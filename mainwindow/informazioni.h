// The about box: program name, version, what the program does, where to get help.
#pragma once
#include <QDialog>

namespace krt {

class Informazioni : public QDialog {
    Q_OBJECT
public:
    explicit Informazioni(QWidget* parent = nullptr);
};

}  // namespace krt
