#include <QApplication>
#include <QSettings>

#include "mainwindow/configurazione.h"
#include "mainwindow/frmprincipale.h"
#include "mainwindow/guide.h"
#include "mainwindow/ospite.h"
#include "mainwindow/stampa.h"

// Qt scales for the screen's density and takes the platform's style and dialogs by
// itself; nothing here overrides them.
int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("krt"));  // Wayland: icon and name from krt.desktop
    QApplication::setWindowIcon(krt::IconaProgramma());           // every window, the about box too

    krt::frmPrincipale finestra;
    finestra.Avvia();
    krt::InstallaGuide(krt::CartellaDati(), krt::CartelleGuideInstallate(QCoreApplication::applicationDirPath()));
    krt::ApplicaScorciatoie(finestra);

    QSettings impostazioni(QStringLiteral("ORB"), QStringLiteral("krt"));
    krt::RipristinaGeometria(finestra, impostazioni);
    auto* stampa = finestra.findChild<krt::PannelloStampa*>();
    if (stampa != nullptr) stampa->Ripristina(impostazioni);
    finestra.show();
    const int esito = app.exec();
    krt::SalvaGeometria(finestra, impostazioni);
    if (stampa != nullptr) stampa->Salva(impostazioni);
    return esito;
}
