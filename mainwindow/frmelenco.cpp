// The list window (see frmelenco.h).
#include "mainwindow/frmelenco.h"

#include <cerrno>
#include <cmath>
#include <cstring>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QSet>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QProgressDialog>
#include <QPushButton>
#include <QSaveFile>
#include <QSpinBox>
#include <QTableView>
#include <QVBoxLayout>

#include "barcodes/catalogo.h"
#include "cycle/avvisi.h"
#include "cycle/motivi.h"
#include "mainwindow/anteprima.h"
#include "mainwindow/attributi.h"
#include "mainwindow/stampa.h"
#include "support/cp1252.h"
#include "support/stringhe.h"

namespace krt {

namespace {

namespace Id {
constexpr int TitoloErrore = 92;
constexpr int Dimensione = 260;
constexpr int Simbologia = 262;
constexpr int HRC = 264;
constexpr int CheckDigit = 266;
constexpr int Stile = 284;
constexpr int PrimaVoce = 400;
constexpr int Titolo = 709;
constexpr int Apri = 710;
constexpr int Incolla = 711;
constexpr int Colonna = 712;
constexpr int Salva = 713;
constexpr int Copia = 714;
constexpr int SoloRifiutate = 715;
constexpr int Lettura = 722;
constexpr int Annulla = 723;
constexpr int NonCsv = 724;
constexpr int NonLeggibile = 725;
constexpr int Filtro = 726;
constexpr int NonScrivibile = 727;
constexpr int Conteggio = 728;
constexpr int AppuntiVuoti = 729;
constexpr int FileLetto = 790;
constexpr int EsportaRighe = 791;
constexpr int Etichette = 792;
constexpr int Pagina = 793;
constexpr int ColonneRighe = 794;
constexpr int Margini = 795;
constexpr int FoglioSenzaCelle = 796;   // a full sentence
constexpr int SimboloFuoriCella = 797;  // %1 content, %2 × %3 symbol mm, %4 × %5 cell mm
constexpr int NessunaAccettata = 798;
constexpr int EtichetteScritte = 799;   // %1 labels, %2 pages, %3 file, %4 refused rows
}  // namespace Id

constexpr int NumeroVoci = 36;
// Export draws every row with whole printer dots per module at this resolution.
constexpr int DpiEsportazione = 600;

// The button's caption without its mnemonic and dots.
QString TitoloEtichette() { return CaricaStringa(Id::Etichette).remove(QLatin1Char('&')).remove(QLatin1String("...")); }

// The sheet in a small dialog: page size, labels across and down, the four margins. A
// sheet without cells is refused there (the error box), the dialog staying open.
bool ChiediFoglio(QWidget* genitore, FoglioEtichette& foglio, const std::function<void(const QString&)>& errore) {
    QDialog dialogo(genitore);
    dialogo.setObjectName(QStringLiteral("dlgEtichette"));
    dialogo.setWindowTitle(TitoloEtichette());
    auto* cmbPagina = new QComboBox(&dialogo);
    cmbPagina->setObjectName(QStringLiteral("cmbPagina"));
    const QPageSize::PageSizeId pagine[] = {QPageSize::A4, QPageSize::Letter};
    for (const auto id : pagine) {
        const QSizeF mm = QPageSize::size(id, QPageSize::Millimeter);
        cmbPagina->addItem(QStringLiteral("%1 (%2 × %3 mm)").arg(QPageSize::name(id)).arg(mm.width()).arg(mm.height()),
                           mm);
        if (std::abs(mm.width() - foglio.paginaLarghezzaMm) < 0.5 &&
            std::abs(mm.height() - foglio.paginaAltezzaMm) < 0.5)
            cmbPagina->setCurrentIndex(cmbPagina->count() - 1);
    }
    auto conta = [&dialogo](const char* nome, int valore) {
        auto* s = new QSpinBox(&dialogo);
        s->setObjectName(QLatin1String(nome));
        s->setRange(1, EtichetteMassimePerLato);
        s->setValue(valore);
        return s;
    };
    QSpinBox* spnColonne = conta("spnColonne", foglio.colonne);
    QSpinBox* spnRighe = conta("spnRighe", foglio.righe);
    QDoubleSpinBox* margini[4];
    double* valori[4] = {&foglio.margineAltoMm, &foglio.margineBassoMm, &foglio.margineSinistroMm,
                         &foglio.margineDestroMm};
    auto* rigaMargini = new QHBoxLayout;
    for (int i = 0; i < 4; ++i) {
        margini[i] = new QDoubleSpinBox(&dialogo);
        margini[i]->setObjectName(QStringLiteral("spnMargine%1").arg(i));
        margini[i]->setRange(0, 500);
        margini[i]->setDecimals(1);
        margini[i]->setValue(*valori[i]);
        rigaMargini->addWidget(margini[i]);
    }
    auto* rigaCelle = new QHBoxLayout;
    rigaCelle->addWidget(spnColonne);
    rigaCelle->addWidget(new QLabel(QStringLiteral("×"), &dialogo));
    rigaCelle->addWidget(spnRighe);
    rigaCelle->addStretch(1);
    auto* modulo = new QFormLayout;
    modulo->addRow(CaricaStringa(Id::Pagina), cmbPagina);
    modulo->addRow(CaricaStringa(Id::ColonneRighe), rigaCelle);
    modulo->addRow(CaricaStringa(Id::Margini), rigaMargini);
    // The form's labels take their buddies from the first box of each row.
    qobject_cast<QLabel*>(modulo->labelForField(rigaCelle))->setBuddy(spnColonne);
    qobject_cast<QLabel*>(modulo->labelForField(rigaMargini))->setBuddy(margini[0]);
    auto* pulsanti = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialogo);
    auto* verticale = new QVBoxLayout(&dialogo);
    verticale->addLayout(modulo);
    verticale->addWidget(pulsanti);

    FoglioEtichette scelto = foglio;
    QObject::connect(pulsanti, &QDialogButtonBox::rejected, &dialogo, &QDialog::reject);
    QObject::connect(pulsanti, &QDialogButtonBox::accepted, &dialogo, [&] {
        const QSizeF mm = cmbPagina->currentData().toSizeF();
        scelto.paginaLarghezzaMm = mm.width();
        scelto.paginaAltezzaMm = mm.height();
        scelto.colonne = spnColonne->value();
        scelto.righe = spnRighe->value();
        scelto.margineAltoMm = margini[0]->value();
        scelto.margineBassoMm = margini[1]->value();
        scelto.margineSinistroMm = margini[2]->value();
        scelto.margineDestroMm = margini[3]->value();
        if (FoglioValido(scelto))
            dialogo.accept();
        else
            errore(CaricaStringa(Id::FoglioSenzaCelle));
    });
    if (dialogo.exec() != QDialog::Accepted) return false;
    foglio = scelto;
    return true;
}

}  // namespace

frmElenco::frmElenco(const ImpostazioniElenco& impostazioni, ServiziElenco servizi, QWidget* genitore)
    : QWidget(genitore, Qt::Window), servizi_(std::move(servizi)) {
    setObjectName(QStringLiteral("frmElenco"));
    if (!servizi_.scegliFileApri)
        servizi_.scegliFileApri = [this](const QString& filtro) {
            return QFileDialog::getOpenFileName(this, QString(), QString(), filtro);
        };
    if (!servizi_.scegliFileSalva)
        servizi_.scegliFileSalva = [this](const QString& filtro, const QString& proposto) {
            return QFileDialog::getSaveFileName(this, QString(), proposto, filtro);
        };
    if (!servizi_.errore)
        servizi_.errore = [this](const QString& testo) {
            QMessageBox::critical(this, CaricaStringa(Id::TitoloErrore), testo);
        };
    if (!servizi_.messaggio)
        servizi_.messaggio = [this](const QString& testo) {
            QMessageBox::information(this, CaricaStringa(Id::Titolo), testo);
        };
    if (!servizi_.scegliFoglio)
        servizi_.scegliFoglio = [this](FoglioEtichette& foglio) { return ChiediFoglio(this, foglio, servizi_.errore); };

    modello_ = new ModelloElenco(this);
    filtro_ = new FiltroRifiutate(this);
    filtro_->setSourceModel(modello_);

    auto nomina = [](QWidget* w, const char* nome) { w->setObjectName(QLatin1String(nome)); };
    cmdApri = new QPushButton(this);
    nomina(cmdApri, "cmdApri");
    cmdIncolla = new QPushButton(this);
    nomina(cmdIncolla, "cmdIncolla");
    labColonna = new QLabel(this);
    cmbColonna = new QComboBox(this);
    nomina(cmbColonna, "cmbColonna");
    labColonna->setBuddy(cmbColonna);
    labSimbologia = new QLabel(this);
    cmbSimbologia = new QComboBox(this);
    nomina(cmbSimbologia, "cmbSimbologia");
    cmbSimbologia->setMaxVisibleItems(NumeroVoci);
    labSimbologia->setBuddy(cmbSimbologia);
    labStile = new QLabel(this);
    cmbStile = new QComboBox(this);
    nomina(cmbStile, "cmbStile");
    labStile->setBuddy(cmbStile);
    labDimensione = new QLabel(this);
    spnDimensione = new QSpinBox(this);
    nomina(spnDimensione, "spnDimensione");
    spnDimensione->setRange(1, DimensioneMassima);  // the main window's limit, which word processors accept
    labDimensione->setBuddy(spnDimensione);
    chkDigit = new QCheckBox(this);
    nomina(chkDigit, "chkDigit");
    chkHRC = new QCheckBox(this);
    nomina(chkHRC, "chkHRC");
    chkSoloRifiutate = new QCheckBox(this);
    nomina(chkSoloRifiutate, "chkSoloRifiutate");
    labConteggio = new QLabel(this);
    nomina(labConteggio, "labConteggio");
    tabella = new QTableView(this);
    nomina(tabella, "tabella");
    tabella->setModel(filtro_);
    tabella->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabella->setWordWrap(false);
    // Fixed row heights: the view then lays out only the rows it shows, whatever their number.
    tabella->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    tabella->horizontalHeader()->setStretchLastSection(true);
    cmdSalva = new QPushButton(this);
    nomina(cmdSalva, "cmdSalva");
    cmdCopia = new QPushButton(this);
    nomina(cmdCopia, "cmdCopia");
    cmdEsporta = new QPushButton(this);
    nomina(cmdEsporta, "cmdEsporta");
    cmdEtichette = new QPushButton(this);
    nomina(cmdEtichette, "cmdEtichette");

    auto* sorgente = new QHBoxLayout;
    sorgente->addWidget(cmdApri);
    sorgente->addWidget(cmdIncolla);
    sorgente->addSpacing(12);
    sorgente->addWidget(labColonna);
    sorgente->addWidget(cmbColonna, 1);
    auto* scelte = new QHBoxLayout;
    scelte->addWidget(labSimbologia);
    scelte->addWidget(cmbSimbologia, 2);
    scelte->addWidget(labStile);
    scelte->addWidget(cmbStile, 1);
    scelte->addWidget(labDimensione);
    scelte->addWidget(spnDimensione);
    scelte->addWidget(chkDigit);
    scelte->addWidget(chkHRC);
    auto* vista = new QHBoxLayout;
    vista->addWidget(chkSoloRifiutate);
    vista->addStretch(1);
    vista->addWidget(labConteggio);
    auto* uscite = new QHBoxLayout;
    uscite->addStretch(1);
    uscite->addWidget(cmdCopia);
    uscite->addWidget(cmdSalva);
    uscite->addWidget(cmdEsporta);
    uscite->addWidget(cmdEtichette);
    auto* verticale = new QVBoxLayout(this);
    verticale->addLayout(sorgente);
    verticale->addLayout(scelte);
    verticale->addLayout(vista);
    verticale->addWidget(tabella, 1);
    verticale->addLayout(uscite);

    CaricaTesti();
    inCaricamento_ = true;
    const int indiceVoce = impostazioni.voce ? cmbSimbologia->findText(CaricaStringa(impostazioni.voce->id)) : -1;
    cmbSimbologia->setCurrentIndex(std::max(indiceVoce, 0));
    AggiornaStili();
    const int indiceStile = cmbStile->findText(DaWindows1252(impostazioni.stile));
    if (indiceStile >= 0) cmbStile->setCurrentIndex(indiceStile);
    spnDimensione->setValue(static_cast<int>(impostazioni.punti));
    chkDigit->setChecked(impostazioni.checkDigit);
    chkHRC->setChecked(impostazioni.hrc);
    inCaricamento_ = false;
    ImpostazioniElenco iniziali = impostazioni;
    modello_->ImpostaImpostazioni(iniziali);
    AggiornaImpostazioni();

    connect(cmdApri, &QPushButton::clicked, this, &frmElenco::Apri_Click);
    connect(cmdIncolla, &QPushButton::clicked, this, &frmElenco::Incolla);
    connect(cmdSalva, &QPushButton::clicked, this, &frmElenco::Salva_Click);
    connect(cmdCopia, &QPushButton::clicked, this, &frmElenco::CopiaTabella);
    connect(cmdEsporta, &QPushButton::clicked, this, &frmElenco::Esporta_Click);
    connect(cmdEtichette, &QPushButton::clicked, this, &frmElenco::Etichette_Click);
    connect(cmbColonna, &QComboBox::currentIndexChanged, this, [this](int indice) {
        if (inCaricamento_ || indice < 0) return;
        modello_->ImpostaColonnaContenuto(static_cast<std::size_t>(indice));
        AggiornaConteggio();
    });
    connect(cmbSimbologia, &QComboBox::currentIndexChanged, this, [this] {
        if (inCaricamento_) return;
        AggiornaStili();
        AggiornaImpostazioni();
    });
    for (QComboBox* c : {cmbStile}) connect(c, &QComboBox::currentIndexChanged, this, &frmElenco::AggiornaImpostazioni);
    connect(spnDimensione, &QSpinBox::valueChanged, this, &frmElenco::AggiornaImpostazioni);
    for (QCheckBox* c : {chkDigit, chkHRC}) connect(c, &QCheckBox::toggled, this, &frmElenco::AggiornaImpostazioni);
    connect(chkSoloRifiutate, &QCheckBox::toggled, this, [this](bool solo) {
        filtro_->ImpostaSoloRifiutate(solo);
        AggiornaConteggio();
    });
    resize(900, 600);
}

void frmElenco::CaricaTesti() {
    setWindowTitle(CaricaStringa(Id::Titolo));
    cmdApri->setText(CaricaStringa(Id::Apri));
    cmdIncolla->setText(CaricaStringa(Id::Incolla));
    labColonna->setText(CaricaStringa(Id::Colonna));
    labSimbologia->setText(CaricaStringa(Id::Simbologia));
    labStile->setText(CaricaStringa(Id::Stile));
    labDimensione->setText(CaricaStringa(Id::Dimensione));
    chkDigit->setText(CaricaStringa(Id::CheckDigit));
    chkHRC->setText(CaricaStringa(Id::HRC));
    chkSoloRifiutate->setText(CaricaStringa(Id::SoloRifiutate));
    cmdSalva->setText(CaricaStringa(Id::Salva));
    cmdCopia->setText(CaricaStringa(Id::Copia));
    cmdEsporta->setText(CaricaStringa(Id::EsportaRighe));
    cmdEtichette->setText(CaricaStringa(Id::Etichette));
    const bool prima = inCaricamento_;
    inCaricamento_ = true;
    cmbSimbologia->clear();
    for (int i = 0; i < NumeroVoci; ++i) cmbSimbologia->addItem(CaricaStringa(Id::PrimaVoce + i));
    inCaricamento_ = prima;
}

// The styles of the entry, keeping the one chosen when the entry offers it; the option
// boxes as the main window sets them for the entry.
void frmElenco::AggiornaStili() {
    const auto testo = AWindows1252(cmbSimbologia->currentText());
    const VoceCatalogo* voce = testo ? TrovaVoce(*testo, OffsetLingua()) : nullptr;
    const RigaAttributi& riga = RigaAttributiPerVoce(voce ? voce->id : 0);
    const QString scelto = cmbStile->currentText();
    const bool prima = inCaricamento_;
    inCaricamento_ = true;
    cmbStile->clear();
    for (const int id : StiliOfferti(riga)) cmbStile->addItem(CaricaStringa(id));
    cmbStile->setCurrentIndex(std::max(cmbStile->findText(scelto), 0));
    cmbStile->setEnabled(riga.stileAttivo);
    chkHRC->setEnabled(riga.regola == RegolaOpzioni::Libera || riga.regola == RegolaOpzioni::HRCSpuntato);
    chkDigit->setEnabled(riga.regola != RegolaOpzioni::ISBN);
    if (riga.regola != RegolaOpzioni::Libera) chkHRC->setChecked(true);
    if (riga.regola == RegolaOpzioni::ISBN) chkDigit->setChecked(true);
    inCaricamento_ = prima;
}

void frmElenco::AggiornaImpostazioni() {
    if (inCaricamento_) return;
    ImpostazioniElenco i = modello_->Impostazioni();
    const auto testo = AWindows1252(cmbSimbologia->currentText());
    i.voce = testo ? TrovaVoce(*testo, OffsetLingua()) : nullptr;
    i.stile = AWindows1252Sostituendo(cmbStile->currentText());
    i.punti = spnDimensione->value();
    i.checkDigit = chkDigit->isChecked();
    i.hrc = chkHRC->isChecked();
    modello_->ImpostaImpostazioni(i);
    const QFontMetrics metriche(modello_->index(0, ModelloElenco::Simbolo).data(Qt::FontRole).value<QFont>());
    tabella->verticalHeader()->setDefaultSectionSize(std::max(metriche.height(), fontMetrics().height()) + 4);
    AggiornaConteggio();
}

void frmElenco::AggiornaConteggio() {
    // Sized from the rows in view (and a bounded sample), not from every row.
    for (const int c : {ModelloElenco::Contenuto, ModelloElenco::Simbolo, ModelloElenco::TestoHRC})
        tabella->resizeColumnToContents(c);
    labConteggio->setText(CaricaStringa(Id::Conteggio)
                              .arg(modello_->rowCount())
                              .arg(static_cast<qulonglong>(modello_->Rifiutate())));
}

void frmElenco::DopoLettura() {
    inCaricamento_ = true;
    cmbColonna->clear();
    for (const auto& nome : modello_->Intestazione()) cmbColonna->addItem(QString::fromStdString(nome));
    cmbColonna->setCurrentIndex(0);
    inCaricamento_ = false;
    AggiornaImpostazioni();
}

bool frmElenco::ApriFile(const QString& percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly)) {
        servizi_.errore(CaricaStringa(Id::NonLeggibile).arg(QDir::toNativeSeparators(percorso), file.errorString()));
        return false;
    }
    const QString nome = QFileInfo(percorso).fileName();
    const qint64 dimensione = file.size();
    QProgressDialog progresso(CaricaStringa(Id::Lettura).arg(nome), CaricaStringa(Id::Annulla), 0, 1000, this);
    progresso.setWindowModality(Qt::WindowModal);
    progresso.setMinimumDuration(500);
    auto leggi = [&file](char* dati, std::size_t n) -> std::ptrdiff_t {
        const qint64 letti = file.read(dati, static_cast<qint64>(n));
        if (letti < 0) errno = EIO;
        return static_cast<std::ptrdiff_t>(letti);
    };
    const EsitoLettura esito = modello_->Leggi(leggi, '\0', true, [&](std::uint64_t byte) {
        progresso.setValue(dimensione > 0 ? static_cast<int>(byte * 1000 / static_cast<std::uint64_t>(dimensione)) : 0);
        QCoreApplication::processEvents();
        return !progresso.wasCanceled();
    });
    progresso.reset();
    if (esito.erroreLettura != 0) {
        servizi_.errore(CaricaStringa(Id::NonLeggibile)
                            .arg(QDir::toNativeSeparators(percorso), QString::fromLocal8Bit(std::strerror(esito.erroreLettura))));
        return false;
    }
    if (esito.guasto != GuastoCsv::Nessuno) {
        servizi_.errore(CaricaStringa(Id::NonCsv).arg(
            nome, QString::number(esito.riga), QString::fromStdString(TestoGuastoCsv(esito.guasto, OffsetLingua()))));
        return false;
    }
    if (!esito.riuscita) return false;
    percorsoLetto_ = percorso;
    DopoLettura();
    return true;
}

bool frmElenco::Incolla() {
    const QString testo = QGuiApplication::clipboard()->text();
    if (testo.isEmpty()) {
        servizi_.errore(CaricaStringa(Id::AppuntiVuoti));
        return false;
    }
    const QByteArray utf8 = testo.toUtf8();
    qsizetype letti = 0;
    auto leggi = [&](char* dati, std::size_t n) -> std::ptrdiff_t {
        const qsizetype k = std::min(static_cast<qsizetype>(n), utf8.size() - letti);
        std::memcpy(dati, utf8.constData() + letti, static_cast<std::size_t>(k));
        letti += k;
        return static_cast<std::ptrdiff_t>(k);
    };
    const EsitoLettura esito = modello_->Leggi(leggi, '\t', false, {});
    if (esito.guasto != GuastoCsv::Nessuno) {
        servizi_.errore(CaricaStringa(Id::NonCsv).arg(
            QString(), QString::number(esito.riga), QString::fromStdString(TestoGuastoCsv(esito.guasto, OffsetLingua()))));
        return false;
    }
    if (!esito.riuscita) return false;
    percorsoLetto_.clear();
    DopoLettura();
    return true;
}

bool frmElenco::SalvaCsv(const QString& percorso) {
    const QString nativo = QDir::toNativeSeparators(percorso);
    if (!percorsoLetto_.isEmpty() && QFileInfo(percorso).exists() &&
        QFileInfo(percorso).canonicalFilePath() == QFileInfo(percorsoLetto_).canonicalFilePath()) {
        servizi_.errore(CaricaStringa(Id::NonScrivibile).arg(nativo, CaricaStringa(Id::FileLetto)));
        return false;
    }
    std::vector<int> righe(static_cast<std::size_t>(modello_->rowCount()));
    for (std::size_t i = 0; i < righe.size(); ++i) righe[i] = static_cast<int>(i);
    const std::string csv = modello_->Csv(righe);
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly) || file.write(csv.data(), static_cast<qint64>(csv.size())) !=
                                                  static_cast<qint64>(csv.size()) ||
        !file.commit()) {
        servizi_.errore(CaricaStringa(Id::NonScrivibile).arg(nativo, file.errorString()));
        return false;
    }
    return true;
}

std::vector<int> frmElenco::RigheDaCopiare() const {
    std::vector<int> righe;
    const QModelIndexList scelte = tabella->selectionModel()->selectedRows();
    if (!scelte.isEmpty()) {
        for (const QModelIndex& i : scelte) righe.push_back(filtro_->mapToSource(i).row());
        std::sort(righe.begin(), righe.end());
        return righe;
    }
    for (int r = 0; r < filtro_->rowCount(); ++r) righe.push_back(filtro_->mapToSource(filtro_->index(r, 0)).row());
    return righe;
}

void frmElenco::CopiaTabella() {
    const std::vector<int> righe = RigheDaCopiare();
    QMimeData* dati = DatiAppuntiRtf(modello_->TabellaRtf(righe));
    dati->setText(modello_->TabellaTesto(righe));
    QGuiApplication::clipboard()->setMimeData(dati);
}

void frmElenco::Apri_Click() {
    const QString percorso = servizi_.scegliFileApri(CaricaStringa(Id::Filtro));
    if (!percorso.isEmpty()) ApriFile(percorso);
}

void frmElenco::Salva_Click() {
    QString proposto;
    if (!percorsoLetto_.isEmpty()) {
        const QFileInfo letto(percorsoLetto_);
        proposto = letto.dir().filePath(letto.completeBaseName() + QStringLiteral("-barcodes.csv"));
    }
    const QString percorso = servizi_.scegliFileSalva(CaricaStringa(Id::Filtro), proposto);
    if (!percorso.isEmpty()) SalvaCsv(percorso);
}

// An accepted row's symbol as export draws it; the HRC line in the default face at 10 points.
SimboloDaDisegnare frmElenco::SimboloRiga(int n) const {
    const EsitoElemento& esito = modello_->Esito(n);
    const VoceCatalogo& voce = *modello_->Impostazioni().voce;
    SimboloDaDisegnare simbolo;
    simbolo.glifi = esito.glifi;
    simbolo.famiglia = DaWindows1252(esito.famiglia);
    simbolo.codice = std::string(voce.codice);
    simbolo.addOn = voce.addOn != 0;
    simbolo.hrc = DaWindows1252(esito.hrc);
    simbolo.fontHRC.setPointSizeF(10);
    return simbolo;
}

int frmElenco::EsportaRighe(const QString& percorso) {
    const QFileInfo modello(percorso);
    if (FormatoDaNome(percorso) == FormatoFile::Sconosciuto) {
        servizi_.errore(CaricaStringa(IdStampa::NonEsportato)
                            .arg(QDir::toNativeSeparators(percorso), CaricaStringa(IdStampa::TipoSconosciuto)));
        return -1;
    }
    const ImpostazioniElenco& impostazioni = modello_->Impostazioni();
    if (impostazioni.voce == nullptr) return 0;
    const QString estensione = QLatin1Char('.') + modello.suffix();
    QSet<QString> nomi;
    int scritti = 0;
    for (int n = 0; n < modello_->rowCount(); ++n) {
        const EsitoElemento& esito = modello_->Esito(n);
        if (!esito.accettato) continue;
        // The content as a file name: letters, digits, '-', '_' and '.'; a number when
        // nothing is left; "-2", "-3" ... for a name already written.
        QString nome = QString::fromStdString(modello_->ContenutoRiga(n)).left(60);
        nome.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9._-]")), QStringLiteral("_"));
        if (nome.isEmpty() || nome.startsWith(QLatin1Char('.'))) nome.prepend(QString::number(n + 1));
        QString unico = nome;
        for (int k = 2; nomi.contains(unico); ++k) unico = nome + QLatin1Char('-') + QString::number(k);
        nomi.insert(unico);
        const QString file = modello.dir().filePath(unico + estensione);
        const Disegno disegno = PreparaDisegno(SimboloRiga(n), {DpiEsportazione, 0, impostazioni.punti});
        QString motivo = MotivoDisegno(disegno);
        if (motivo.isEmpty() && !ScriviDisegno(file, disegno, DpiEsportazione, motivo) && motivo.isEmpty())
            motivo = QStringLiteral("?");
        if (!motivo.isEmpty()) {
            servizi_.errore(CaricaStringa(IdStampa::NonEsportato).arg(QDir::toNativeSeparators(file), motivo));
            return -1;
        }
        ++scritti;
    }
    return scritti;
}

int frmElenco::EsportaEtichette(const QString& percorso, const FoglioEtichette& foglio) {
    const QString nativo = QDir::toNativeSeparators(percorso);
    if (!FoglioValido(foglio)) {
        servizi_.errore(CaricaStringa(Id::FoglioSenzaCelle));
        return -1;
    }
    const ImpostazioniElenco& impostazioni = modello_->Impostazioni();
    std::vector<int> accettate;
    for (int n = 0; impostazioni.voce != nullptr && n < modello_->rowCount(); ++n)
        if (modello_->Esito(n).accettato) accettate.push_back(n);
    if (accettate.empty()) {
        servizi_.errore(CaricaStringa(Id::NessunaAccettata));
        return -1;
    }
    // Written beside the target and moved over it whole: an error leaves no half-written file,
    // and an existing one untouched.
    QSaveFile file(percorso);
    auto fallito = [&](const QString& motivo) {
        file.cancelWriting();
        servizi_.errore(CaricaStringa(IdStampa::NonEsportato).arg(nativo, motivo));
        return -1;
    };
    if (!file.open(QIODevice::WriteOnly)) return fallito(file.errorString());
    QPdfWriter pdf(&file);
    pdf.setResolution(DpiEsportazione);
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    pdf.setPageSize(QPageSize(QSizeF(foglio.paginaLarghezzaMm, foglio.paginaAltezzaMm), QPageSize::Millimeter, QString(),
                              QPageSize::FuzzyMatch));
    pdf.setCreator(QStringLiteral("KRT"));
    QPainter pittore;
    if (!pittore.begin(&pdf)) return fallito(file.errorString());
    // Points on the page, each symbol's corner on a whole dot.
    constexpr double PuntiPerDot = PuntiPerPollice / DpiEsportazione;
    pittore.scale(1 / PuntiPerDot, 1 / PuntiPerDot);
    const double mmPerPunto = MmPerPollice / PuntiPerPollice;
    auto decimi = [](double mm) { return QString::number(std::ceil(mm * 10 - 1e-6) / 10, 'f', 1); };
    QProgressDialog progresso(TitoloEtichette(), CaricaStringa(Id::Annulla), 0,
                              static_cast<int>(accettate.size()), this);
    progresso.setWindowModality(Qt::WindowModal);
    progresso.setMinimumDuration(500);
    long pagina = 0;
    for (std::size_t k = 0; k < accettate.size(); ++k) {
        if (k % 64 == 0) {
            progresso.setValue(static_cast<int>(k));
            QCoreApplication::processEvents();
            if (progresso.wasCanceled()) {
                pittore.end();
                file.cancelWriting();
                return 0;
            }
        }
        const int n = accettate[k];
        const Disegno disegno = PreparaDisegno(SimboloRiga(n), {DpiEsportazione, 0, impostazioni.punti});
        if (!disegno) {
            pittore.end();
            return fallito(MotivoDisegno(disegno));
        }
        const double larghezza = disegno.dimensione.width() * mmPerPunto;
        const double altezza = disegno.dimensione.height() * mmPerPunto;
        const PostoEtichetta posto = PostoDiEtichetta(foglio, static_cast<long>(k));
        if (!EntraInCella(posto.cella, larghezza, altezza)) {
            pittore.end();
            return fallito(CaricaStringa(Id::SimboloFuoriCella)
                               .arg(QString::fromStdString(modello_->ContenutoRiga(n)), decimi(larghezza),
                                    decimi(altezza), QString::number(posto.cella.larghezza, 'f', 1),
                                    QString::number(posto.cella.altezza, 'f', 1)));
        }
        if (posto.pagina > pagina) {
            pdf.newPage();
            pagina = posto.pagina;
        }
        const PuntoDots origine = OrigineCentrata(posto.cella, larghezza, altezza, DpiEsportazione);
        DipingiDisegno(pittore, disegno,
                       QPointF(static_cast<double>(origine.x), static_cast<double>(origine.y)) * PuntiPerDot);
    }
    if (!pittore.end() || !file.commit()) return fallito(file.errorString());
    const int scritte = static_cast<int>(accettate.size());
    servizi_.messaggio(CaricaStringa(Id::EtichetteScritte)
                           .arg(QString::number(scritte), QString::number(pagina + 1), nativo,
                                QString::number(modello_->rowCount() - scritte)));
    return scritte;
}

void frmElenco::Etichette_Click() {
    if (!servizi_.scegliFoglio(foglio_)) return;
    QString percorso = servizi_.scegliFileSalva(QStringLiteral("PDF (*.pdf)"), QStringLiteral("labels.pdf"));
    if (percorso.isEmpty()) return;
    if (FormatoDaNome(percorso) != FormatoFile::Pdf) percorso += QLatin1String(".pdf");
    EsportaEtichette(percorso, foglio_);
}

void frmElenco::Esporta_Click() {
    const QString percorso = servizi_.scegliFileSalva(CaricaStringa(IdStampa::FiltroFile), QStringLiteral("barcode.png"));
    if (!percorso.isEmpty()) EsportaRighe(percorso);
}

}  // namespace krt
