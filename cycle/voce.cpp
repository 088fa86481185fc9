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

// Length of the main part of an add-on entry, with and without the check flag.
struct LunghezzaPrincipale {
    std::string_view codice;
    std::size_t conCheck;
    std::size_t senzaCheck;
};
constexpr std::array<LunghezzaPrincipale, 4> LunghezzePrincipali{{
    {"EAN8", 7, 8},
    {"UPCE", 7, 8},
    {"EAN13", 12, 13},
    {"UPCA", 11, 12},
}};

// How the computed HRC is framed.
enum class Cornice {
    Nessuna,           // the content as it is
    Asterischi,        // "*" + content with "_" as space + "*"
    AsterischiConCheck // the replacement always, the asterisks only with the check included
};

using RoutineCheck = std::string (*)(std::string_view);

struct RegolaHRC {
    std::uint64_t chiave;  // ChiaveCodice of the symbology code
    RoutineCheck check;
    Cornice cornice;
    bool minuscolo;  // the preview shows the text in lower case

    constexpr RegolaHRC(std::string_view codice, RoutineCheck routine, Cornice c, bool minuscole)
        : chiave(ChiaveCodice(codice)), check(routine), cornice(c), minuscolo(minuscole) {}
};

std::string CheckMSI2(std::string_view s) { return CalcolaCheckMSI(s, 2); }
std::string Check11(std::string_view s) {
    std::string copia(s);
    return CalcolaCheck11(copia);
}

// The entries whose HRC text is computed from their content, by symbology code.
constexpr TabellaCodici RegoleHRC(std::array<RegolaHRC, 19>{{
    {"C39", CalcolaCheck39, Cornice::Asterischi, false},
    {"C39FULL", CalcolaCheck39, Cornice::Asterischi, false},
    {"C93", CalcolaCheck93, Cornice::AsterischiConCheck, false},
    {"C93FULL", CalcolaCheck93, Cornice::AsterischiConCheck, false},
    {"C25", CalcolaCheck25, Cornice::Nessuna, false},
    {"ITF", CalcolaCheck25, Cornice::Nessuna, false},
    {"CIND25", CalcolaCheckMod10, Cornice::Nessuna, false},
    {"C5BARS", CalcolaCheckMod10, Cornice::Nessuna, false},
    {"C3BARS", CalcolaCheckMod10, Cornice::Nessuna, false},
    {"CBCD", CalcolaCheckMod10, Cornice::Nessuna, false},
    {"C25INV", CalcolaCheckMod10, Cornice::Nessuna, false},
    {"C25COMP", CalcolaCheckMod10, Cornice::Nessuna, false},
    {"CMSI", CheckMSI2, Cornice::Nessuna, false},
    {"C11", Check11, Cornice::Nessuna, false},
    {"CIP", CalcolaCheckCIP, Cornice::Nessuna, false},
    {"PLESSEY", CalcolaCheckPlessey, Cornice::Nessuna, false},
    {"DELTA", CalcolaCheckDelta, Cornice::Nessuna, false},
    {"POSTNET", CalcolaCheckPostnet, Cornice::Nessuna, false},
    {"CBAR", CalcolaCheckCodabar, Cornice::Nessuna, true},
}});

const RegolaHRC* TrovaRegolaHRC(std::string_view codice) { return RegoleHRC.Trova(ChiaveCodice(codice)); }

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

bool EIsbn(const VoceCatalogo& voce) { return voce.codice == "ISBN" || voce.codice == "ISBN13"; }

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
    std::string chiave = InMaiuscole(codice);
    int addOn = 0;
    if (chiave == "C32HRC") chiave = "C32";
    if (chiave == "ADD2") addOn = 2;
    if (chiave == "ADD5") addOn = 5;
    for (const auto& voce : Catalogo) {
        if (addOn != 0 ? voce.addOn == addOn : (!voce.codice.empty() && voce.codice == chiave)) return &voce;
    }
    return nullptr;
}

bool CheckVoce(const VoceCatalogo& voce, bool checkDigit) { return checkDigit || EIsbn(voce); }

std::string CodiceVoce(const VoceCatalogo& voce, bool hrc) {
    if (hrc && voce.codice == "C32") return "C32HRC";
    return std::string(voce.codice);
}

std::string_view CodiceAddOn(const VoceCatalogo& voce) {
    switch (voce.addOn) {
        case 2: return "ADD2";
        case 5: return "ADD5";
        default: return {};
    }
}

ParteVoce DividiAddOn(const VoceCatalogo& voce, std::string_view contenuto, bool check) {
    if (voce.addOn == 0) return {std::string(contenuto), {}};
    std::size_t n = contenuto.size();
    for (const auto& l : LunghezzePrincipali)
        if (l.codice == voce.codice) n = check ? l.conCheck : l.senzaCheck;
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
    const RegolaHRC* regola = TrovaRegolaHRC(voce.codice);
    if (regola == nullptr) return {};

    std::string testo(contenuto);
    bool checkIncluso = false;
    if (conCheck) {
        // A routine that forms no check (a Full ASCII text outside the native alphabet)
        // leaves the content as typed.
        std::string completo = regola->check(contenuto);
        if (!completo.empty()) {
            testo = std::move(completo);
            checkIncluso = true;
        }
    }
    if (regola->cornice == Cornice::Nessuna) return testo;

    for (char& c : testo)
        if (c == '_') c = ' ';
    if (regola->cornice == Cornice::AsterischiConCheck && !checkIncluso) return testo;
    return "*" + testo + "*";
}

std::string TestoHRCVoce(const VoceCatalogo& voce, std::string_view contenuto, const OpzioniVoce& opzioni) {
    if (voce.codice == "C128") return std::string(contenuto);
    if (voce.codice == "E128") return std::string(opzioni.testoHRC.empty() ? contenuto : opzioni.testoHRC);
    const RegolaHRC* regola = TrovaRegolaHRC(voce.codice);
    if (regola == nullptr) return {};
    std::string testo = CalcolaHRC(voce, contenuto, opzioni.checkDigitInHRC && opzioni.checkDigit);
    if (regola->minuscolo)
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
