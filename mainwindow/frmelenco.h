// The list window (File > List...): a CSV/TSV file or a pasted column, every content
// encoded with one entry and its options, shown as a table, saved as CSV for mail merge
// and label programs, copied as a rich-text table, exported without the font one file per
// row or as sheets of labels.
#pragma once
#include <functional>

#include <QString>
#include <QWidget>

#include "cycle/etichette.h"
#include "esportazione/esportazione.h"
#include "mainwindow/elenco.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTableView;

namespace krt {

// What the window asks of the desktop; each one left empty gets the real dialog. Tests
// put their own in.
struct ServiziElenco {
    std::function<QString(const QString& filtro)> scegliFileApri;   // "" on cancel
    std::function<QString(const QString& filtro, const QString& proposto)> scegliFileSalva;
    std::function<void(const QString& testo)> errore;               // an error box
    std::function<void(const QString& testo)> messaggio;            // an information box
    // The sheet of labels, asked in a dialog; false on cancel.
    std::function<bool(FoglioEtichette& foglio)> scegliFoglio;
};

class frmElenco : public QWidget {
    Q_OBJECT
public:
    // impostazioni: the main window's entry, style, size and options, the list's start.
    explicit frmElenco(const ImpostazioniElenco& impostazioni, ServiziElenco servizi = {},
                       QWidget* genitore = nullptr);

    // Reads a file (the progress dialog shows for a long reading); false when it could
    // not be read or is not CSV (the error box said why) or the reading was cancelled.
    bool ApriFile(const QString& percorso);
    // Takes the clipboard's text as tab-separated rows without a header.
    bool Incolla();
    // Writes every row as CSV; false (with the error box) when it cannot be written.
    bool SalvaCsv(const QString& percorso);
    // Rich text and tab-separated text of the selected rows (all rows shown when none is
    // selected) to the clipboard.
    void CopiaTabella();
    // One file per accepted row without the font, in the folder and format of percorso
    // (.png, .svg or .pdf), named from the content column; the list's size brought to
    // whole dots per module at 600 dpi. The number of files written, -1 after an error
    // (the error box said why).
    int EsportaRighe(const QString& percorso);
    // One PDF of label sheets: the accepted rows one to a cell, across then down, page after
    // page, each drawn as EsportaRighe draws it, at its exact size, centred in its cell on
    // whole dots. The number of labels written (the information box tells them and the
    // refused rows skipped); 0 when cancelled from the progress dialog; -1 after an error
    // (the error box said why): a sheet without cells, no accepted row, a symbol larger
    // than its cell. Cancelled or failed, the file is not written.
    int EsportaEtichette(const QString& percorso, const FoglioEtichette& foglio);

    ModelloElenco& Modello() { return *modello_; }

private:
    void CaricaTesti();
    void DopoLettura();
    void AggiornaStili();
    void AggiornaImpostazioni();
    void AggiornaConteggio();
    void Apri_Click();
    void Salva_Click();
    void Esporta_Click();
    void Etichette_Click();
    SimboloDaDisegnare SimboloRiga(int n) const;
    std::vector<int> RigheDaCopiare() const;

    ServiziElenco servizi_;
    ModelloElenco* modello_;
    FiltroRifiutate* filtro_;
    QString percorsoLetto_;  // the file the rows come from: never written
    bool inCaricamento_ = false;
    FoglioEtichette foglio_;  // the last sheet asked for

    QPushButton* cmdApri;
    QPushButton* cmdIncolla;
    QLabel* labColonna;
    QComboBox* cmbColonna;
    QLabel* labSimbologia;
    QComboBox* cmbSimbologia;
    QLabel* labStile;
    QComboBox* cmbStile;
    QLabel* labDimensione;
    QSpinBox* spnDimensione;
    QCheckBox* chkDigit;
    QCheckBox* chkHRC;
    QCheckBox* chkSoloRifiutate;
    QLabel* labConteggio;
    QTableView* tabella;
    QPushButton* cmdSalva;
    QPushButton* cmdCopia;
    QPushButton* cmdEsporta;
    QPushButton* cmdEtichette;
};

}  // namespace krt
