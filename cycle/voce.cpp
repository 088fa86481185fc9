// Entry-level logic of the generate cycle (see voce.h).
#include "cycle/voce.h"

#include <array>
#include <cstddef>
#include <utility>

#include "barcodes/codifica.h"
#include "barcodes/controllo.h"
#include "barcodes/validazione.h"

namespace krt {

namespace {

// The order in which the window compares the combo text with the display names.
constexpr std::array<std::int16_t, 36> OrdineRicerca{
    400, 401, 402, 403, 404,                                // Code 39 ... Interleaved 2 of 5
    426, 427, 428, 429, 430, 431, 432, 433,                 // Code 11 ... Postnet
    405, 406, 407, 408, 409, 410, 411,                      // Industrial 2 of 5 ... Codabar
    412, 413, 414, 415,                                     // EAN 8 ... EAN 13
    434, 435,                                               // ISBN-10, ISBN-13
    416, 417, 418, 419, 420, 421, 422, 423, 424, 425};      // EAN 13 Add-on 2 ... EAN 128

constexpr int OffsetItaliano = 1000;

// How the computed HRC is framed.
enum class Cornice {
    Nessuna,           // the content as it is
    Asterischi,        // "*" + content with "_" as space + "*"
    AsterischiConCheck // the replacement always, the asterisks only with the check included
};

constexpr bool Calcolato(RegolaHRC r) {
    return r == RegolaHRC::Calcolata || r == RegolaHRC::Asterischi || r == RegolaHRC::AsterischiConCheck ||
           r == RegolaHRC::Minuscola;
}

constexpr Cornice CorniceDi(RegolaHRC r) {
    switch (r) {
        case RegolaHRC::Asterischi: return Cornice::Asterischi;
        case RegolaHRC::AsterischiConCheck: return Cornice::AsterischiConCheck;
        default: return Cornice::Nessuna;
    }
}

const DescrittoreSimbologia& DescrittoreDi(const VoceCatalogo& voce) { return Descrittore(voce.simbologia); }

bool UgualiSenzaMaiuscole(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (InMaiuscolo(a[i]) != InMaiuscolo(b[i])) return false;
    return true;
}

std::string InMaiuscole(std::string_view testo) {
    std::string risultato(testo);
    for (char& c : risultato) c = InMaiuscolo(c);
    return risultato;
}

bool EIsbn(const VoceCatalogo& voce) {
    return voce.simbologia == TipoSimbologia::Isbn10 || voce.simbologia == TipoSimbologia::Isbn13;
}

}  // namespace

const VoceCatalogo* VocePerId(int id) {
    for (const auto& voce : Catalogo)
        if (voce.id == id) return &voce;
    return nullptr;
}

const VoceCatalogo* TrovaVoce(std::string_view testo, int offsetLingua) {
    for (const std::int16_t id : OrdineRicerca) {
        const VoceCatalogo* voce = VocePerId(id);
        if (voce == nullptr) continue;
        const std::string_view nome = offsetLingua == OffsetItaliano ? voce->italiano : voce->inglese;
        if (nome == testo) return voce;
    }
    return nullptr;
}

const VoceCatalogo* TrovaVocePerNome(std::string_view nome) {
    for (const auto& voce : Catalogo)
        if (UgualiSenzaMaiuscole(voce.inglese, nome) || UgualiSenzaMaiuscole(voce.italiano, nome)) return &voce;
    return nullptr;
}

const VoceCatalogo* TrovaVocePerCodice(std::string_view codice) {
    const DescrittoreSimbologia* d = DescrittorePerCodice(InMaiuscole(codice));
    if (d == nullptr) return nullptr;
    // The codes no entry carries: Code 32 with its text line, the add-ons alone.
    TipoSimbologia s = d->simbologia;
    int addOn = 0;
    if (s == TipoSimbologia::Code32Hrc) s = TipoSimbologia::Code32;
    if (s == TipoSimbologia::AddOn2) addOn = 2;
    if (s == TipoSimbologia::AddOn5) addOn = 5;
    for (const auto& voce : Catalogo)
        if (addOn != 0 ? voce.addOn == addOn : voce.simbologia == s) return &voce;
    return nullptr;
}

bool CheckVoce(const VoceCatalogo& voce, bool checkDigit) { return checkDigit || EIsbn(voce); }

std::string CodiceVoce(const VoceCatalogo& voce, bool hrc) {
    if (hrc && voce.simbologia == TipoSimbologia::Code32) return std::string(CodiceDi(TipoSimbologia::Code32Hrc));
    return std::string(voce.codice);
}

std::string_view CodiceAddOn(const VoceCatalogo& voce) {
    switch (voce.addOn) {
        case 2: return CodiceDi(TipoSimbologia::AddOn2);
        case 5: return CodiceDi(TipoSimbologia::AddOn5);
        default: return {};
    }
}

ParteVoce DividiAddOn(const VoceCatalogo& voce, std::string_view contenuto, bool check) {
    if (voce.addOn == 0) return {std::string(contenuto), {}};
    const DescrittoreSimbologia& d = DescrittoreDi(voce);
    const std::size_t n = check ? d.conCheck : d.senzaCheck;
    const std::string_view principale = contenuto.substr(0, n);
    const std::string_view addOn = contenuto.substr(principale.size()).substr(0, static_cast<std::size_t>(voce.addOn));
    return {std::string(principale), std::string(addOn)};
}

Rifiuto VerificaVoce(const VoceCatalogo& voce, std::string_view contenuto, bool checkDigit, ParteVoce& parti) {
    if (contenuto.empty()) return Rifiuto::Di(MotivoRifiuto::Vuoto);
    const bool check = CheckVoce(voce, checkDigit);
    ParteVoce divise = DividiAddOn(voce, contenuto, check);
    const std::size_t primaAddOn = divise.principale.size();
    if (Rifiuto r = VerificaCodice(divise.principale, voce.codice, check)) return r;
    if (voce.addOn != 0) {
        // An add-on left out is all zeros.
        if (divise.addOn.empty()) divise.addOn.assign(static_cast<std::size_t>(voce.addOn), '0');
        if (Rifiuto r = VerificaCodice(divise.addOn, CodiceAddOn(voce), true)) return r.Spostato(primaAddOn);
    }
    parti = std::move(divise);
    return {};
}

bool ValidaVoce(const VoceCatalogo& voce, std::string_view contenuto, bool checkDigit, ParteVoce& parti) {
    return !VerificaVoce(voce, contenuto, checkDigit, parti);
}

std::string CalcolaHRC(const VoceCatalogo& voce, std::string_view contenuto, bool conCheck) {
    const DescrittoreSimbologia& d = DescrittoreDi(voce);
    if (!Calcolato(d.hrc)) return {};

    std::string testo(contenuto);
    bool checkIncluso = false;
    if (conCheck) {
        // A routine that forms no check (a Full ASCII text outside the native alphabet)
        // leaves the content as typed.
        std::string completo = d.check(contenuto);
        if (!completo.empty()) {
            testo = std::move(completo);
            checkIncluso = true;
        }
    }
    const Cornice cornice = CorniceDi(d.hrc);
    if (cornice == Cornice::Nessuna) return testo;

    for (char& c : testo)
        if (c == '_') c = ' ';
    if (cornice == Cornice::AsterischiConCheck && !checkIncluso) return testo;
    return "*" + testo + "*";
}

std::string TestoHRCVoce(const VoceCatalogo& voce, std::string_view contenuto, const OpzioniVoce& opzioni) {
    const RegolaHRC regola = DescrittoreDi(voce).hrc;
    if (regola == RegolaHRC::Contenuto) return std::string(contenuto);
    if (regola == RegolaHRC::TestoWizard) return std::string(opzioni.testoHRC.empty() ? contenuto : opzioni.testoHRC);
    std::string testo = CalcolaHRC(voce, contenuto, opzioni.checkDigitInHRC && opzioni.checkDigit);
    if (regola == RegolaHRC::Minuscola)
        for (char& c : testo) c = InMinuscolo(c);
    return testo;
}

GenerazioneVoce GeneraVoce(const VoceCatalogo& voce, std::string_view contenuto, const OpzioniVoce& opzioni) {
    GenerazioneVoce esito;
    ParteVoce parti;
    esito.rifiuto = VerificaVoce(voce, contenuto, opzioni.checkDigit, parti);
    if (esito.rifiuto) return esito;
    const bool check = CheckVoce(voce, opzioni.checkDigit);
    const std::string codice = CodiceVoce(voce, opzioni.hrc);
    // The engine works on copies: the parts stay as validation left them, for the HRC.
    std::string principale = parti.principale, glifi;
    esito.rifiuto = CodificaBarcode(principale, codice, check, glifi);
    if (!esito.rifiuto && voce.addOn != 0) {
        std::string addOn = parti.addOn, glifiAddOn;
        esito.rifiuto = CodificaBarcode(addOn, CodiceAddOn(voce), true, glifiAddOn).Spostato(parti.principale.size());
        glifi += glifiAddOn;
    }
    if (esito.rifiuto) return esito;
    esito.accettato = true;
    esito.check = check;
    esito.codice = codice;
    esito.parti = std::move(parti);
    esito.glifi = std::move(glifi);
    esito.famiglia = ScegliFontFamiglia(voce.famiglia, opzioni.stile);
    esito.hrc = TestoHRCVoce(voce, esito.parti.principale, opzioni);
    return esito;
}

}  // namespace krt
