// File > Export and File > Print: the symbol of the preview drawn without its font, at the
// size with whole printer dots per module that the row under the size shows.
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QRegularExpression>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>

#include "mainwindow/frmprincipale.h"
#include "mainwindow/frmprincipale_comune.h"
#include "mainwindow/stampa.h"
#include "support/cp1252.h"
#include "support/stringhe.h"

namespace krt {

using namespace finestra;

// The symbol of the preview on screen; false (and the user told why) when there is none
// or it no longer matches the settings.
bool frmPrincipale::SimboloCorrente(SimboloDaDisegnare& simbolo) {
    if (glifiDisegnati_.empty() || voceDisegnata_ == nullptr || AnteprimaSuperata()) {
        servizi_.messaggio(QMessageBox::Information, CaricaStringa(IdStringa::TitoloAvviso),
                           CaricaStringa(IdStampa::PrimaGenera), motivoSuperata());
        return false;
    }
    simbolo.glifi = glifiDisegnati_;
    simbolo.famiglia = famigliaBarre_;
    simbolo.codice = std::string(voceDisegnata_->codice);
    simbolo.addOn = voceDisegnata_->addOn != 0;
    simbolo.hrc = hrcDisegnato_;
    const Configurazione& c = configurazione_;
    simbolo.fontHRC = QFont(DaWindows1252(c.NomeFontHRC.Rifilato()));
    simbolo.fontHRC.setPointSizeF(c.DimensioneHRC > 0 ? c.DimensioneHRC : 10);
    simbolo.fontHRC.setBold(c.GrassettoHRC != 0);
    simbolo.fontHRC.setItalic(c.CorsivoHRC != 0);
    return true;
}

void frmPrincipale::AggiornaMisuraStampa() {
    if (glifiDisegnati_.empty() || voceDisegnata_ == nullptr) {
        pannelloStampa_->Aggiorna(nullptr, 0);
        return;
    }
    SimboloDaDisegnare simbolo;
    simbolo.glifi = glifiDisegnati_;
    simbolo.famiglia = famigliaBarre_;
    pannelloStampa_->Aggiorna(&simbolo, dimensioneDisegnata_);
}

void frmPrincipale::mnuEsporta_Click() {
    SimboloDaDisegnare simbolo;
    if (!SimboloCorrente(simbolo)) return;
    if (!servizi_.fileEsportazione)
        servizi_.fileEsportazione = [this](const QString& proposto) {
            return QFileDialog::getSaveFileName(this, CaricaStringa(IdStampa::TitoloEsporta), proposto,
                                                CaricaStringa(IdStampa::FiltroFile));
        };
    QString nome = txtCodice->text();
    nome.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9_-]")), QStringLiteral("_"));
    const QString percorso = servizi_.fileEsportazione(nome.left(40) + QStringLiteral(".png"));
    if (percorso.isEmpty()) return;
    QString motivo;
    if (FormatoDaNome(percorso) == FormatoFile::Sconosciuto) {
        motivo = CaricaStringa(IdStampa::TipoSconosciuto);
    } else {
        const MisuraStampa misura = pannelloStampa_->Misura(dimensioneDisegnata_);
        const Disegno disegno = PreparaDisegno(simbolo, misura);
        motivo = MotivoDisegno(disegno);
        if (motivo.isEmpty() && !ScriviDisegno(percorso, disegno, misura.dpi, motivo) && motivo.isEmpty())
            motivo = QStringLiteral("?");
    }
    if (!motivo.isEmpty())
        servizi_.messaggio(QMessageBox::Warning, CaricaStringa(IdStringa::TitoloAvviso),
                           CaricaStringa(IdStampa::NonEsportato).arg(QDir::toNativeSeparators(percorso), motivo),
                           QString());
}

void frmPrincipale::mnuStampa_Click() {
    SimboloDaDisegnare simbolo;
    if (!SimboloCorrente(simbolo)) return;
    const MisuraStampa misura = pannelloStampa_->Misura(dimensioneDisegnata_);
    const Disegno disegno = PreparaDisegno(simbolo, misura);
    QString motivo = MotivoDisegno(disegno);
    if (motivo.isEmpty()) {
        QPrinter stampante(QPrinter::HighResolution);
        if (!servizi_.dialogoStampa)
            servizi_.dialogoStampa = [this](QPrinter& p) {
                QPrintDialog dialogo(&p, this);
                return dialogo.exec() == QDialog::Accepted;
            };
        if (!servizi_.dialogoStampa(stampante)) return;
        motivo = StampaCopie(stampante, disegno, misura.dpi, pannelloStampa_->Copie());
    }
    if (!motivo.isEmpty())
        servizi_.messaggio(QMessageBox::Warning, CaricaStringa(IdStringa::TitoloAvviso), motivo, QString());
}

}  // namespace krt
