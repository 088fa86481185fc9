#include <QApplication>

#include "mainwindow/frmprincipale.h"

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    krt::frmPrincipale finestra;
    finestra.Avvia();
    finestra.show();
    return app.exec();
}
