// Shared start of the end-to-end test programs: an offscreen Qt application sealed from the
// machine that sees the reference barcode fonts of KRT_FONT_TEST alone.
#pragma once

#include "cycle/attesa_scansione.h"
#include "support/varie.h"
#include "tests/mainwindow/pagina_finestra.h"

// The barcode families installed for the run (0 when KRT_FONT_TEST gave none).
inline int FontDiProvaCaricati() { return static_cast<int>(krt::FamiglieBarcodeInstallate().size()); }

// Reads an image as a scanner would (grey).
krt::LetturaScansione Leggi(const QImage& immagine, const krt::AttesaScansione& attesa);

// The first page of a PDF rasterised grey by pdftoppm (null without it).
QImage PaginaPdf(const QString& pdf, int dpi);

// The window with its own data folder; Genera selects entry, style (when the entry has it)
// and check box, types the content, presses Enter and lets the deferred scan check run.
struct FinestraE2E : krt::prova::PaginaFinestra {
    FinestraE2E() { Prepara(); }
    ~FinestraE2E() { Chiudi(); }
    void Genera(const char* voce, const char* stile, bool check, const char* contenuto) {
        Voce(voce);
        if (cmbStile->findText(QString::fromUtf8(stile)) >= 0) Stile(stile);
        if (chkDigit->isEnabled()) Spunta(chkDigit, check);
        Invio(QString::fromUtf8(contenuto));
        QCoreApplication::processEvents();
    }
};
