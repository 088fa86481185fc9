// krt-encode as a function (see programma.h).
#include "cli/programma.h"

#include <cstring>
#include <string>
#include <string_view>

#include "cli/csv.h"
#include "cli/elaborazione.h"
#include "cli/gs1.h"
#include "cli/opzioni.h"
#include "cycle/motivi.h"

#ifndef KRT_VERSION
#define KRT_VERSION "0"
#endif

namespace krt {

namespace {

// The longest raw line worth decoding: four UTF-8 bytes per content character at most.
constexpr std::size_t LunghezzaMassimaRiga = 4 * LunghezzaMassimaContenuto;
// The module of --export without --module-width or --size: the nominal EAN/UPC module.
constexpr double ModuloPredefinitoMm = 0.33;

constexpr std::string_view MarcaOrdineByte = "\xEF\xBB\xBF";

std::string TestoErrore(int numero) { return numero != 0 ? std::strerror(numero) : "unknown error"; }

// The status of a run whose writing may have failed: a failed output is reported on
// standard error (when that still works).
int Chiudi(Scrittore& uscita, Scrittore& errori, int stato) {
    uscita.Scarica();
    if (uscita.Errore() != 0) {
        errori.Scrivi("krt-encode: cannot write the output: " + TestoErrore(uscita.Errore()) + "\n");
        return UscitaIO;
    }
    errori.Scarica();
    return errori.Errore() != 0 ? UscitaIO : stato;
}

// --export: one symbol into a file, nothing on standard output. A refused content writes
// no file.
int Esporta(const Simbologia& simbologia, const OpzioniCli& opzioni, const FunzioneEsportazione& esporta,
            Scrittore& uscita, Scrittore& errori) {
    if (opzioni.ai.empty() && opzioni.argomenti.size() != 2) {
        errori.Scrivi("krt-encode: --export needs CONTENT or --ai\nTry 'krt-encode --help'.\n");
        return Chiudi(uscita, errori, UscitaUso);
    }
    if (!esporta) {
        errori.Scrivi("krt-encode: this krt-encode was built without --export (no Qt)\n");
        return Chiudi(uscita, errori, UscitaUso);
    }
    const RisultatoRiga r = opzioni.ai.empty() ? CodificaContenuto(simbologia, opzioni, opzioni.argomenti[1])
                                               : CodificaElementiAI(simbologia, opzioni);
    if (!r.errore.empty()) {
        errori.Scrivi("krt-encode: " + r.errore + "\n");
        return Chiudi(uscita, errori, UscitaRifiuti);
    }
    RichiestaEsportazione richiesta;
    richiesta.file = opzioni.esporta;
    richiesta.cartellaFont = opzioni.cartellaFont;
    richiesta.dpi = opzioni.dpi;
    richiesta.moduloMm = opzioni.moduloMm > 0 || opzioni.punti > 0 ? opzioni.moduloMm : ModuloPredefinitoMm;
    richiesta.punti = opzioni.punti;
    richiesta.glifi = r.glifi;
    richiesta.famiglia = simbologia.famiglia;
    richiesta.hrc = r.hrc;
    richiesta.codice = simbologia.perNome ? std::string(simbologia.voce->codice) : simbologia.codice;
    richiesta.addOn = simbologia.perNome && simbologia.voce->addOn != 0;
    std::string errore;
    const int stato = esporta(richiesta, errore);
    if (stato != UscitaRiuscita) errori.Scrivi("krt-encode: " + errore + "\n");
    return Chiudi(uscita, errori, stato);
}

}  // namespace

int EseguiKrtEncode(std::span<const char* const> argomenti, FunzioneLettura ingresso, FunzioneScrittura scriviUscita,
                    FunzioneScrittura scriviErrori, const FunzioneEsportazione& esporta) {
    Scrittore uscita(std::move(scriviUscita));
    Scrittore errori(std::move(scriviErrori));
    auto erroreUso = [&](const std::string& messaggio) {
        errori.Scrivi("krt-encode: " + messaggio + "\nTry 'krt-encode --help'.\n");
        return Chiudi(uscita, errori, UscitaUso);
    };

    OpzioniCli opzioni;
    if (const std::string errore = LeggiOpzioni(argomenti, opzioni); !errore.empty()) return erroreUso(errore);
    if (opzioni.aiuto || opzioni.versione || opzioni.elenco) {
        uscita.Buffer() = opzioni.aiuto      ? TestoAiuto()
                          : opzioni.versione ? std::string("krt-encode " KRT_VERSION "\n")
                                             : TestoElenco();
        return Chiudi(uscita, errori, UscitaRiuscita);
    }

    Simbologia simbologia;
    if (!RisolviSimbologia(opzioni.argomenti[0], opzioni.stile, simbologia))
        return erroreUso("unknown symbology \"" + opzioni.argomenti[0] + "\" (see --list)");
    if (const std::string errore = ControllaOpzioniGS1(simbologia, opzioni); !errore.empty())
        return erroreUso(errore);
    if (!opzioni.esporta.empty()) return Esporta(simbologia, opzioni, esporta, uscita, errori);
    if (!opzioni.cartellaFont.empty() || opzioni.moduloMm > 0 || opzioni.punti > 0)
        return erroreUso("--font-dir, --module-width and --size go with --export");

    if (opzioni.csv) return Chiudi(uscita, errori, CodificaCsv(simbologia, opzioni, std::move(ingresso), uscita, errori));

    bool rifiuti = false;
    // numero: 1-based line of the input, 0 for the CONTENT argument.
    auto scrivi = [&](const RisultatoRiga& r, std::size_t numero) {
        AccodaRisultato(uscita.Buffer(), simbologia, r, opzioni.formato);
        uscita.Forse();
        if (r.errore.empty()) return;
        rifiuti = true;
        std::string& e = errori.Buffer();
        e += "krt-encode: ";
        if (numero != 0) e += "line " + std::to_string(numero) + ": ";
        e += r.errore;
        e += '\n';
        errori.Forse();
    };

    if (!opzioni.ai.empty()) {
        scrivi(CodificaElementiAI(simbologia, opzioni), 0);
    } else if (opzioni.argomenti.size() == 2) {
        scrivi(CodificaContenuto(simbologia, opzioni, opzioni.argomenti[1]), 0);
    } else {
        // A write fault ends the run: nobody reads what would follow.
        LettoreRighe lettore(std::move(ingresso), LunghezzaMassimaRiga, [&] {
            uscita.Scarica();
            errori.Scarica();
            return uscita.Errore() == 0 && errori.Errore() == 0;
        });
        std::string_view riga;
        bool troppoLunga = false;
        RisultatoRiga r;  // one for every line: its strings keep their storage
        for (std::size_t numero = 1; lettore.Prossima(riga, troppoLunga); ++numero) {
            if (troppoLunga) {
                RisultatoRiga lunga;
                lunga.rifiuto = Rifiuto::DiLunghezza(1, LunghezzaMassimaContenuto);
                lunga.errore = TestoRifiuto(lunga.rifiuto, simbologia.codice);
                scrivi(lunga, numero);
            } else {
                // A UTF-8 byte-order mark, as Windows editors write at the start of a file,
                // is not content.
                if (numero == 1 && opzioni.ingresso == CodificaIngresso::Utf8 && riga.starts_with(MarcaOrdineByte))
                    riga.remove_prefix(MarcaOrdineByte.size());
                CodificaContenuto(simbologia, opzioni, riga, r);
                scrivi(r, numero);
            }
            if (uscita.Errore() != 0 || errori.Errore() != 0) break;
        }
        if (lettore.Errore() != 0) {
            uscita.Scarica();
            errori.Scrivi("krt-encode: cannot read the input: " + TestoErrore(lettore.Errore()) + "\n");
            return Chiudi(uscita, errori, UscitaIO);
        }
    }
    return Chiudi(uscita, errori, rifiuti ? UscitaRifiuti : UscitaRiuscita);
}

}  // namespace krt
