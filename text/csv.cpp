// CSV without Qt (see csv.h).
#include "text/csv.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace krt {

namespace {

constexpr std::size_t Blocco = std::size_t{1} << 16;
constexpr std::string_view Bom = "\xEF\xBB\xBF";

// Quotes as the record reader takes them: a quote opens a quoted field only at the start of a
// field (elsewhere it is text), and a doubled quote inside one is text. Fuori tells whether a
// byte lies outside a quoted field. Without a delimiter yet, each candidate ends a field.
class QuoteCsv {
public:
    explicit QuoteCsv(char separatore) : separatore_(separatore) {}
    bool Fuori(char c) {
        if (c == '"' && (stato_ == Stato::Inizio || stato_ == Stato::DopoQuota)) {
            stato_ = Stato::Quotato;
            return false;
        }
        if (stato_ == Stato::Quotato) {
            if (c == '"') stato_ = Stato::DopoQuota;
            return false;
        }
        const bool fine = separatore_ != '\0' ? c == separatore_ : c == ',' || c == ';' || c == '\t';
        stato_ = fine ? Stato::Inizio : Stato::Libero;
        return true;
    }

private:
    enum class Stato { Inizio, Libero, Quotato, DopoQuota } stato_ = Stato::Inizio;
    char separatore_;
};

}  // namespace

char RilevaSeparatore(std::string_view riga) {
    std::size_t virgole = 0, puntiEVirgola = 0, tab = 0;
    QuoteCsv quote('\0');
    for (const char c : riga) {
        if (!quote.Fuori(c)) continue;
        if (c == ',') ++virgole;
        else if (c == ';') ++puntiEVirgola;
        else if (c == '\t') ++tab;
    }
    if (tab > virgole && tab > puntiEVirgola) return '\t';
    if (puntiEVirgola > virgole) return ';';
    return ',';
}

LettoreCsv::LettoreCsv(LetturaCsv leggi, char separatore, std::function<bool()> primaDiLeggere)
    : leggi_(std::move(leggi)), separatore_(separatore), primaDiLeggere_(std::move(primaDiLeggere)) {}

bool LettoreCsv::Riempi() {
    dati_.clear();
    pos_ = 0;
    if (finito_ || (primaDiLeggere_ && !primaDiLeggere_())) {
        finito_ = true;
        return false;
    }
    dati_.resize(Blocco);
    errno = 0;
    const std::ptrdiff_t n = leggi_(dati_.data(), dati_.size());
    if (n > 0) {
        dati_.resize(std::min(static_cast<std::size_t>(n), Blocco));
        byteLetti_ += dati_.size();
        return true;
    }
    dati_.clear();
    finito_ = true;
    if (n < 0) errore_ = errno != 0 ? errno : EIO;
    return false;
}

// Gathers the first line (up to a line end outside quotes, the end of the input or the
// record bound) to skip the byte-order mark and to detect the delimiter from it.
bool LettoreCsv::Avvia() {
    avviato_ = true;
    std::string primo;
    QuoteCsv quote(separatore_);
    std::size_t fineRiga = std::string::npos;
    while (fineRiga == std::string::npos && primo.size() <= LunghezzaMassimaRecordCsv && Riempi()) {
        const std::size_t da = primo.size();
        primo += dati_;
        for (std::size_t i = da; i < primo.size(); ++i) {
            if (i < Bom.size() && std::string_view(primo).substr(0, i + 1) == Bom.substr(0, i + 1)) continue;
            if (quote.Fuori(primo[i]) && (primo[i] == '\n' || primo[i] == '\r')) {
                fineRiga = i;
                break;
            }
        }
    }
    if (errore_ != 0) return false;
    std::size_t inizio = 0;
    if (std::string_view(primo).substr(0, Bom.size()) == Bom) {
        bom_ = true;
        inizio = Bom.size();
    }
    if (separatore_ == '\0') {
        const std::size_t fine = fineRiga == std::string::npos ? primo.size() : fineRiga;
        separatore_ = RilevaSeparatore(std::string_view(primo).substr(inizio, fine - inizio));
    }
    dati_ = std::move(primo);
    pos_ = inizio;
    ferma_.fill(false);
    for (const char c : {separatore_, '\r', '\n', '"'}) ferma_[static_cast<unsigned char>(c)] = true;
    for (const char c : {'\r', '\n', '"'}) fermaQuotato_[static_cast<unsigned char>(c)] = true;
    return true;
}

bool LettoreCsv::Fallisci(GuastoCsv guasto, std::size_t riga) {
    guasto_ = guasto;
    riga_ = riga;
    return false;
}

bool LettoreCsv::Prossimo(std::vector<std::string_view>& campi) {
    campi.clear();
    if (!avviato_ && !Avvia()) return false;
    if (guasto_ != GuastoCsv::Nessuno || errore_ != 0) return false;
    if (pos_ == dati_.size() && !Riempi()) return false;

    record_.clear();
    confini_.clear();
    grezzo_.clear();
    inizioGrezzo_ = pos_;
    fedele_ = true;
    riga_ = rigaCorrente_;
    enum class Stato { Inizio, Libero, Quotato, DopoQuota } stato = Stato::Inizio;
    std::size_t rigaQuota = 0;
    bool ultimoCR = false;  // inside a quoted field: the byte before was a CR
    char fine = '\0';       // the line end that closed the record, '\0' at the end of the input
    const char sep = separatore_;
    for (;;) {
        if (record_.size() > LunghezzaMassimaRecordCsv) return Fallisci(GuastoCsv::RecordTroppoLungo, riga_);
        if (pos_ == dati_.size()) {
            grezzo_.append(dati_, inizioGrezzo_);
            inizioGrezzo_ = 0;
            if (!Riempi()) {
                if (errore_ != 0) return false;
                if (stato == Stato::Quotato) return Fallisci(GuastoCsv::VirgoletteAperte, rigaQuota);
                break;
            }
        }
        const char* p = dati_.data() + pos_;
        const char* const limite = dati_.data() + dati_.size();
        if (stato == Stato::Inizio) {
            if (*p == '"') {
                stato = Stato::Quotato;
                rigaQuota = rigaCorrente_;
                ultimoCR = false;
                ++pos_;
                continue;
            }
            stato = Stato::Libero;
        }
        if (stato == Stato::Libero) {
            const char* q = p;
            while (q < limite && !ferma_[static_cast<unsigned char>(*q)]) ++q;
            record_.append(p, static_cast<std::size_t>(q - p));
            pos_ += static_cast<std::size_t>(q - p);
            if (q == limite) continue;
            ++pos_;
            if (*q == '"') {
                // A quote inside an unquoted field: data, but not as RFC 4180 writes it.
                record_ += '"';
                fedele_ = false;
                continue;
            }
            if (*q != sep) {
                fine = *q;
                break;
            }
            confini_.push_back(record_.size());
            stato = Stato::Inizio;
        } else if (stato == Stato::Quotato) {
            const char* q = p;
            while (q < limite && !fermaQuotato_[static_cast<unsigned char>(*q)]) ++q;
            if (q != p) ultimoCR = false;
            record_.append(p, static_cast<std::size_t>(q - p));
            pos_ += static_cast<std::size_t>(q - p);
            if (q == limite) continue;
            ++pos_;
            if (*q == '"') {
                stato = Stato::DopoQuota;
                continue;
            }
            // A line break inside the field: data, and a line of the file (CR LF is one).
            if (*q == '\r' || !ultimoCR) ++rigaCorrente_;
            ultimoCR = *q == '\r';
            record_ += *q;
        } else {  // DopoQuota: a doubled quote, the end of the field, or a fault
            ++pos_;
            if (*p == '"') {
                record_ += '"';
                ultimoCR = false;
                stato = Stato::Quotato;
            } else if (*p == sep) {
                confini_.push_back(record_.size());
                stato = Stato::Inizio;
            } else if (*p == '\r' || *p == '\n') {
                fine = *p;
                break;
            } else {
                return Fallisci(GuastoCsv::DopoVirgolette, rigaCorrente_);
            }
        }
    }
    confini_.push_back(record_.size());
    // The record as written, without its line end: where it lies when one read holds it
    // whole, else gathered; copied out before a read replaces the data.
    const std::string_view resto(dati_.data() + inizioGrezzo_, pos_ - (fine != '\0' ? 1 : 0) - inizioGrezzo_);
    if (grezzo_.empty()) {
        grezzoVista_ = resto;
    } else {
        grezzo_ += resto;
        grezzoVista_ = grezzo_;
    }
    if (fine != '\0') {
        ++rigaCorrente_;
        std::string_view questa = "\n";
        if (fine == '\r') {
            questa = "\r";
            // CR LF is one line end; the LF may come with the next read.
            if (pos_ == dati_.size() && grezzoVista_.data() != grezzo_.data()) {
                grezzo_ = grezzoVista_;
                grezzoVista_ = grezzo_;
            }
            if (pos_ < dati_.size() || Riempi()) {
                if (dati_[pos_] == '\n') {
                    ++pos_;
                    questa = "\r\n";
                }
            }
        }
        if (fineRiga_.empty()) fineRiga_ = questa;
    }

    std::size_t da = 0;
    for (const std::size_t a : confini_) {
        campi.emplace_back(record_.data() + da, a - da);
        da = a;
    }
    return true;
}

std::size_t RisolviColonnaCsv(const std::vector<std::string_view>& intestazione, std::string_view testo) {
    for (std::size_t i = 0; i < intestazione.size(); ++i)
        if (intestazione[i] == testo) return i;
    std::size_t numero = 0;
    bool cifre = !testo.empty() && testo.size() < 10;
    for (const char c : testo) {
        cifre = cifre && c >= '0' && c <= '9';
        numero = numero * 10 + static_cast<std::size_t>(c - '0');
    }
    if (cifre && numero >= 1 && numero <= intestazione.size()) return numero - 1;
    auto minuscola = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    for (std::size_t i = 0; i < intestazione.size(); ++i) {
        if (intestazione[i].size() == testo.size() &&
            std::equal(testo.begin(), testo.end(), intestazione[i].begin(),
                       [&](char a, char b) { return minuscola(a) == minuscola(b); }))
            return i;
    }
    return std::string_view::npos;
}

bool CampoCsvDaQuotare(std::string_view campo, char separatore) {
    // The bytes that need quoting are mostly below '<' (',' ';' TAB '"' CR LF): one compare
    // for most bytes.
    const unsigned char soglia = std::max<unsigned char>('<', static_cast<unsigned char>(separatore) + 1);
    for (const char c : campo) {
        if (static_cast<unsigned char>(c) < soglia && (c == separatore || c == '"' || c == '\r' || c == '\n'))
            return true;
    }
    return false;
}

void AccodaCampoCsv(std::string& uscita, std::string_view campo, char separatore) {
    const bool quota = CampoCsvDaQuotare(campo, separatore);
    if (!quota) {
        uscita += campo;
        return;
    }
    uscita += '"';
    for (std::size_t q; (q = campo.find('"')) != std::string_view::npos;) {
        uscita.append(campo.substr(0, q + 1));
        uscita += '"';
        campo.remove_prefix(q + 1);
    }
    uscita += campo;
    uscita += '"';
}

}  // namespace krt
