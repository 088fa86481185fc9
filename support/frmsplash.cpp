#include "support/frmsplash.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "support/stringhe.h"

namespace krt {

frmSplash::frmSplash(QWidget* parent)
    : QFrame(parent, Qt::SplashScreen | Qt::FramelessWindowHint), labMessaggio_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmSplash"));
    labMessaggio_->setObjectName(QStringLiteral("labMessaggio"));
    labMessaggio_->setText(CaricaStringa(300));
    labMessaggio_->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 24, 32, 24);
    layout->addWidget(labMessaggio_);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    adjustSize();
    if (const QScreen* schermo = QGuiApplication::primaryScreen())
        move(schermo->availableGeometry().center() - rect().center());
}

}  // namespace krt
