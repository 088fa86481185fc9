// The scan check: the bars of the preview drawn into an image and read back with a
// barcode reader, so the user sees whether what the font draws actually scans.
//
// The decisions (which reader format an entry needs, what it should report, which line
// to show) are plain functions; the reading is a function of a grey image; the widget
// part renders the preview and runs the reader after the cycle, off the typing path.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include <QImage>
#include <QObject>
#include <QString>

#include "cycle/attesa_scansione.h"

class QLabel;
class QTextDocument;
class QWidget;

namespace krt {

// The reader's name of a format ("Code39", "EAN-13", ...), "" for Nessuno.
std::string NomeFormato(FormatoLettore formato);

// Reads an 8-bit grey image (rowStride bytes per row) for the expected format:
// try harder, add-on required when the entry has one.
LetturaScansione LeggiImmagine(const std::uint8_t* grigi, int larghezza, int altezza, int rowStride,
                               const AttesaScansione& attesa);


// The line under the preview, in the current language.
QString TestoScansione(EsitoScansione esito, const AttesaScansione& attesa, const LetturaScansione& lettura);

// The barcode paragraphs of the preview (those in family famigliaBarre), drawn as the
// preview draws them on white, with a quiet zone, scaled so that a module is a few
// pixels wide; 8-bit grey.
QImage ImmagineBarre(const QTextDocument& documento, const QString& famigliaBarre);

// Renders and reads, the whole check in one call.
struct ScansioneCompleta {
    AttesaScansione attesa;
    LetturaScansione lettura;
    EsitoScansione esito = EsitoScansione::NessunLettore;
};
ScansioneCompleta Scansiona(const VoceCatalogo& voce, const GenerazioneVoce& generazione,
                            const QTextDocument& documento);

// The label "labScansione" of the main window and the deferred check behind it.
class ControlloScansione : public QObject {
    Q_OBJECT
public:
    explicit ControlloScansione(QWidget* genitore);
    QLabel* etichetta() const { return labScansione_; }

    // After a full cycle: reads the preview once control is back in the event loop; a
    // newer request replaces one not yet run.
    void Richiedi(const VoceCatalogo& voce, const GenerazioneVoce& generazione, const QTextDocument& documento);
    // Texts again in the current language.
    void AggiornaTesti();
    // The last check run (for tests and benchmarks).
    const ScansioneCompleta& ultima() const { return ultima_; }

private:
    void Esegui(unsigned richiesta);

    QLabel* labScansione_;
    const QTextDocument* documento_ = nullptr;
    const VoceCatalogo* voce_ = nullptr;
    GenerazioneVoce generazione_;
    unsigned richiesta_ = 0;
    bool eseguita_ = false;
    ScansioneCompleta ultima_;
};

}  // namespace krt
