// Shared start of the end-to-end test programs: an offscreen Qt application that sees the
// reference barcode fonts of KRT_FONT_TEST and no font of the machine.
#pragma once

#include "tests/mainwindow/pagina_finestra.h"

// Number of test fonts registered from KRT_FONT_TEST (0 when none could be loaded).
int FontDiProvaCaricati();

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
