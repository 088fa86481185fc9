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
#include "barcodes/errori.h"
#include "barcodes/validazione.h"
#include "cli/codifica_testo.h"

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

// Glyphs in text form: UTF-8 on one line. The line break of a two-line result (CR LF)
// becomes a TAB, which no glyph string holds otherwise.
void AccodaGlifiTesto(std::string& uscita, std::string_view glifi) {
    for (std::size_t a_capo; (a_capo = glifi.find("\r\n")) != std::string_view::npos;) {
        AccodaCp1252InUtf8(uscita, glifi.substr(0, a_capo));
        uscita += '\t';
        glifi.remove_prefix(a_capo + 2);
    }
    AccodaCp1252InUtf8(uscita, glifi);
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

std::string MotivoRifiuto(const Simbologia& s) {
    if (s.perNome) return "content not allowed for \"" + std::string(s.voce->inglese) + "\"";
    return "content not allowed for " + s.codice;
}

}  // namespace

bool RisolviSimbologia(std::string_view testo, std::string_view stile, Simbologia& simbologia) {
    simbologia = {};
    if (const VoceCatalogo* voce = TrovaVocePerCodice(testo)) {
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
    std::string& contenuto = r.testo;
    if (opzioni.ingresso == CodificaIngresso::Cp1252) {
        contenuto.assign(riga);
        if (opzioni.formato == FormatoUscita::Json) AccodaCp1252InUtf8(r.contenuto, riga);
    } else {
        if (opzioni.formato == FormatoUscita::Json) r.contenuto = riga;
        if (!Utf8InCp1252(riga, contenuto, r.errore)) return;
    }
    if (contenuto.size() > LunghezzaMassimaContenuto) {
        r.errore = "content longer than " + std::to_string(LunghezzaMassimaContenuto) + " characters";
        return;
    }

    try {
        if (simbologia.perNome) {
            const OpzioniVoce o{opzioni.check, opzioni.hrc, opzioni.checkInHRC, opzioni.stile, {}};
            GenerazioneVoce g = GeneraVoce(*simbologia.voce, contenuto, o);
            if (!g.accettato) {
                r.errore = contenuto.empty() ? "empty content" : MotivoRifiuto(simbologia);
                return;
            }
            r.codice = std::move(g.codice);
            r.glifi = std::move(g.glifi);
            if (opzioni.hrc) r.hrc = std::move(g.hrc);
        } else {
            CodificaBarcode(contenuto, simbologia.codice, opzioni.check, r.glifi);
        }
        if (r.glifi.empty()) r.errore = MotivoRifiuto(simbologia);
    } catch (const EscapeNonValido& e) {
        r.errore = std::string("invalid escape sequence: ") + e.what();
    } catch (const OverflowCheckSum& e) {
        r.errore = std::string("check sum overflow: ") + e.what();
    } catch (const IntervalloNonValido& e) {
        r.errore = std::string("value out of range: ") + e.what();
    } catch (const std::exception& e) {
        r.errore = std::string("internal error: ") + e.what();
    }
    if (!r.errore.empty()) {
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
