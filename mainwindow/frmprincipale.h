// The main window: content, symbology, style, size and options in, barcode
// preview and clipboard out.
#pragma once
#include <functional>
#include <optional>
#include <exception>
#include <string>

#include <QFont>
#include <QMainWindow>
#include <QMessageBox>

#include "cycle/configurazione_record.h"
#include "cycle/voce.h"

class QAction;
class QActionGroup;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPrinter;
class QPushButton;
class QTextDocument;
class QTextEdit;
class QToolButton;

namespace krt {

class ControlloScansione;
class PannelloStampa;
struct SimboloDaDisegnare;

// What the window asks of the desktop. Each one left empty gets the real
// thing (a modal box, the desktop's viewer, the font dialog, the wizard);
// tests put their own in.
struct ServiziFinestra {
    // A message box: icon, title, text and additional text (may be empty).
    std::function<void(QMessageBox::Icon icona, const QString& titolo, const QString& testo,
                       const QString& dettaglio)>
        messaggio;
    // Opens a document with its associated program.
    std::function<bool(const QString& percorso)> apriDocumento;
    // The font dialog preset with a font: the chosen font, or nothing on cancel.
    std::function<std::optional<QFont>(const QFont& iniziale)> scegliFont;
    // The GS1-128 wizard: true on OK, with the escaped content and its HRC text
    // (both Windows-1252).
    std::function<bool(std::string& contenuto, std::string& testoHRC)> wizard;
    // File > Export: the file chosen, starting from a proposed name ("" on cancel).
    std::function<QString(const QString& proposto)> fileEsportazione;
    // File > Print: the print dialog on the printer; true to print.
    std::function<bool(QPrinter& stampante)> dialogoStampa;
};

class frmPrincipale : public QMainWindow {
    Q_OBJECT
public:
    explicit frmPrincipale(ServiziFinestra servizi = {}, QWidget* parent = nullptr);
    ~frmPrincipale() override;

    // Start-up: splash while the barcode fonts are listed, data folder, options,
    // language, captions, options applied to the controls (the first cycle runs).
    void Avvia();

    // The generate cycle. SoloVerifica: only tell, silently, whether the content
    // would be accepted. Otherwise refusals show the error box and an accepted
    // content is drawn in the preview.
    bool GeneraAnteprima(bool SoloVerifica);

    // Key handler of the content box: 13 selects the content and runs the full
    // cycle (the key is then swallowed: KeyAscii becomes 0). The wizard's
    // hand-back calls it too.
    void txtCodice_KeyPress(int& KeyAscii);

    // HRC text handed back by the wizard (Windows-1252).
    const std::string& TestoHRC() const { return testoHRC_; }
    void ImpostaTestoHRC(std::string testo) { testoHRC_ = std::move(testo); }

    const Configurazione& configurazione() const { return configurazione_; }

    // The preview as generated, at the chosen size: what Clipboard copies and the scan
    // check reads. The preview box shows a copy zoomed to fit.
    const QTextDocument& DocumentoAnteprima() const { return *documento_; }
    // True while the preview on screen does not match the settings (it is dimmed).
    bool AnteprimaSuperata() const { return !motivoSuperata().isEmpty(); }

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void CreaControlli();
    void CreaMenu();
    void CollegaEventi();

    void ImpostaLingua();
    void CambiaLingua();
    void CaricaTesti();
    void ApplicaConfigurazione();
    void AggiornaAttributi();
    void DescriviFontHRC();
    void ScriviAnteprima(const std::string& Glifi, const std::string& FontFamiglia, const std::string& TestoHRC);
    void VerificaEGenera();
    void Salva();
    void AvvisaFont(const std::string& famiglia);
    void MarcaStili(const VoceCatalogo* voce);
    QString MotivoRifiuto(const VoceCatalogo& voce, const std::string& contenuto, bool check, const Rifiuto& rifiuto);
    QStringList AvvisiContenuto(const VoceCatalogo& voce, const GenerazioneVoce& generazione);
    QString motivoSuperata() const;
    void AggiornaStato();
    void AggiornaAvvisi();
    void AggiornaVista();
    double LarghezzaSimboloMm() const;
    void MostraErrore(const QString& dettaglio);
    QString Dettaglio(int id, const QString& argomento = QString());
    QString DettaglioImprevisto(const std::exception& errore);

    // Event handlers, connected in CollegaEventi.
    void txtCodice_GotFocus();
    void txtDimensione_GotFocus();
    void txtDimensione_KeyPress(int& KeyAscii);
    void txtDimensione_Change();
    void txtDimensione_LostFocus();
    void chkDigit_Click();
    void chkHRC_Click();
    void cmbSimbologia_Click();
    void cmbStile_Click();
    void cmdClipboard_Click();
    void imgWizard_Click();
    void mnuIncludiCheckDigit_Click();
    void mnuFont_Click();
    void mnuLinguaItaliano_Click();
    void mnuLinguaEnglish_Click();
    void mnuManuale_Click();
    void mnuInformazioni_Click();
    void mnuEsci_Click();
    void mnuElenco_Click();
    // Export and print without the font (frmprincipale_stampa.cpp).
    void mnuEsporta_Click();
    void mnuStampa_Click();
    bool SimboloCorrente(SimboloDaDisegnare& simbolo);
    void AggiornaMisuraStampa();

    const VoceCatalogo* VoceSelezionata() const;
    double ValoreDimensione() const;

    ServiziFinestra servizi_;
    Configurazione configurazione_;
    std::string testoHRC_;
    QString nomeGuida_;
    bool inCaricamento_ = false;
    bool inAggiornaAttributi_ = false;
    bool inAggiornaVista_ = false;
    bool salvataggioSospeso_ = false;  // options applied at start-up are not written back
    int stileScelto_ = 0;              // string id of the style the user chose, 0 none
    QTextDocument* documento_ = nullptr;  // the preview at its real size
    // What the preview on screen was generated from, and why it no longer matches.
    QString contenutoDisegnato_;
    double dimensioneDisegnata_ = 0;
    QString motivoRifiuto_;      // the last cycle refused the settings: why
    QStringList avvisiContenuto_;  // warnings about the drawn content
    bool avvisoDimensione_ = false;
    QString famigliaBarre_;      // family and lines of the bars drawn, for their width
    QStringList righeBarre_;
    std::string glifiDisegnati_;
    const VoceCatalogo* voceDisegnata_ = nullptr;  // entry and HRC line of the preview drawn
    QString hrcDisegnato_;
    int avvisoId_ = 0;            // string id of the font notice above the preview, 0 none
    QString avvisoArgomento_;     // its %1

    QLabel* labCodice;
    QLineEdit* txtCodice;
    QToolButton* imgWizard;
    QLabel* labAttributi;
    QLabel* labSimbologia;
    QComboBox* cmbSimbologia;
    QLabel* labStile;
    QComboBox* cmbStile;
    QLabel* labDimensione;
    QLineEdit* txtDimensione;
    QLabel* labLarghezza;  // printed width of the symbol at the size
    QCheckBox* chkDigit;
    QCheckBox* chkHRC;
    QLabel* labFont;
    QPushButton* cmdClipboard;
    QFrame* Line1;
    QLabel* labAvvisoFont;
    QLabel* labSuperata;   // why the preview does not match the settings
    QLabel* labAvvisi;     // the status line: warnings about the content and the size
    QTextEdit* rtfContenuto;
    ControlloScansione* scansione_ = nullptr;  // the line "labScansione" under the preview
    QListWidget* lstFont;
    PannelloStampa* pannelloStampa_ = nullptr;  // module width and printer resolution

    QMenu* mnuFile;
    QAction* mnuEsporta;
    QAction* mnuStampa;
    QAction* mnuEsci;
    QAction* mnuElenco;  // File > List...: the list window
    QMenu* mnuModifica;
    QAction* mnuFont;
    QAction* mnuIncludiCheckDigit;
    QMenu* mnuLingua;
    QActionGroup* gruppoLingua;
    QAction* mnuLinguaItaliano;
    QAction* mnuLinguaEnglish;
    QMenu* mnuQmark;
    QAction* mnuManuale;
    QAction* mnuInformazioni;
};

}  // namespace krt
