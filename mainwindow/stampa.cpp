// Print and export at an exact bar width (see stampa.h).
#include "mainwindow/stampa.h"

#include <algorithm>
#include <cmath>

#include <QComboBox>
#include <QDoubleValidator>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrinter>
#include <QSettings>
#include <QSpinBox>

#include "support/stringhe.h"

namespace krt {

namespace {

constexpr int DpiPredefinito = 600;
constexpr double SpazioEtichetteMm = 5;  // between two copies on the page

}  // namespace

PannelloStampa::PannelloStampa(QWidget* genitore) : QWidget(genitore) {
    setObjectName(QStringLiteral("pannelloStampa"));
    labModulo_ = new QLabel(this);
    txtModulo_ = new QLineEdit(this);
    txtModulo_->setObjectName(QStringLiteral("txtModulo"));
    txtModulo_->setAlignment(Qt::AlignRight);
    txtModulo_->setFixedWidth(txtModulo_->fontMetrics().horizontalAdvance(QStringLiteral("000.000")) + 12);
    auto* validatore = new QDoubleValidator(0, 1000, 3, txtModulo_);
    validatore->setLocale(QLocale::c());
    validatore->setNotation(QDoubleValidator::StandardNotation);
    txtModulo_->setValidator(validatore);
    cmbUnita_ = new QComboBox(this);
    cmbUnita_->setObjectName(QStringLiteral("cmbUnita"));
    cmbUnita_->addItems({QString(), QString()});
    labDpi_ = new QLabel(this);
    spnDpi_ = new QSpinBox(this);
    spnDpi_->setObjectName(QStringLiteral("spnDpi"));
    spnDpi_->setRange(DpiMinimo, DpiMassimo);
    spnDpi_->setValue(DpiPredefinito);
    labCopie_ = new QLabel(this);
    spnCopie_ = new QSpinBox(this);
    spnCopie_->setObjectName(QStringLiteral("spnCopie"));
    spnCopie_->setRange(1, 500);
    labMisura_ = new QLabel(this);
    labMisura_->setObjectName(QStringLiteral("labMisura"));
    labMisura_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    labModulo_->setBuddy(txtModulo_);
    labDpi_->setBuddy(spnDpi_);
    labCopie_->setBuddy(spnCopie_);

    // The boxes on one line, what KRT chooses from them on the next.
    auto* colonna = new QVBoxLayout(this);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(2);
    auto* riga = new QHBoxLayout;
    for (QWidget* w : std::initializer_list<QWidget*>{labModulo_, txtModulo_, cmbUnita_, labDpi_, spnDpi_, labCopie_,
                                                      spnCopie_}) {
        if (w == labDpi_ || w == labCopie_) riga->addSpacing(12);
        riga->addWidget(w);
    }
    riga->addStretch(1);
    colonna->addLayout(riga);
    colonna->addWidget(labMisura_);

    connect(txtModulo_, &QLineEdit::textChanged, this, &PannelloStampa::cambiato);
    connect(cmbUnita_, &QComboBox::currentIndexChanged, this, &PannelloStampa::cambiato);
    connect(spnDpi_, &QSpinBox::valueChanged, this, &PannelloStampa::cambiato);
}

void PannelloStampa::CaricaTesti() {
    labModulo_->setText(CaricaStringa(IdStampa::Modulo));
    txtModulo_->setToolTip(CaricaStringa(IdStampa::SuggerimentoModulo));
    cmbUnita_->setItemText(0, CaricaStringa(IdStampa::Millimetri));
    cmbUnita_->setItemText(1, CaricaStringa(IdStampa::Mils));
    labDpi_->setText(CaricaStringa(IdStampa::Dpi));
    spnDpi_->setToolTip(CaricaStringa(IdStampa::SuggerimentoDpi));
    labCopie_->setText(CaricaStringa(IdStampa::Copie));
    spnCopie_->setToolTip(CaricaStringa(IdStampa::SuggerimentoCopie));
}

MisuraStampa PannelloStampa::Misura(double punti) const {
    MisuraStampa m;
    m.dpi = spnDpi_->value();
    bool numero = false;
    const double valore = QLocale::c().toDouble(txtModulo_->text().trimmed(), &numero);
    if (numero && valore > 0) m.moduloMm = cmbUnita_->currentIndex() == 1 ? MilsInMm(valore) : valore;
    m.punti = punti;
    return m;
}

int PannelloStampa::Copie() const { return spnCopie_->value(); }

void PannelloStampa::Ripristina(QSettings& impostazioni) {
    impostazioni.beginGroup(QStringLiteral("stampa"));
    const QString modulo = impostazioni.value(QStringLiteral("modulo")).toString();
    int posizione = 0;
    QString prova = modulo;
    if (txtModulo_->validator()->validate(prova, posizione) == QValidator::Acceptable) txtModulo_->setText(modulo);
    cmbUnita_->setCurrentIndex(impostazioni.value(QStringLiteral("mils")).toBool() ? 1 : 0);
    spnDpi_->setValue(impostazioni.value(QStringLiteral("dpi"), DpiPredefinito).toInt());  // clamped by the box
    spnCopie_->setValue(impostazioni.value(QStringLiteral("copie"), 1).toInt());
    impostazioni.endGroup();
}

void PannelloStampa::Salva(QSettings& impostazioni) const {
    impostazioni.beginGroup(QStringLiteral("stampa"));
    impostazioni.setValue(QStringLiteral("modulo"), txtModulo_->text());
    impostazioni.setValue(QStringLiteral("mils"), cmbUnita_->currentIndex() == 1);
    impostazioni.setValue(QStringLiteral("dpi"), spnDpi_->value());
    impostazioni.setValue(QStringLiteral("copie"), spnCopie_->value());
    impostazioni.endGroup();
}

void PannelloStampa::Aggiorna(const SimboloDaDisegnare* simbolo, double punti) {
    if (simbolo == nullptr) {
        labMisura_->clear();
        return;
    }
    const MisuraStampa m = Misura(punti);
    if (simbolo->glifi != glifiMisurati_ || simbolo->famiglia != famigliaMisurata_ || misura_.moduliPerEm <= 0) {
        misura_ = MisuraGlifiFamiglia(simbolo->glifi, simbolo->famiglia);
        glifiMisurati_ = simbolo->glifi;
        famigliaMisurata_ = simbolo->famiglia;
    }
    const MisuraGlifi& g = misura_;
    if (g.moduliPerEm <= 0) {
        labMisura_->clear();
        return;
    }
    const Dimensionamento d = m.moduloMm > 0 ? DimensionaDaModulo(m.moduloMm, m.dpi, g.moduliPerEm, g.moduliSimbolo)
                                             : DimensionaDaPunti(m.punti, m.dpi, g.moduliPerEm, g.moduliSimbolo);
    labMisura_->setText(!d.valido ? CaricaStringa(IdStampa::MisuraFuori)
                                  : CaricaStringa(IdStampa::Misura)
                                        .arg(d.moduloMm, 0, 'f', 3)
                                        .arg(d.puntiPerModulo)
                                        .arg(d.simboloMm, 0, 'f', 1)
                                        .arg(d.punti, 0, 'f', 2));
}

QString MotivoDisegno(const Disegno& disegno) {
    switch (disegno.errore) {
        case ErroreDisegno::Nessuno:
            return {};
        case ErroreDisegno::FamigliaMancante:
            return CaricaStringa(IdStampa::FamigliaMancante).arg(disegno.argomento);
        case ErroreDisegno::GlifoMancante:
            return CaricaStringa(IdStampa::GlifoMancante).arg(disegno.argomento);
        case ErroreDisegno::SenzaBarre:
            return CaricaStringa(IdStampa::SenzaBarre);
        case ErroreDisegno::Misura:
            return CaricaStringa(IdStampa::MisuraFuori);
    }
    return {};
}

QString StampaCopie(QPrinter& stampante, const Disegno& disegno, int dpi, int copie) {
    stampante.setFullPage(false);
    QPainter pittore;
    if (!pittore.begin(&stampante)) return CaricaStringa(IdStampa::NonStampato);
    // Points on the page; each copy starts on a whole dot of the resolution asked for.
    const double scala = stampante.resolution() / PuntiPerPollice;
    pittore.scale(scala, scala);
    const QSizeF pagina = QSizeF(stampante.pageLayout().paintRectPixels(stampante.resolution()).size()) / scala;
    const double spazio = SpazioEtichetteMm / MmPerPollice * PuntiPerPollice;
    const QSizeF passo = disegno.dimensione + QSizeF(spazio, spazio);
    const int colonne = std::max(1, static_cast<int>((pagina.width() + spazio) / passo.width()));
    const int righe = std::max(1, static_cast<int>((pagina.height() + spazio) / passo.height()));
    const double punto = PuntiPerPollice / dpi;
    auto suPunto = [punto](double x) { return std::ceil(x / punto - 1e-9) * punto; };
    for (int i = 0; i < copie; ++i) {
        const int suPagina = i % (colonne * righe);
        if (i > 0 && suPagina == 0) stampante.newPage();
        const QPointF origine(suPunto((suPagina % colonne) * passo.width()), suPunto((suPagina / colonne) * passo.height()));
        DipingiDisegno(pittore, disegno, origine);
    }
    return pittore.end() ? QString() : CaricaStringa(IdStampa::NonStampato);
}

}  // namespace krt
