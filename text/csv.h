// CSV without Qt (RFC 4180, read leniently where spreadsheets are lenient): a streaming
// reader with a bounded record, delimiter and line-end detection, and the quoting writer.
//
// Reading rules:
// - Fields are separated by the delimiter and records end at CR LF, LF or a lone CR.
// - A field that starts with a quote is quoted: delimiters, line breaks and doubled quotes
//   ("") inside it are data. After its closing quote only a delimiter, a line end or the
//   end of the input may follow (anything else is a fault).
// - A quote inside a field that does not start with one is an ordinary character (12" pipe).
// - A UTF-8 byte-order mark at the start is skipped (and remembered).
// - An empty line is a record with one empty field. A line end at the end of the input
//   does not start another record.
// - Line numbers are physical lines: a line break inside a quoted field counts.
#pragma once
#include <cstddef>
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace krt {

// Reads up to n bytes into dati: the number read, 0 at the end, -1 on a fault (errno).
using LetturaCsv = std::function<std::ptrdiff_t(char* dati, std::size_t n)>;

// Why an input is not CSV.
enum class GuastoCsv : std::uint8_t {
    Nessuno,
    VirgoletteAperte,   // a quoted field is still open at the end of the input
    DopoVirgolette,     // a character other than a delimiter or a line end follows a closing quote
    RecordTroppoLungo,  // a record longer than LunghezzaMassimaRecordCsv (a quote not closed?)
    SenzaIntestazione,  // the input holds no record at all, so no header
};

// A record (all its fields together) may not be longer: memory stays bounded whatever the input.
constexpr std::size_t LunghezzaMassimaRecordCsv = std::size_t{1} << 20;

// The delimiter a header line uses: the most frequent of ',' ';' TAB outside quotes
// (',' before ';' before TAB on a tie); ',' when it holds none (a single column).
char RilevaSeparatore(std::string_view riga);

class LettoreCsv {
public:
    // separatore '\0' detects it from the first line. primaDiLeggere runs before every read
    // that may wait for data; answering false ends the input there.
    explicit LettoreCsv(LetturaCsv leggi, char separatore = '\0', std::function<bool()> primaDiLeggere = {});

    // The next record; its fields view storage inside the reader, valid until the next
    // call. False at the end of the input, on a fault (Guasto) or a read fault (ErroreLettura).
    bool Prossimo(std::vector<std::string_view>& campi);

    // The last record as it was written, without its line end, and whether it is written
    // as RFC 4180 writes it (no quote inside an unquoted field): then it can be copied
    // unchanged instead of written field by field.
    std::string_view Grezzo() const { return grezzoVista_; }
    bool GrezzoFedele() const { return fedele_; }

    // 1-based line on which the last record returned starts; after a fault, the line the
    // fault is reported on (for an open quote: the line it was opened on).
    std::size_t Riga() const { return riga_; }
    char Separatore() const { return separatore_; }
    // The line end of the first record ("\r\n", "\n" or "\r"); "" when it ends the input.
    std::string_view FineRiga() const { return fineRiga_; }
    bool ConBom() const { return bom_; }
    GuastoCsv Guasto() const { return guasto_; }
    int ErroreLettura() const { return errore_; }
    // Bytes consumed so far (for a progress bar).
    std::uint64_t ByteLetti() const { return byteLetti_; }

private:
    bool Riempi();
    bool Avvia();
    bool Fallisci(GuastoCsv guasto, std::size_t riga);

    LetturaCsv leggi_;
    char separatore_;
    std::function<bool()> primaDiLeggere_;
    std::array<bool, 256> ferma_{};         // the bytes that stop the scan of an unquoted field
    std::array<bool, 256> fermaQuotato_{};  // and of a quoted one
    std::string dati_;  // bytes read and not yet consumed from pos_
    std::size_t pos_ = 0;
    std::string record_;                // the unquoted data of the fields of the record
    std::vector<std::size_t> confini_;  // where each field of record_ ends
    std::string grezzo_;                // the record as written, when it spans reads
    std::string_view grezzoVista_;      // the record as written
    std::size_t inizioGrezzo_ = 0;      // where its unsaved part starts in dati_
    bool fedele_ = true;
    std::size_t riga_ = 0;              // line of the last record
    std::size_t rigaCorrente_ = 1;      // line the reader is on
    std::string_view fineRiga_;
    std::uint64_t byteLetti_ = 0;
    bool avviato_ = false;
    bool finito_ = false;  // no more bytes to read
    bool bom_ = false;
    GuastoCsv guasto_ = GuastoCsv::Nessuno;
    int errore_ = 0;
};

// The 0-based index of the column that testo names in the header: a header name written
// exactly, else a 1-based number, else a header name ignoring ASCII case; npos for none.
std::size_t RisolviColonnaCsv(const std::vector<std::string_view>& intestazione, std::string_view testo);

// Appends a field, quoted when it holds the delimiter, a quote, CR or LF (quotes doubled).
bool CampoCsvDaQuotare(std::string_view campo, char separatore);
void AccodaCampoCsv(std::string& uscita, std::string_view campo, char separatore);

}  // namespace krt
