// One line of krt-encode (see elaborazione.h).
#include "cli/elaborazione.h"

#include <algorithm>
#include <array>
#include <exception>
#include <iterator>
#include <utility>
#include <vector>

#include "barcodes/catalogo.h"
#include "barcodes/codifica.h"
#include "barcodes/validazione.h"
#include "cycle/motivi.h"
#include "text/codifica_testo.h"

namespace krt {

namespace {

void AccodaNumero(std::string& uscita, unsigned n) {
    char cifre[3];
    int k = 0;
    do {
        cifre[k++] = static_cast<char>('0' + n % 10);
        n /= 10;
    } while (n != 0);
    while (k > 0) uscita += cifre[--k];
}

void AccodaCodici(std::string& uscita, std::string_view glifi) {
    for (std::size_t i = 0; i < glifi.size(); ++i) {
        if (i != 0) uscita += ' ';
        AccodaNumero(uscita, static_cast<unsigned char>(glifi[i]));
    }
}

void AccodaCp1252Json(std::string& uscita, std::string_view byte) {
    std::string utf8;
    AccodaCp1252InUtf8(utf8, byte);
    AccodaStringaJson(uscita, utf8);
}

}  // namespace

void AccodaGlifiTesto(std::string& uscita, std::string_view glifi, bool utf8) {
    auto accoda = [&](std::string_view parte) {
        if (utf8)
            AccodaCp1252InUtf8(uscita, parte);
        else
            uscita += parte;
    };
    for (std::size_t a_capo; (a_capo = glifi.find("\r\n")) != std::string_view::npos;) {
        accoda(glifi.substr(0, a_capo));
        uscita += '\t';
        glifi.remove_prefix(a_capo + 2);
    }
    accoda(glifi);
}

bool RisolviSimbologia(std::string_view testo, std::string_view stile, Simbologia& simbologia) {
    simbologia = {};
    const VoceCatalogo* esatta = TrovaVoce(testo, 0);
    if (esatta == nullptr) esatta = TrovaVoce(testo, 1000);
    if (esatta != nullptr) {
        simbologia.voce = esatta;
        simbologia.perNome = true;
        simbologia.codice = esatta->codice;
    } else if (const VoceCatalogo* voce = TrovaVocePerCodice(testo)) {
        simbologia.voce = voce;
        for (const char c : testo) simbologia.codice += InMaiuscolo(c);
    } else if (const VoceCatalogo* perNome = TrovaVocePerNome(testo)) {
        simbologia.voce = perNome;
        simbologia.perNome = true;
        simbologia.codice = perNome->codice;
    } else {
        return false;
    }
    simbologia.famiglia = ScegliFontFamiglia(simbologia.voce->famiglia, stile);
    return true;
}

RisultatoRiga CodificaRiga(const Simbologia& simbologia, const OpzioniCli& opzioni, std::string_view riga) {
    RisultatoRiga r;
    CodificaRiga(simbologia, opzioni, riga, r);
    return r;
}

void CodificaRiga(const Simbologia& simbologia, const OpzioniCli& opzioni, std::string_view riga,
                  RisultatoRiga& r) {
    r.contenuto.clear();
    r.codice.clear();
    r.glifi.clear();
    r.hrc.clear();
    r.errore.clear();
    r.rifiuto = {};
    std::string& contenuto = r.testo;
    if (opzioni.ingresso == CodificaIngresso::Cp1252) {
        contenuto.assign(riga);
        if (opzioni.formato == FormatoUscita::Json) AccodaCp1252InUtf8(r.contenuto, riga);
    } else {
        if (opzioni.formato == FormatoUscita::Json) r.contenuto = riga;
        if (!Utf8InCp1252(riga, contenuto, r.errore)) {
            // The characters converted before the one that failed give its position.
            r.rifiuto = Rifiuto::InCarattere(contenuto.size() + 1, 0);
            return;
        }
    }
    if (contenuto.size() > LunghezzaMassimaContenuto) {
        r.rifiuto = Rifiuto::DiLunghezza(1, LunghezzaMassimaContenuto);
        r.errore = TestoRifiuto(r.rifiuto, simbologia.codice);
        return;
    }

    std::string_view codice = simbologia.codice;
    try {
        if (simbologia.perNome) {
            const OpzioniVoce o{opzioni.check, opzioni.hrc, opzioni.checkInHRC, opzioni.stile, {}};
            GenerazioneVoce g = GeneraVoce(*simbologia.voce, contenuto, o);
            r.rifiuto = g.rifiuto;
            codice = simbologia.voce->codice;
            r.codice = std::move(g.codice);
            r.glifi = std::move(g.glifi);
            if (opzioni.hrc) r.hrc = std::move(g.hrc);
        } else {
            r.rifiuto = CodificaBarcode(contenuto, simbologia.codice, opzioni.check, r.glifi);
        }
        if (r.rifiuto) r.errore = TestoRifiuto(r.rifiuto, codice);
    } catch (const std::exception& e) {
        // The engine's faults are refusals with the fault's own words added.
        r.rifiuto = RifiutoDaGuasto(e);
        if (r.rifiuto) {
            r.errore = TestoRifiuto(r.rifiuto, codice);
            if (!r.errore.empty() && r.errore.back() == '.') r.errore.pop_back();
            r.errore += ": ";
            r.errore += e.what();
        } else {
            r.errore = std::string("internal error: ") + e.what();
        }
    }
    if (!r.errore.empty()) {
        r.codice.clear();
        r.glifi.clear();
        r.hrc.clear();
    }
}

void AccodaRisultato(std::string& uscita, const Simbologia& simbologia, const RisultatoRiga& r,
                     FormatoUscita formato) {
    switch (formato) {
        case FormatoUscita::Testo:
            AccodaGlifiTesto(uscita, r.glifi);
            break;
        case FormatoUscita::Codici:
            AccodaCodici(uscita, r.glifi);
            break;
        case FormatoUscita::Json:
            uscita += "{\"content\":";
            AccodaStringaJson(uscita, r.contenuto);
            uscita += ",\"code\":";
            AccodaStringaJson(uscita, r.codice.empty() ? simbologia.codice : r.codice);
            uscita += ",\"family\":";
            AccodaStringaJson(uscita, simbologia.famiglia);
            uscita += ",\"glyphs\":";
            AccodaCp1252Json(uscita, r.glifi);
            uscita += ",\"codes\":[";
            for (std::size_t i = 0; i < r.glifi.size(); ++i) {
                if (i != 0) uscita += ',';
                AccodaNumero(uscita, static_cast<unsigned char>(r.glifi[i]));
            }
            uscita += "],\"hrc\":";
            if (simbologia.perNome)
                AccodaCp1252Json(uscita, r.hrc);
            else
                uscita += "null";
            uscita += ",\"error\":";
            if (r.errore.empty())
                uscita += "null";
            else
                AccodaStringaJson(uscita, r.errore);
            uscita += ",\"reason\":";
            if (!r.rifiuto) {
                uscita += "null";
            } else {
                uscita += "{\"kind\":";
                AccodaStringaJson(uscita, NomeMotivo(r.rifiuto.motivo));
                if (r.rifiuto.motivo == MotivoRifiuto::Carattere) {
                    uscita += ",\"position\":";
                    uscita += std::to_string(r.rifiuto.posizione);
                }
                if (r.idMessaggio != 0) {
                    uscita += ",\"message\":";
                    uscita += std::to_string(r.idMessaggio);
                }
                uscita += '}';
            }
            uscita += '}';
            break;
    }
    uscita += '\n';
}

std::string TestoElenco() {
    struct Colonne {
        std::string codice, addOn, inglese, italiano, famiglia;
    };
    std::vector<Colonne> righe{{"CODE", "ADD-ON", "ENGLISH", "ITALIAN", "FAMILY"}};
    for (const auto& v : Catalogo) {
        righe.push_back({std::string(v.codice), v.addOn == 0 ? "" : "ADD" + std::to_string(v.addOn),
                         std::string(v.inglese), std::string(v.italiano), std::string(v.famiglia)});
    }
    std::array<std::size_t, 4> larghezza{};
    for (const auto& r : righe) {
        larghezza[0] = std::max(larghezza[0], r.codice.size());
        larghezza[1] = std::max(larghezza[1], r.addOn.size());
        larghezza[2] = std::max(larghezza[2], r.inglese.size());
        larghezza[3] = std::max(larghezza[3], r.italiano.size());
    }
    std::string t;
    for (const auto& r : righe) {
        const std::string* celle[] = {&r.codice, &r.addOn, &r.inglese, &r.italiano};
        for (std::size_t k = 0; k < std::size(celle); ++k) {
            t += *celle[k];
            t.append(larghezza[k] - celle[k]->size() + 2, ' ');
        }
        t += r.famiglia;
        t += '\n';
    }
    return t;
}

}  // namespace krt
