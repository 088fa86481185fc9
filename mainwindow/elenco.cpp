// The rows of the list window (see elenco.h).
#include "mainwindow/elenco.h"

#include <algorithm>

#include <QFontMetrics>

#include "barcodes/catalogo.h"
#include "cycle/motivi.h"
#include "mainwindow/anteprima.h"
#include "mainwindow/rtf.h"
#include "support/cp1252.h"
#include "support/stringhe.h"
#include "text/codifica_testo.h"

namespace krt {

namespace {

namespace Id {
constexpr int Contenuto = 716;
constexpr int Simbolo = 717;
constexpr int HRC = 718;
constexpr int Stato = 719;
constexpr int Accettato = 720;
constexpr int Rifiutato = 721;
}  // namespace Id

// Rows between two calls of the progress function.
constexpr std::size_t RighePerAvanzamento = 4096;
// The table draws the symbols at most this size, whatever the size chosen for the copy.
constexpr double PuntiMassimiTabella = 36;

// Glyphs as krt-encode's text output writes them: UTF-8, a TAB for the line break of a
// two-line result.
std::string GlifiTesto(std::string_view glifi) {
    std::string testo;
    for (std::size_t a_capo; (a_capo = glifi.find("\r\n")) != std::string_view::npos;) {
        AccodaCp1252InUtf8(testo, glifi.substr(0, a_capo));
        testo += '\t';
        glifi.remove_prefix(a_capo + 2);
    }
    AccodaCp1252InUtf8(testo, glifi);
    return testo;
}

std::string InUtf8(std::string_view cp1252) {
    std::string testo;
    AccodaCp1252InUtf8(testo, cp1252);
    return testo;
}

}  // namespace

ModelloElenco::ModelloElenco(QObject* genitore) : QAbstractTableModel(genitore) {}

EsitoLettura ModelloElenco::Leggi(LetturaCsv leggi, char separatore, bool conIntestazione,
                                  const std::function<bool(std::uint64_t)>& avanzamento) {
    EsitoLettura esito;
    LettoreCsv lettore(std::move(leggi), separatore);
    std::vector<std::string> intestazione;
    std::vector<Riga> righe;
    std::vector<std::string_view> campi;
    bool primo = conIntestazione;
    std::size_t larghezza = 0;
    while (lettore.Prossimo(campi)) {
        if (primo) {
            intestazione.assign(campi.begin(), campi.end());
            primo = false;
            continue;
        }
        larghezza = std::max(larghezza, campi.size());
        righe.push_back({std::vector<std::string>(campi.begin(), campi.end()), lettore.Riga(), {}});
        if (righe.size() % RighePerAvanzamento == 0 && avanzamento && !avanzamento(lettore.ByteLetti())) {
            esito.annullata = true;
            return esito;
        }
    }
    if (lettore.ErroreLettura() != 0) {
        esito.erroreLettura = lettore.ErroreLettura();
        return esito;
    }
    if (lettore.Guasto() != GuastoCsv::Nessuno || primo || (!conIntestazione && righe.empty())) {
        esito.guasto = lettore.Guasto() != GuastoCsv::Nessuno ? lettore.Guasto() : GuastoCsv::SenzaIntestazione;
        esito.riga = lettore.Guasto() != GuastoCsv::Nessuno ? lettore.Riga() : 1;
        return esito;
    }
    if (!conIntestazione) {
        for (std::size_t k = 1; k <= larghezza; ++k) intestazione.push_back("column" + std::to_string(k));
    }

    beginResetModel();
    intestazione_ = std::move(intestazione);
    righe_ = std::move(righe);
    colonna_ = 0;
    separatore_ = conIntestazione ? lettore.Separatore() : ',';
    Ricodifica();
    endResetModel();
    esito.riuscita = true;
    return esito;
}

void ModelloElenco::ImpostaColonnaContenuto(std::size_t colonna) {
    if (colonna == colonna_ || colonna >= intestazione_.size()) return;
    beginResetModel();
    colonna_ = colonna;
    Ricodifica();
    endResetModel();
}

void ModelloElenco::ImpostaImpostazioni(const ImpostazioniElenco& impostazioni) {
    beginResetModel();
    impostazioni_ = impostazioni;
    Ricodifica();
    endResetModel();
}

void ModelloElenco::Codifica(Riga& riga) const {
    riga.esito = {};
    const int offset = OffsetLingua();
    if (riga.campi.size() > intestazione_.size()) {
        riga.esito.motivo = TestoCampiInEccesso(riga.campi.size(), intestazione_.size(), offset);
    } else if (colonna_ >= riga.campi.size()) {
        riga.esito.motivo = TestoCampoMancante(colonna_ + 1, offset);
    } else if (impostazioni_.voce != nullptr) {
        const OpzioniVoce opzioni{impostazioni_.checkDigit, impostazioni_.hrc, impostazioni_.checkDigitInHRC,
                                  impostazioni_.stile, {}};
        riga.esito = CodificaElemento(*impostazioni_.voce, riga.campi[colonna_], opzioni, offset);
    }
}

void ModelloElenco::Ricodifica() {
    rifiutate_ = 0;
    for (Riga& riga : righe_) {
        Codifica(riga);
        rifiutate_ += !riga.esito.accettato;
    }
    fontBarre_ = QFont();
    if (impostazioni_.voce != nullptr) {
        const std::string famiglia = ScegliFontFamiglia(impostazioni_.voce->famiglia, impostazioni_.stile);
        if (!famiglia.empty()) fontBarre_.setFamilies({DaWindows1252(famiglia)});
    }
    fontBarre_.setPointSizeF(std::clamp(impostazioni_.punti, 1.0, PuntiMassimiTabella));
}

QString ModelloElenco::Motivo(const Riga& riga) const {
    if (riga.esito.accettato) return CaricaStringa(Id::Accettato);
    return CaricaStringa(Id::Rifiutato).arg(QString::fromStdString(riga.esito.motivo));
}

int ModelloElenco::rowCount(const QModelIndex& genitore) const {
    return genitore.isValid() ? 0 : static_cast<int>(righe_.size());
}

int ModelloElenco::columnCount(const QModelIndex& genitore) const { return genitore.isValid() ? 0 : NumeroColonne; }

QVariant ModelloElenco::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || indice.row() >= static_cast<int>(righe_.size())) return {};
    const Riga& riga = righe_[static_cast<std::size_t>(indice.row())];
    if (ruolo == RuoloRifiutato) return !riga.esito.accettato;
    if (ruolo == Qt::FontRole && indice.column() == Simbolo) return fontBarre_;
    if (ruolo == Qt::ToolTipRole && indice.column() == Stato) return Motivo(riga);
    if (ruolo != Qt::DisplayRole) return {};
    switch (indice.column()) {
    case Contenuto:
        return colonna_ < riga.campi.size() ? QString::fromStdString(riga.campi[colonna_]) : QString();
    case Simbolo:
        return LeggiGlifi(riga.esito.glifi, fontBarre_);
    case TestoHRC:
        return DaWindows1252(riga.esito.hrc);
    case Stato:
        return Motivo(riga);
    default:
        return {};
    }
}

QVariant ModelloElenco::headerData(int sezione, Qt::Orientation orientamento, int ruolo) const {
    if (ruolo != Qt::DisplayRole) return {};
    if (orientamento == Qt::Vertical) {
        // The line of the file, so that a message about line N finds its row.
        if (sezione < 0 || sezione >= static_cast<int>(righe_.size())) return {};
        return static_cast<qulonglong>(righe_[static_cast<std::size_t>(sezione)].linea);
    }
    static constexpr int ids[] = {Id::Contenuto, Id::Simbolo, Id::HRC, Id::Stato};
    return sezione >= 0 && sezione < NumeroColonne ? CaricaStringa(ids[sezione]) : QVariant();
}

std::string ModelloElenco::Csv(const std::vector<int>& righe) const {
    const char sep = separatore_;
    std::string csv = "\xEF\xBB\xBF";
    for (const auto& nome : intestazione_) {
        AccodaCampoCsv(csv, nome, sep);
        csv += sep;
    }
    csv += "barcode";
    csv += sep;
    csv += "hrc";
    csv += sep;
    csv += "error\r\n";
    for (const int n : righe) {
        if (n < 0 || n >= static_cast<int>(righe_.size())) continue;
        const Riga& riga = righe_[static_cast<std::size_t>(n)];
        for (const auto& campo : riga.campi) {
            AccodaCampoCsv(csv, campo, sep);
            csv += sep;
        }
        for (std::size_t k = riga.campi.size(); k < intestazione_.size(); ++k) csv += sep;
        AccodaCampoCsv(csv, GlifiTesto(riga.esito.glifi), sep);
        csv += sep;
        AccodaCampoCsv(csv, InUtf8(riga.esito.hrc), sep);
        csv += sep;
        AccodaCampoCsv(csv, riga.esito.motivo, sep);
        csv += "\r\n";
    }
    return csv;
}

std::string ModelloElenco::TabellaRtf(const std::vector<int>& righe) const {
    const std::string famiglia = AWindows1252Sostituendo(fontBarre_.family());
    // A symbol-map font reads the glyph bytes as Latin-1 (see LeggiGlifi): declared as such.
    bool simbolo = false;
    for (std::size_t i = 0; i < righe.size() && i < 64 && !simbolo; ++i) {
        if (righe[i] < 0 || righe[i] >= static_cast<int>(righe_.size())) continue;
        const std::string& glifi = righe_[static_cast<std::size_t>(righe[i])].esito.glifi;
        QString windows = DaWindows1252(glifi);
        windows.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        simbolo = LeggiGlifi(glifi, fontBarre_) != windows;
    }
    std::vector<std::vector<SegmentoRtf>> tabella;
    tabella.reserve(righe.size());
    for (const int n : righe) {
        if (n < 0 || n >= static_cast<int>(righe_.size())) continue;
        const Riga& riga = righe_[static_cast<std::size_t>(n)];
        std::vector<SegmentoRtf> celle(NumeroColonne);
        for (auto& c : celle) c.famiglia = "Arial";
        celle[Contenuto].testo = AWindows1252Sostituendo(data(index(n, Contenuto)).toString());
        celle[Simbolo].famiglia = famiglia;
        celle[Simbolo].simbolo = simbolo;
        celle[Simbolo].punti = impostazioni_.punti;
        celle[Simbolo].testo = riga.esito.glifi;
        celle[TestoHRC].testo = riga.esito.hrc;
        celle[Stato].testo = AWindows1252Sostituendo(Motivo(riga));
        tabella.push_back(std::move(celle));
    }
    // Content, status and HRC 1.5 inches each; the symbol column as wide as its widest symbol.
    int larghezzaSimbolo = 2880;
    QFont misura = fontBarre_;
    misura.setPointSizeF(std::max(1.0, impostazioni_.punti));
    const QFontMetricsF metriche(misura);
    for (const auto& celle : tabella) {
        const double pollici = metriche.horizontalAdvance(LeggiGlifi(celle[Simbolo].testo, misura)) / metriche.fontDpi();
        larghezzaSimbolo = std::max(larghezzaSimbolo, static_cast<int>(pollici * 1440) + 216);
        if (larghezzaSimbolo > 14400) break;
    }
    return ComponiTabellaRtf(tabella, {2160, std::min(larghezzaSimbolo, 14400), 2160, 2880});
}

QString ModelloElenco::TabellaTesto(const std::vector<int>& righe) const {
    QString testo;
    for (const int n : righe) {
        if (n < 0 || n >= static_cast<int>(righe_.size())) continue;
        const Riga& riga = righe_[static_cast<std::size_t>(n)];
        QString simbolo = DaWindows1252(riga.esito.glifi);
        simbolo.replace(QLatin1String("\r\n"), QLatin1String(" "));
        testo += data(index(n, Contenuto)).toString() + QLatin1Char('\t') + simbolo + QLatin1Char('\t') +
                 DaWindows1252(riga.esito.hrc) + QLatin1Char('\t') + Motivo(riga) + QLatin1Char('\n');
    }
    return testo;
}

void FiltroRifiutate::ImpostaSoloRifiutate(bool solo) {
    if (solo == soloRifiutate_) return;
    soloRifiutate_ = solo;
    invalidateFilter();
}

bool FiltroRifiutate::filterAcceptsRow(int riga, const QModelIndex& genitore) const {
    if (!soloRifiutate_) return true;
    return sourceModel()->index(riga, 0, genitore).data(ModelloElenco::RuoloRifiutato).toBool();
}

}  // namespace krt
