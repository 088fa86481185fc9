// Lists (see elenco.h).
#include "cycle/elenco.h"

#include <exception>

#include "cycle/motivi.h"
#include "text/codifica_testo.h"

namespace krt {

EsitoElemento CodificaElemento(const VoceCatalogo& voce, std::string_view contenuto, const OpzioniVoce& opzioni,
                               int offsetLingua) {
    EsitoElemento e;
    std::string byte, errore;
    Rifiuto rifiuto;
    if (!Utf8InCp1252(contenuto, byte, errore)) {
        // The characters converted before the one that failed give its position.
        rifiuto = Rifiuto::InCarattere(byte.size() + 1, 0);
    } else if (byte.size() > LunghezzaMassimaElemento) {
        rifiuto = Rifiuto::DiLunghezza(1, LunghezzaMassimaElemento);
    } else {
        try {
            GenerazioneVoce g = GeneraVoce(voce, byte, opzioni);
            if (g.accettato) {
                e.accettato = true;
                e.glifi = std::move(g.glifi);
                e.famiglia = std::move(g.famiglia);
                if (opzioni.hrc) e.hrc = std::move(g.hrc);
                return e;
            }
            rifiuto = g.rifiuto;
        } catch (const std::exception& guasto) {
            rifiuto = RifiutoDaGuasto(guasto);
            if (!rifiuto) {
                e.motivo = guasto.what();
                return e;
            }
        }
    }
    e.motivo = TestoRifiuto(rifiuto, voce.codice, offsetLingua);
    return e;
}

}  // namespace krt
