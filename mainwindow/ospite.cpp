#include "mainwindow/ospite.h"

#include <QAction>
#include <QKeySequence>
#include <QSettings>
#include <QWidget>

namespace krt {

namespace {

constexpr char kChiaveGeometria[] = "finestra/geometria";

constexpr struct {
    const char* azione;
    QKeySequence::StandardKey tasto;
} kScorciatoie[] = {
    {"mnuEsci", QKeySequence::Quit},
    {"mnuManuale", QKeySequence::HelpContents},
};

constexpr int kLatiIcona[] = {16, 24, 32, 48, 64, 128, 256};

}  // namespace

QIcon IconaProgramma() {
    QIcon incorporata;
    for (int lato : kLatiIcona) incorporata.addFile(QStringLiteral(":/krt/krt-%1.png").arg(lato), QSize(lato, lato));
    return QIcon::fromTheme(QStringLiteral("krt"), incorporata);
}

void ApplicaScorciatoie(QWidget& finestra) {
    for (const auto& s : kScorciatoie) {
        auto* azione = finestra.findChild<QAction*>(QLatin1String(s.azione));
        if (azione && azione->shortcut().isEmpty()) azione->setShortcuts(s.tasto);
    }
}

bool RipristinaGeometria(QWidget& finestra, QSettings& impostazioni) {
    const QByteArray geometria = impostazioni.value(QLatin1String(kChiaveGeometria)).toByteArray();
    return !geometria.isEmpty() && finestra.restoreGeometry(geometria);
}

void SalvaGeometria(const QWidget& finestra, QSettings& impostazioni) {
    impostazioni.setValue(QLatin1String(kChiaveGeometria), finestra.saveGeometry());
    impostazioni.sync();
}

}  // namespace krt
