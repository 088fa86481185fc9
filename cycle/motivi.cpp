// Refusal texts (see motivi.h). The sentences live in the string table, beside the
// window's other texts, so that both languages are translated in one place.
#include "cycle/motivi.h"

#include <algorithm>

#include "barcodes/errori.h"
#include "barcodes/simbologie.h"
#include "resources/tabella_stringhe.h"
#include "text/codifica_testo.h"
#include "text/formatta.h"

namespace krt {

namespace {

namespace Id {
constexpr int Escape = 294;
constexpr int CheckSum = 295;
constexpr int Intervallo = 296;
constexpr int Vuoto = 301;
constexpr int TroppoLungo = 302;
constexpr int TroppoCorto = 303;
constexpr int Carattere = 304;
constexpr int InizioFineCodabar = 305;
constexpr int SistemaUPCE = 306;
constexpr int SenzaCheckCIP = 307;
constexpr int SenzaCodice1252 = 308;
constexpr int CsvVirgoletteAperte = 702;
constexpr int CampiInEccesso = 706;
constexpr int CampoMancante = 707;
}  // namespace Id

// %1, %2 ... replaced by the arguments.
std::string Componi(std::string_view modello, std::initializer_list<std::string_view> argomenti) {
    std::string testo;
    for (std::size_t i = 0; i < modello.size(); ++i) {
        const std::size_t k = i + 1 < modello.size() ? static_cast<std::size_t>(modello[i + 1] - '1') : argomenti.size();
        if (modello[i] == '%' && k < argomenti.size()) {
            testo += argomenti.begin()[k];
            ++i;
        } else {
            testo += modello[i];
        }
    }
    return testo;
}

// A character the user can read in quotes; a control or unassigned byte as its escape.
std::string MostraCarattere(char c) {
    const auto b = static_cast<unsigned char>(c);
    const bool leggibile = (b >= 32 && b < 127) || b >= 0xA1;
    if (!leggibile) return FormattaEscape(std::string_view(&c, 1));
    std::string testo = "\"";
    AccodaCp1252InUtf8(testo, std::string_view(&c, 1));
    return testo + "\"";
}

}  // namespace

std::string_view TestoStringa(int id, int offsetLingua) {
    const auto tabella = TabellaStringhe();
    const int cercato = id + offsetLingua;
    const auto it = std::lower_bound(tabella.begin(), tabella.end(), cercato,
                                     [](const VoceTabellaStringhe& v, int k) { return v.id < k; });
    return it != tabella.end() && it->id == cercato ? it->testo : std::string_view{};
}

std::string TestoRifiuto(const Rifiuto& r, std::string_view codice, int offsetLingua) {
    const auto testo = [&](int id) { return std::string(TestoStringa(id, offsetLingua)); };
    switch (r.motivo) {
        case MotivoRifiuto::Nessuno: return {};
        case MotivoRifiuto::Vuoto: return testo(Id::Vuoto);
        case MotivoRifiuto::Lunghezza:
            if (r.massimo == 0) return Componi(testo(Id::TroppoCorto), {std::to_string(r.minimo)});
            return Componi(testo(Id::TroppoLungo), {std::to_string(r.massimo)});
        case MotivoRifiuto::Carattere:
            if (r.carattere == 0) return Componi(testo(Id::SenzaCodice1252), {std::to_string(r.posizione)});
            return Componi(testo(Id::Carattere), {MostraCarattere(r.carattere), std::to_string(r.posizione)});
        case MotivoRifiuto::Struttura:
            return testo(codice == CodiceDi(TipoSimbologia::UpcE) ? Id::SistemaUPCE : Id::InizioFineCodabar);
        case MotivoRifiuto::Intervallo:
            return testo(codice == CodiceDi(TipoSimbologia::Cip) ? Id::SenzaCheckCIP : Id::Intervallo);
        case MotivoRifiuto::Escape: return testo(Id::Escape);
        case MotivoRifiuto::Overflow: return testo(Id::CheckSum);
    }
    return {};
}

Rifiuto RifiutoDaGuasto(const std::exception& guasto) {
    if (dynamic_cast<const EscapeNonValido*>(&guasto)) return Rifiuto::Di(MotivoRifiuto::Escape);
    if (dynamic_cast<const OverflowCheckSum*>(&guasto)) return Rifiuto::Di(MotivoRifiuto::Overflow);
    if (dynamic_cast<const IntervalloNonValido*>(&guasto)) return Rifiuto::Di(MotivoRifiuto::Intervallo);
    return {};
}

std::string_view NomeMotivo(MotivoRifiuto motivo) {
    switch (motivo) {
        case MotivoRifiuto::Nessuno: return {};
        case MotivoRifiuto::Vuoto: return "empty";
        case MotivoRifiuto::Lunghezza: return "length";
        case MotivoRifiuto::Carattere: return "character";
        case MotivoRifiuto::Struttura: return "structure";
        case MotivoRifiuto::Intervallo: return "range";
        case MotivoRifiuto::Escape: return "escape";
        case MotivoRifiuto::Overflow: return "overflow";
    }
    return {};
}

std::string TestoGuastoCsv(GuastoCsv guasto, int offsetLingua) {
    if (guasto == GuastoCsv::Nessuno) return {};
    return std::string(TestoStringa(Id::CsvVirgoletteAperte + static_cast<int>(guasto) - 1, offsetLingua));
}

std::string TestoCampiInEccesso(std::size_t campi, std::size_t intestazione, int offsetLingua) {
    return Componi(TestoStringa(Id::CampiInEccesso, offsetLingua),
                   {std::to_string(campi), std::to_string(intestazione)});
}

std::string TestoCampoMancante(std::size_t colonna, int offsetLingua) {
    return Componi(TestoStringa(Id::CampoMancante, offsetLingua), {std::to_string(colonna)});
}

}  // namespace krt
