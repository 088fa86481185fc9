// GS1-128 composition on the command line (see gs1.h).
#include "cli/gs1.h"

#include <utility>
#include <vector>

#include "text/codifica_testo.h"
#include "gs1/composizione_ai.h"

namespace krt {

namespace {

constexpr std::string_view CodiceGS1 = CodiceDi(TipoSimbologia::Ean128);

// The text of a refused line: the wizard's message and its id, or the reason alone.
std::string Motivo(const EsitoRigheAI& esito) {
    if (esito.idMessaggio == 0) return esito.errore;
    return "message " + std::to_string(esito.idMessaggio) + ": " + esito.errore;
}

// Composes the checked lines and encodes the content as the EAN 128 entry.
RisultatoRiga Codifica(const Simbologia& simbologia, const OpzioniCli& opzioni, const EsitoRigheAI& esito) {
    if (esito.errore.empty()) {
        const auto codice = ComponiCodiceAI(esito.righe);
        // The escaped content is ASCII whatever the input encoding. The readable text is
        // the HRC of the entry, as the wizard hands it to the main window.
        RisultatoRiga r = CodificaRiga(simbologia, opzioni, codice.contenuto);
        if (r.errore.empty() && simbologia.perNome) r.hrc = codice.hrc;
        r.contenuto = codice.contenuto;
        return r;
    }
    // The wizard's refusals are structure rules of GS1-128 content, with its message id.
    RisultatoRiga r;
    r.codice = simbologia.codice;
    r.errore = Motivo(esito);
    r.rifiuto = Rifiuto::Di(MotivoRifiuto::Struttura);
    r.idMessaggio = esito.idMessaggio;
    return r;
}

// A value as typed, in Windows-1252.
bool InCp1252(const OpzioniCli& opzioni, std::string_view testo, std::string& byte, std::string& errore) {
    if (opzioni.ingresso == CodificaIngresso::Cp1252) {
        byte = testo;
        return true;
    }
    return Utf8InCp1252(testo, byte, errore);
}

}  // namespace

std::string ControllaOpzioniGS1(const Simbologia& simbologia, const OpzioniCli& opzioni) {
    if (opzioni.ai.empty() && !opzioni.gs1Ingresso) return {};
    if (simbologia.codice != CodiceGS1) return "--ai and --gs1-input need the symbology \"EAN 128\"";
    if (!opzioni.ai.empty() && opzioni.gs1Ingresso) return "--ai and --gs1-input do not go together";
    if (!opzioni.ai.empty() && opzioni.argomenti.size() > 1) return "--ai takes no CONTENT";
    for (const auto& ai : opzioni.ai)
        if (ai.find('=') == std::string::npos) return "--ai takes AI=VALUE, not \"" + ai + "\"";
    return {};
}

RisultatoRiga CodificaElementiAI(const Simbologia& simbologia, const OpzioniCli& opzioni) {
    std::vector<std::pair<std::string, std::string>> coppie;
    for (const auto& ai : opzioni.ai) {
        const auto uguale = ai.find('=');
        std::string valore;
        std::string errore;
        if (!InCp1252(opzioni, std::string_view(ai).substr(uguale + 1), valore, errore)) {
            RisultatoRiga r;
            r.codice = simbologia.codice;
            r.errore = errore;
            return r;
        }
        coppie.emplace_back(ai.substr(0, uguale), std::move(valore));
    }
    return Codifica(simbologia, opzioni, PreparaRigheAI(coppie));
}

RisultatoRiga CodificaContenuto(const Simbologia& simbologia, const OpzioniCli& opzioni, std::string_view riga) {
    if (!opzioni.gs1Ingresso) return CodificaRiga(simbologia, opzioni, riga);
    std::string byte;
    std::string errore;
    if (!InCp1252(opzioni, riga, byte, errore)) {
        RisultatoRiga r;
        r.codice = simbologia.codice;
        r.errore = errore;
        return r;
    }
    return Codifica(simbologia, opzioni, LeggiRigaGS1(byte));
}

void CodificaContenuto(const Simbologia& simbologia, const OpzioniCli& opzioni, std::string_view riga,
                       RisultatoRiga& risultato) {
    if (opzioni.gs1Ingresso)
        risultato = CodificaContenuto(simbologia, opzioni, riga);
    else
        CodificaRiga(simbologia, opzioni, riga, risultato);
}

}  // namespace krt
