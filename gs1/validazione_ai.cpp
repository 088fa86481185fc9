#include "gs1/validazione_ai.h"

#include <cstddef>

#include "gs1/catalogo_ai.h"

namespace krt {

namespace {

struct Messaggio {
    int id;
    std::string_view testo;
};

constexpr Messaggio MessaggiInglesi[] = {
    {MessaggioTitoloErrore, "Error"},
    {MessaggioValoreNonAmmesso, "The value introduced is not allowed"},
    {MessaggioImpossibileAnnullare, "Unable to undo."},
    {MessaggioCodiceVuoto, "The code is empty!"},
    {MessaggioLunghezzaErrata, "Wrong length!"},
    {MessaggioNonIntero, "The value should be integer."},
    {MessaggioPrime14NonCifre, "The first 14 characters must be digits."},
    {MessaggioPrime3NonCifre, "The first 3 characters must be digits."},
    {MessaggioNonNumero, "The value must be an integer or a float."},
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// True when the text is a number of the grammar described in the header.
bool LeggiNumero(std::string_view testo, bool puntoAmmesso) {
    const auto corpo = TagliaSpazi(testo);
    bool cifra = false;
    bool punto = false;
    for (char c : corpo) {
        if (IsDigit(c)) {
            cifra = true;
        } else if (c == '.' && puntoAmmesso && !punto) {
            punto = true;
        } else {
            return false;
        }
    }
    return cifra;
}

EsitoValoreAI Rifiuta(int id) { return {false, id, {}}; }
EsitoValoreAI Accetta(std::string_view valore) { return {true, 0, std::string(valore)}; }

EsitoValoreAI ValidaDecimale(std::string_view valore, int n) {
    if (!ValidaNumeroDecimale(valore)) return Rifiuta(MessaggioNonNumero);
    const auto testo = TagliaSpazi(valore);
    const auto punto = testo.find('.');
    if (punto == std::string::npos) {
        if (static_cast<std::size_t>(n) < testo.size()) return Rifiuta(MessaggioLunghezzaErrata);
        return Accetta(valore);
    }
    const auto decimali = testo.size() - punto - 1;
    if (decimali > 9) return Rifiuta(MessaggioLunghezzaErrata);
    if (decimali == 0) return Accetta(valore);
    const auto cifre = CTrimL(StrTran(testo, ".", ""), '0');
    if (static_cast<std::size_t>(n) < cifre.size()) return Rifiuta(MessaggioLunghezzaErrata);
    return Accetta(valore);
}

EsitoValoreAI ValidaConCheck(std::string_view valore) {
    const auto testo = TagliaSpazi(valore);
    if (testo.size() == 17) {
        if (!ValidaNumeroIntero(testo)) return Rifiuta(MessaggioNonIntero);
        // The check digit is computed on the value as typed, blanks included.
        return Accetta(testo + CalcolaCheckGS1(valore));
    }
    if (testo.size() == 18) {
        if (!ValidaNumeroIntero(valore)) return Rifiuta(MessaggioNonIntero);
        if (CalcolaCheckGS1(valore.substr(0, 17)) != valore.substr(valore.size() - 1))
            return Rifiuta(MessaggioValoreNonAmmesso);
        return Accetta(valore);
    }
    return Rifiuta(MessaggioLunghezzaErrata);
}

}  // namespace

std::string_view TestoMessaggioInglese(int id) {
    for (const auto& messaggio : MessaggiInglesi) {
        if (messaggio.id == id) return messaggio.testo;
    }
    return {};
}

EsitoValoreAI ValidaValoreAI(std::string_view valore, std::string_view formato) {
    if (TagliaSpazi(valore).empty()) return Rifiuta(MessaggioCodiceVuoto);
    const auto regola = RegolaDelFormato(formato);
    const auto n = static_cast<std::size_t>(regola.n);
    switch (regola.tipo) {
    case TipoFormato::Alfanumerico:
    case TipoFormato::Sconosciuto:
        return Accetta(valore);
    case TipoFormato::NumericoConCheck:
        return ValidaConCheck(valore);
    case TipoFormato::Numerico:
        if (!ValidaNumeroIntero(valore)) return Rifiuta(MessaggioNonIntero);
        if (TagliaSpazi(valore).size() != n) return Rifiuta(MessaggioLunghezzaErrata);
        return Accetta(valore);
    case TipoFormato::NumericoVariabile:
    case TipoFormato::NumericoLungo:
        if (!ValidaNumeroIntero(valore)) return Rifiuta(MessaggioNonIntero);
        return Accetta(valore);
    case TipoFormato::NumericoPiuTesto:
        if (!ValidaNumeroIntero(valore.substr(0, n)))
            return Rifiuta(n == 14 ? MessaggioPrime14NonCifre : MessaggioPrime3NonCifre);
        if (TagliaSpazi(valore).size() < n) return Rifiuta(MessaggioLunghezzaErrata);
        return Accetta(valore);
    case TipoFormato::Decimale:
        return ValidaDecimale(valore, regola.n);
    }
    return Accetta(valore);
}

bool ValidaNumeroIntero(std::string_view testo) {
    return testo.find('.') == std::string_view::npos && LeggiNumero(testo, false);
}

bool ValidaNumeroDecimale(std::string_view testo) { return LeggiNumero(testo, true); }

std::string CTrimL(std::string_view testo, char ch) {
    const auto inizio = testo.find_first_not_of(ch);
    if (inizio == std::string_view::npos) return {};
    return std::string(testo.substr(inizio));
}

std::string CTrimR(std::string_view testo, char ch) {
    const auto fine = testo.find_last_not_of(ch);
    if (fine == std::string_view::npos) return {};
    return std::string(testo.substr(0, fine + 1));
}

std::string StrTran(std::string_view testo, std::string_view trova, std::string_view sostituto) {
    if (trova.empty()) return std::string(testo);
    std::string risultato;
    std::size_t da = 0;
    for (auto trovato = testo.find(trova); trovato != std::string_view::npos;
         trovato = testo.find(trova, da)) {
        risultato.append(testo.substr(da, trovato - da));
        risultato.append(sostituto);
        da = trovato + trova.size();
    }
    risultato.append(testo.substr(da));
    return risultato;
}

std::string TagliaSpazi(std::string_view testo) { return CTrimR(CTrimL(testo, ' '), ' '); }

std::string CalcolaCheckGS1(std::string_view cifre) {
    int dispari = 0;
    int pari = 0;
    for (std::size_t i = 0; i < cifre.size(); ++i) {
        const int valore = IsDigit(cifre[i]) ? cifre[i] - '0' : 0;
        // i is 0-based: even i is an odd position.
        (i % 2 == 0 ? dispari : pari) += valore;
    }
    const int totale = cifre.size() == 12 ? 3 * pari + dispari : 3 * dispari + pari;
    const int resto = totale % 10;
    return std::string(1, static_cast<char>('0' + (resto == 0 ? 0 : 10 - resto)));
}

}  // namespace krt
