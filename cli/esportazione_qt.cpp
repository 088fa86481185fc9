// krt-encode --export, the drawing (see esportazione.h): the one part of krt-encode that
// needs Qt. On Linux it is a module loaded only by a run that exports, so that no other
// run loads Qt; the application is created only for the export.
#include <cstdio>
#include <optional>

#include <QGuiApplication>

#include "cli/esportazione.h"
#include "cli/programma.h"
#include "esportazione/esportazione.h"
#include "text/codifica_testo.h"

namespace krt {

namespace {

QString DaCp1252(const std::string& byte) {
    std::string utf8;
    AccodaCp1252InUtf8(utf8, byte);
    return QString::fromStdString(utf8);
}

}  // namespace

int EsportaSimbolo(const RichiestaEsportazione& richiesta, std::string& errore) {
    // An application for this call only, when the caller has none; no display is needed to
    // draw into a file, and Qt's own notices stay off krt-encode's standard error.
    int argc = 1;
    char nome[] = "krt-encode";
    char* argv[] = {nome, nullptr};
    std::optional<QGuiApplication> applicazione;
    if (QGuiApplication::instance() == nullptr) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler([](QtMsgType tipo, const QMessageLogContext&, const QString& testo) {
            if (tipo == QtFatalMsg) std::fputs(qPrintable(testo + QLatin1Char('\n')), stderr);
        });
        applicazione.emplace(argc, argv);
    }
    if (!richiesta.cartellaFont.empty()) {
        const QString cartella = QString::fromStdString(richiesta.cartellaFont);
        if (AggiungiCartellaFont(cartella) < 0) {
            errore = "--font-dir: cannot read the folder \"" + richiesta.cartellaFont + "\"";
            return UscitaUso;
        }
    }
    SimboloDaDisegnare simbolo;
    simbolo.glifi = richiesta.glifi;
    simbolo.famiglia = DaCp1252(richiesta.famiglia);
    simbolo.codice = richiesta.codice;
    simbolo.addOn = richiesta.addOn;
    simbolo.hrc = DaCp1252(richiesta.hrc);
    simbolo.fontHRC = QFont(QStringLiteral("DejaVu Sans"));
    simbolo.fontHRC.setPointSizeF(10);
    const Disegno disegno = PreparaDisegno(simbolo, {richiesta.dpi, richiesta.moduloMm, richiesta.punti});
    switch (disegno.errore) {
        case ErroreDisegno::Nessuno:
            break;
        case ErroreDisegno::FamigliaMancante:
            errore = "the font family \"" + richiesta.famiglia + "\" is not installed" +
                     (richiesta.cartellaFont.empty() ? std::string(" (see --font-dir)")
                                                     : " nor in \"" + richiesta.cartellaFont + "\"") +
                     "; no file written";
            return UscitaIO;
        case ErroreDisegno::GlifoMancante:
            errore = "the font \"" + richiesta.famiglia + "\" has no glyph for byte " +
                     disegno.argomento.toStdString() + "; no file written";
            return UscitaIO;
        case ErroreDisegno::SenzaBarre:
            errore = "the font \"" + richiesta.famiglia + "\" draws no bars to measure a module on; no file written";
            return UscitaIO;
        case ErroreDisegno::Misura:
            errore = "the module would be wider than 5 mm at this size; no file written";
            return UscitaUso;
    }
    QString motivo;
    if (!ScriviDisegno(QString::fromStdString(richiesta.file), disegno, richiesta.dpi, motivo)) {
        errore = "cannot write \"" + richiesta.file + "\": " + motivo.toStdString();
        return UscitaIO;
    }
    return UscitaRiuscita;
}

}  // namespace krt

#ifdef KRT_MODULO
// The entry point krt-encode looks up when it loads this module.
extern "C" __attribute__((visibility("default"))) int krt_esporta_simbolo(const krt::RichiestaEsportazione& richiesta,
                                                                          std::string& errore) {
    return krt::EsportaSimbolo(richiesta, errore);
}
#endif
