// The GS1-128 wizard: the user picks AIs, types their values and inserts them into a
// code list; OK turns the list into escaped content and its "(AI)value" text.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include <QDialog>

#include "gs1/composizione_ai.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace krt {

class frmEan128Wizard : public QDialog {
    Q_OBJECT
public:
    explicit frmEan128Wizard(QWidget* parent = nullptr);

    // The composed content (escaped, ASCII) and its readable text (Windows-1252);
    // set when the dialog closes with OK (exec() == Accepted), empty otherwise.
    const std::string& Contenuto() const { return contenuto_; }
    const std::string& TestoHRC() const { return testoHRC_; }

    // Shows the message of a string-table id (title 92, information icon).
    // Replaceable, so that the dialog can be driven without modal boxes.
    using FunzioneMessaggio = std::function<void(int idMessaggio)>;
    void ImpostaMostraMessaggio(FunzioneMessaggio funzione) { mostraMessaggio_ = std::move(funzione); }

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void CaricaTesti();
    void lstAI_Click();
    void lstCodice_Click();
    void cmdUp_Click();
    void cmdDown_Click();
    void cmdOk_Click();
    void MostraMessaggio(int id);
    static int RigaSelezionata(const QListWidget* lista);

    QListWidget* lstAI;
    QLabel* labLista;
    QLineEdit* txtValore;
    QLabel* labValore;
    QLabel* labDescrizione;
    QListWidget* lstCodice;
    QLabel* labCodice;
    QLabel* labAI;
    QPushButton* cmdUp;
    QPushButton* cmdDown;
    QPushButton* cmdOk;
    QPushButton* cmdAnnulla;

    // The lines of lstCodice: catalogue index and value as inserted (Windows-1252).
    std::vector<RigaCodice> righe_;
    std::string contenuto_;
    std::string testoHRC_;
    FunzioneMessaggio mostraMessaggio_;
};

}  // namespace krt
