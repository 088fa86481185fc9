// The rows of the list window: a CSV file or a pasted column read into memory, each
// content through the generate cycle with the list's entry and options, shown as a
// table (content, symbol in the barcode font, HRC, status) and written back as CSV with
// the columns krt-encode --csv appends, or as a rich-text table.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <QAbstractTableModel>
#include <QFont>
#include <QSortFilterProxyModel>

#include "cycle/elenco.h"
#include "cycle/voce.h"
#include "text/csv.h"

namespace krt {

// The options every row is encoded with (the list window's own copy of the main window's).
struct ImpostazioniElenco {
    const VoceCatalogo* voce = nullptr;
    std::string stile = "Normal";  // Windows-1252 style name, English or Italian
    double punti = 24;             // barcode size in points
    bool checkDigit = false;
    bool hrc = false;
    bool checkDigitInHRC = false;
};

// How a reading ended.
struct EsitoLettura {
    bool riuscita = false;
    bool annullata = false;
    GuastoCsv guasto = GuastoCsv::Nessuno;  // not CSV, at riga
    std::size_t riga = 0;
    int erroreLettura = 0;                  // errno of a read fault
};

class ModelloElenco : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Colonna { Contenuto, Simbolo, TestoHRC, Stato, NumeroColonne };
    static constexpr int RuoloRifiutato = Qt::UserRole + 1;

    explicit ModelloElenco(QObject* genitore = nullptr);

    // Reads CSV (conIntestazione: the first row is the header; else the columns are
    // named column1, column2 ...). avanzamento gets the bytes read so far every few
    // thousand rows; answering false cancels. The rows shown change only when the
    // reading succeeds.
    EsitoLettura Leggi(LetturaCsv leggi, char separatore, bool conIntestazione,
                       const std::function<bool(std::uint64_t byteLetti)>& avanzamento);

    const std::vector<std::string>& Intestazione() const { return intestazione_; }
    std::size_t ColonnaContenuto() const { return colonna_; }
    void ImpostaColonnaContenuto(std::size_t colonna);
    const ImpostazioniElenco& Impostazioni() const { return impostazioni_; }
    void ImpostaImpostazioni(const ImpostazioniElenco& impostazioni);
    std::size_t Rifiutate() const { return rifiutate_; }
    // Row n's result and its content field (UTF-8), for the export of every row.
    const EsitoElemento& Esito(int n) const { return righe_[static_cast<std::size_t>(n)].esito; }
    std::string ContenutoRiga(int n) const {
        const auto& campi = righe_[static_cast<std::size_t>(n)].campi;
        return colonna_ < campi.size() ? campi[colonna_] : std::string();
    }

    // The rows (in model order) as CSV: the fields as read, padded to the header, then
    // barcode, hrc and error, with the delimiter of the file read (',' for pasted text),
    // CR LF line ends and a UTF-8 byte-order mark.
    std::string Csv(const std::vector<int>& righe) const;
    // The rows as a rich-text table (content, symbol in the barcode font at the list's
    // size, HRC, status) and as tab-separated text.
    std::string TabellaRtf(const std::vector<int>& righe) const;
    QString TabellaTesto(const std::vector<int>& righe) const;

    int rowCount(const QModelIndex& genitore = {}) const override;
    int columnCount(const QModelIndex& genitore = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
    QVariant headerData(int sezione, Qt::Orientation orientamento, int ruolo = Qt::DisplayRole) const override;

private:
    struct Riga {
        std::vector<std::string> campi;  // as read (UTF-8)
        std::size_t linea = 0;           // line of the file it starts on
        EsitoElemento esito;
    };
    void Ricodifica();
    void Codifica(Riga& riga) const;
    QString Motivo(const Riga& riga) const;

    std::vector<std::string> intestazione_;
    std::vector<Riga> righe_;
    std::size_t colonna_ = 0;
    char separatore_ = ',';
    ImpostazioniElenco impostazioni_;
    std::size_t rifiutate_ = 0;
    QFont fontBarre_;
};

// Shows all rows, or only the refused ones.
class FiltroRifiutate : public QSortFilterProxyModel {
    Q_OBJECT
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    void ImpostaSoloRifiutate(bool solo);

protected:
    bool filterAcceptsRow(int riga, const QModelIndex& genitore) const override;

private:
    bool soloRifiutate_ = false;
};

}  // namespace krt
