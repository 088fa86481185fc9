#include "wizard/frmean128wizard.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "support/cp1252.h"
#include "support/stringhe.h"
#include "gs1/catalogo_ai.h"
#include "gs1/validazione_ai.h"

namespace krt {

namespace {

// String-table ids of the dialog's captions and tooltips.
constexpr int IdOk = 90;
constexpr int IdAnnulla = 91;
constexpr int IdEtichettaLista = 680;
constexpr int IdSuggerimentoLista = 681;
constexpr int IdEtichettaCodice = 682;
constexpr int IdSuggerimentoCodice = 683;
constexpr int IdEtichettaValore = 684;
constexpr int IdSuggerimentoValore = 685;
constexpr int IdSuggerimentoInserisci = 686;
constexpr int IdSuggerimentoRimuovi = 687;

// The box's own "no limit".
constexpr int SenzaLimite = 32767;

}  // namespace

frmEan128Wizard::frmEan128Wizard(QWidget* parent)
    : QDialog(parent),
      lstAI(new QListWidget(this)),
      labLista(new QLabel(this)),
      txtValore(new QLineEdit(this)),
      labValore(new QLabel(this)),
      labDescrizione(new QLabel(this)),
      lstCodice(new QListWidget(this)),
      labCodice(new QLabel(this)),
      labAI(new QLabel(this)),
      cmdUp(new QPushButton(this)),
      cmdDown(new QPushButton(this)),
      cmdOk(new QPushButton(this)),
      cmdAnnulla(new QPushButton(this)) {
    setObjectName("frmEan128Wizard");
    lstAI->setObjectName("lstAI");
    txtValore->setObjectName("txtValore");
    labDescrizione->setObjectName("labDescrizione");
    lstCodice->setObjectName("lstCodice");
    labAI->setObjectName("labAI");
    cmdUp->setObjectName("cmdUp");
    cmdDown->setObjectName("cmdDown");
    cmdOk->setObjectName("cmdOk");
    cmdAnnulla->setObjectName("cmdAnnulla");
    setWindowTitle(" Wizard EAN 128");

    // Enter belongs to the value box (insert), never to a default button.
    for (auto* pulsante : {cmdUp, cmdDown, cmdOk, cmdAnnulla}) {
        pulsante->setAutoDefault(false);
        pulsante->setDefault(false);
    }
    cmdUp->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    cmdDown->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    labLista->setBuddy(lstAI);
    labValore->setBuddy(txtValore);
    labCodice->setBuddy(lstCodice);
    labDescrizione->setWordWrap(true);
    // A fixed pitch lines up the 4-character AI column of the catalogue texts.
    lstAI->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lstAI->setMinimumWidth(480);
    lstAI->setMinimumHeight(300);
    txtValore->setEnabled(false);
    txtValore->installEventFilter(this);

    // Left: the catalogue. Right: the code above, the value below it; Up moves the
    // value into the code, Down takes the last line back into the value box.
    auto* sinistra = new QVBoxLayout;
    sinistra->addWidget(labLista);
    sinistra->addWidget(lstAI);

    auto* rigaValore = new QHBoxLayout;
    rigaValore->addWidget(txtValore, 1);
    rigaValore->addWidget(cmdUp);
    rigaValore->addWidget(cmdDown);

    auto* destra = new QVBoxLayout;
    destra->addWidget(labCodice);
    destra->addWidget(lstCodice, 1);
    destra->addWidget(labAI);
    destra->addSpacing(8);
    destra->addWidget(labValore);
    destra->addLayout(rigaValore);
    destra->addWidget(labDescrizione);

    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch(1);
    pulsanti->addWidget(cmdOk);
    pulsanti->addWidget(cmdAnnulla);

    auto* griglia = new QGridLayout(this);
    griglia->addLayout(sinistra, 0, 0);
    griglia->addLayout(destra, 0, 1);
    griglia->addLayout(pulsanti, 1, 0, 1, 2);
    griglia->setColumnStretch(0, 3);
    griglia->setColumnStretch(1, 2);

    setTabOrder(lstAI, txtValore);
    setTabOrder(txtValore, cmdUp);
    setTabOrder(cmdUp, cmdDown);
    setTabOrder(cmdDown, lstCodice);
    setTabOrder(lstCodice, cmdOk);
    setTabOrder(cmdOk, cmdAnnulla);

    CaricaTesti();
    for (const auto& voce : CatalogoAI) lstAI->addItem(CaricaStringa(voce.idTesto));

    // Selection, by mouse or keys, is the click; a current row without selection is not.
    connect(lstAI, &QListWidget::itemSelectionChanged, this, [this] { lstAI_Click(); });
    // Enter or a double click on an AI goes on to its value.
    connect(lstAI, &QListWidget::itemActivated, this, [this] {
        if (txtValore->isEnabled()) txtValore->setFocus();
    });
    connect(lstCodice, &QListWidget::itemSelectionChanged, this, [this] { lstCodice_Click(); });
    connect(cmdUp, &QPushButton::clicked, this, [this] { cmdUp_Click(); });
    connect(cmdDown, &QPushButton::clicked, this, [this] { cmdDown_Click(); });
    connect(cmdOk, &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    connect(cmdAnnulla, &QPushButton::clicked, this, &QDialog::reject);
    lstAI->setFocus();
}

void frmEan128Wizard::CaricaTesti() {
    cmdOk->setText(CaricaStringa(IdOk));
    cmdAnnulla->setText(CaricaStringa(IdAnnulla));
    labLista->setText(CaricaStringa(IdEtichettaLista));
    lstAI->setToolTip(CaricaStringa(IdSuggerimentoLista));
    labCodice->setText(CaricaStringa(IdEtichettaCodice));
    lstCodice->setToolTip(CaricaStringa(IdSuggerimentoCodice));
    labValore->setText(CaricaStringa(IdEtichettaValore));
    txtValore->setToolTip(CaricaStringa(IdSuggerimentoValore));
    cmdUp->setToolTip(CaricaStringa(IdSuggerimentoInserisci));
    cmdUp->setAccessibleName(cmdUp->toolTip());
    cmdDown->setToolTip(CaricaStringa(IdSuggerimentoRimuovi));
    cmdDown->setAccessibleName(cmdDown->toolTip());
}

bool frmEan128Wizard::eventFilter(QObject* oggetto, QEvent* evento) {
    // txtValore_KeyPress: Enter inserts and goes no further; other keys pass.
    if (oggetto == txtValore && evento->type() == QEvent::KeyPress) {
        const auto tasto = static_cast<QKeyEvent*>(evento)->key();
        if (tasto == Qt::Key_Return || tasto == Qt::Key_Enter) {
            cmdUp_Click();
            return true;
        }
    }
    return QDialog::eventFilter(oggetto, evento);
}

int frmEan128Wizard::RigaSelezionata(const QListWidget* lista) {
    const auto selezionate = lista->selectedItems();
    return selezionate.isEmpty() ? -1 : lista->row(selezionate.front());
}

void frmEan128Wizard::lstAI_Click() {
    const int indice = RigaSelezionata(lstAI);
    if (indice < 0 || indice >= static_cast<int>(CatalogoAI.size())) return;
    const auto formato = CatalogoAI[indice].formato;
    txtValore->setMaxLength(LimiteValore(formato).value_or(SenzaLimite));
    const int idDescrizione = RegolaDelFormato(formato).idDescrizione;
    const auto testo = idDescrizione ? AWindows1252Sostituendo(CaricaStringa(idDescrizione)) : std::string();
    labDescrizione->setText(DaWindows1252(ComponiDescrizione(formato, testo)));
    txtValore->setEnabled(true);
}

void frmEan128Wizard::lstCodice_Click() {
    const int riga = RigaSelezionata(lstCodice);
    if (riga < 0 || riga >= static_cast<int>(righe_.size())) return;
    labAI->setText("AI: " + DaWindows1252(CatalogoAI[righe_[riga].indice].ai));
}

void frmEan128Wizard::cmdUp_Click() {
    const int indice = RigaSelezionata(lstAI);
    const auto formato = indice >= 0 ? CatalogoAI[indice].formato : std::string_view();
    const auto esito = ValidaValoreAI(AWindows1252Sostituendo(txtValore->text()), formato);
    if (!esito.accettato) {
        MostraMessaggio(esito.idMessaggio);
        return;
    }
    if (indice < 0) return;  // nothing to insert a value for
    righe_.push_back({static_cast<std::size_t>(indice), esito.valore});
    lstCodice->addItem(DaWindows1252(esito.valore));
    txtValore->clear();
}

void frmEan128Wizard::cmdDown_Click() {
    if (righe_.empty()) {
        MostraMessaggio(MessaggioImpossibileAnnullare);
        return;
    }
    const auto ultima = righe_.back();
    lstAI->setCurrentRow(static_cast<int>(ultima.indice));
    QApplication::processEvents();
    txtValore->setText(DaWindows1252(ultima.valore));
    righe_.pop_back();
    delete lstCodice->takeItem(lstCodice->count() - 1);
    if (!righe_.empty()) {
        lstCodice->clearSelection();
        lstCodice->setCurrentRow(0);
    }
}

void frmEan128Wizard::cmdOk_Click() {
    if (righe_.empty()) {
        MostraMessaggio(MessaggioCodiceVuoto);
        return;
    }
    const auto codice = ComponiCodiceAI(righe_);
    contenuto_ = codice.contenuto;
    testoHRC_ = codice.hrc;
    accept();
}

void frmEan128Wizard::MostraMessaggio(int id) {
    if (mostraMessaggio_) {
        mostraMessaggio_(id);
        return;
    }
    QMessageBox::information(this, CaricaStringa(MessaggioTitoloErrore), CaricaStringa(id));
}

}  // namespace krt
