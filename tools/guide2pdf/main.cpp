// guide2pdf GUIDE.md GUIDE.pdf: lays out a Markdown user guide on A4 pages and writes it
// as PDF (see guida.h for the house rules of the Markdown).
#include <cstdio>

#include <QGuiApplication>

#include "tools/guide2pdf/guida.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "Usage: guide2pdf GUIDE.md GUIDE.pdf\n");
        return 2;
    }
    // A build step: no window, no display needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication applicazione(argc, argv);
    const QStringList errori = krt::guida::ScriviPdf(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    for (const QString& errore : errori) std::fprintf(stderr, "guide2pdf: %s\n", qPrintable(errore));
    return errori.isEmpty() ? 0 : 1;
}
