#include <QApplication>
#include <QSettings>

#include "mainwindow/configurazione.h"
#include "mainwindow/frmprincipale.h"
#include "mainwindow/guide.h"
#include "mainwindow/ospite.h"

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
    finestra.show();
    const int esito = app.exec();
    krt::SalvaGeometria(finestra, impostazioni);
    return esito;
}
