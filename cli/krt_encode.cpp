// krt-encode: the encoding engine on the command line.
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

#include "cli/elaborazione.h"
#include "cycle/motivi.h"
#include "cli/flusso.h"
#include "cli/gs1.h"
#include "cli/opzioni.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

constexpr int DescrittoreIngresso = 0;
constexpr int DescrittoreUscita = 1;
constexpr int DescrittoreErrori = 2;

// The longest raw line worth decoding: four UTF-8 bytes per content character at most.
constexpr std::size_t LunghezzaMassimaRiga = 4 * krt::LunghezzaMassimaContenuto;

int ErroreUso(const std::string& messaggio) {
    std::fprintf(stderr, "krt-encode: %s\nTry 'krt-encode --help'.\n", messaggio.c_str());
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    krt::OpzioniCli opzioni;
    const std::span<const char* const> argomenti(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0));
    if (const std::string errore = krt::LeggiOpzioni(argomenti, opzioni); !errore.empty()) return ErroreUso(errore);
    if (opzioni.aiuto) {
        std::fputs(krt::TestoAiuto().c_str(), stdout);
        return 0;
    }
    if (opzioni.versione) {
        std::fputs("krt-encode " KRT_VERSION "\n", stdout);
        return 0;
    }
    if (opzioni.elenco) {
        std::fputs(krt::TestoElenco().c_str(), stdout);
        return 0;
    }

    krt::Simbologia simbologia;
    if (!krt::RisolviSimbologia(opzioni.argomenti[0], opzioni.stile, simbologia))
        return ErroreUso("unknown symbology \"" + opzioni.argomenti[0] + "\" (see --list)");
    if (const std::string errore = krt::ControllaOpzioniGS1(simbologia, opzioni); !errore.empty())
        return ErroreUso(errore);

    krt::Scrittore uscita(DescrittoreUscita);
    krt::Scrittore errori(DescrittoreErrori);
    bool rifiuti = false;

    // numero: 1-based line of the input, 0 for the CONTENT argument.
    auto scrivi = [&](const krt::RisultatoRiga& r, std::size_t numero) {
        krt::AccodaRisultato(uscita.Buffer(), simbologia, r, opzioni.formato);
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
        scrivi(krt::CodificaElementiAI(simbologia, opzioni), 0);
    } else if (opzioni.argomenti.size() == 2) {
        scrivi(krt::CodificaContenuto(simbologia, opzioni, opzioni.argomenti[1]), 0);
    } else {
        krt::LettoreRighe lettore(DescrittoreIngresso, LunghezzaMassimaRiga, [&] {
            uscita.Scarica();
            errori.Scarica();
        });
        std::string_view riga;
        bool troppoLunga = false;
        krt::RisultatoRiga r;  // one for every line: its strings keep their storage
        for (std::size_t numero = 1; lettore.Prossima(riga, troppoLunga); ++numero) {
            if (troppoLunga) {
                krt::RisultatoRiga lunga;
                lunga.rifiuto = krt::Rifiuto::DiLunghezza(1, krt::LunghezzaMassimaContenuto);
                lunga.errore = krt::TestoRifiuto(lunga.rifiuto, simbologia.codice);
                scrivi(lunga, numero);
            } else {
                krt::CodificaContenuto(simbologia, opzioni, riga, r);
                scrivi(r, numero);
            }
        }
    }
    uscita.Scarica();
    errori.Scarica();
    if (uscita.Errore()) {
        std::fputs("krt-encode: cannot write the output\n", stderr);
        return 1;
    }
    return rifiuti ? 1 : 0;
}
