// Shared start of the end-to-end test programs: an offscreen Qt application that sees the
// reference barcode fonts of KRT_FONT_TEST and no font of the machine, and the main window
// with a data folder of its own.
#pragma once
#include <memory>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextEdit>

#include "mainwindow/frmprincipale.h"

// Number of test fonts registered from KRT_FONT_TEST (0 when none could be loaded).
int FontDiProvaCaricati();

// The window and the controls the scan tests drive.
struct FinestraE2E {
    FinestraE2E();
    // Selects entry, style (when the entry has it) and check box, types the content, presses
    // Enter and lets the deferred scan check run.
    void Genera(const char* voce, const char* stile, bool check, const char* contenuto);
    QString FamigliaBarre() const;

    QTemporaryDir cartella;
    std::unique_ptr<krt::frmPrincipale> finestra;
    QLineEdit* txtCodice = nullptr;
    QLineEdit* txtDimensione = nullptr;
    QComboBox* cmbSimbologia = nullptr;
    QComboBox* cmbStile = nullptr;
    QCheckBox* chkDigit = nullptr;
    QTextEdit* rtfContenuto = nullptr;
    QLabel* labScansione = nullptr;
    QPushButton* cmdClipboard = nullptr;
};
