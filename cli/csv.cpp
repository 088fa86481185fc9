// krt-encode --csv (see csv.h).
#include "cli/csv.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "cli/gs1.h"
#include "cli/programma.h"
#include "cycle/motivi.h"
#include "text/codifica_testo.h"
#include "text/csv.h"

namespace krt {

namespace {

// A UTF-8 text in Windows-1252 for a Windows-1252 output; a character the code page lacks
// becomes "?".
void AccodaInCp1252(std::string& uscita, std::string_view utf8) {
    std::string byte, errore;
    if (Utf8InCp1252(utf8, byte, errore)) {
        uscita += byte;
        return;
    }
    for (std::size_t i = 0; i < utf8.size();) {
        std::size_t n = 1;
        const auto b = static_cast<unsigned char>(utf8[i]);
        if (b >= 0xC0) n = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : 2;
        n = std::min(n, utf8.size() - i);
        if (Utf8InCp1252(utf8.substr(i, n), byte, errore))
            uscita += byte;
        else
            uscita += '?';
        i += n;
    }
}

}  // namespace

int CodificaCsv(const Simbologia& simbologia, const OpzioniCli& opzioni, FunzioneLettura ingresso,
                Scrittore& uscita, Scrittore& errori) {
    auto scrittoriSani = [&] { return uscita.Errore() == 0 && errori.Errore() == 0; };
    LettoreCsv lettore(std::move(ingresso), opzioni.separatore, [&] {
        uscita.Scarica();
        errori.Scarica();
        return scrittoriSani();
    });
    auto errore = [&](std::string testo) {
        errori.Scrivi("krt-encode: " + testo + "\n");
    };
    // The end of the input: a read fault (3), a file that is not CSV (2), or stato.
    auto fine = [&](int stato) {
        if (lettore.ErroreLettura() != 0) {
            uscita.Scarica();
            const int numero = lettore.ErroreLettura();
            errore(std::string("cannot read the input: ") + std::strerror(numero));
            return static_cast<int>(UscitaIO);
        }
        if (lettore.Guasto() != GuastoCsv::Nessuno) {
            uscita.Scarica();
            errore("line " + std::to_string(lettore.Riga()) + ": not CSV: " + TestoGuastoCsv(lettore.Guasto()));
            return static_cast<int>(UscitaUso);
        }
        return stato;
    };

    std::vector<std::string_view> campi;
    if (!lettore.Prossimo(campi)) {
        if (!scrittoriSani()) return UscitaRiuscita;
        if (lettore.ErroreLettura() == 0 && lettore.Guasto() == GuastoCsv::Nessuno) {
            errore("line 1: not CSV: " + TestoGuastoCsv(GuastoCsv::SenzaIntestazione));
            return UscitaUso;
        }
        return fine(UscitaRiuscita);
    }
    const std::size_t larghezza = campi.size();
    std::size_t colonna = 0;
    if (!opzioni.colonna.empty()) {
        colonna = RisolviColonnaCsv(campi, opzioni.colonna);
        if (colonna == std::string_view::npos) {
            std::string elenco;
            for (const auto c : campi) elenco += (elenco.empty() ? "\"" : ", \"") + std::string(c) + "\"";
            errore("--column " + opzioni.colonna + ": the header has no such column (it has " + elenco + ")");
            return UscitaUso;
        }
    }

    // The output keeps the input's delimiter, line end and encoding; --excel makes it UTF-8
    // with a byte-order mark and CR LF.
    const char sep = lettore.Separatore();
    const std::string_view fineRiga =
        opzioni.excel ? std::string_view("\r\n") : lettore.FineRiga().empty() ? std::string_view("\n")
                                                                                : lettore.FineRiga();
    const bool ingressoCp1252 = opzioni.ingresso == CodificaIngresso::Cp1252;
    const bool uscitaUtf8 = !ingressoCp1252 || opzioni.excel;
    std::string& u = uscita.Buffer();
    if (opzioni.excel || lettore.ConBom()) u += "\xEF\xBB\xBF";
    std::string convertito;
    auto campoIngresso = [&](std::string_view campo) {
        if (ingressoCp1252 && uscitaUtf8) {
            convertito.clear();
            AccodaCp1252InUtf8(convertito, campo);
            campo = convertito;
        }
        AccodaCampoCsv(u, campo, sep);
    };
    std::string campo;
    auto campoUtf8 = [&](std::string_view testo) {
        campo.clear();
        if (uscitaUtf8)
            campo = testo;
        else
            AccodaInCp1252(campo, testo);
        AccodaCampoCsv(u, campo, sep);
    };

    // A row written as RFC 4180 writes it is copied as it is, else field by field.
    auto campiIngresso = [&](const std::vector<std::string_view>& campi) {
        if (lettore.GrezzoFedele() && !(ingressoCp1252 && uscitaUtf8)) {
            u += lettore.Grezzo();
            u += sep;
            return;
        }
        for (const auto c : campi) {
            campoIngresso(c);
            u += sep;
        }
    };
    campiIngresso(campi);
    u += "barcode";
    u += sep;
    u += "hrc";
    u += sep;
    u += "error";
    u += fineRiga;
    uscita.Forse();

    bool rifiuti = false;
    RisultatoRiga r;  // one for every row: its strings keep their storage
    while (scrittoriSani() && lettore.Prossimo(campi)) {
        if (campi.size() > larghezza) {
            r = {};
            r.errore = TestoCampiInEccesso(campi.size(), larghezza);
        } else if (colonna >= campi.size()) {
            r = {};
            r.errore = TestoCampoMancante(colonna + 1);
        } else {
            CodificaContenuto(simbologia, opzioni, campi[colonna], r);
        }
        campiIngresso(campi);
        for (std::size_t k = campi.size(); k < larghezza; ++k) u += sep;
        // Glyphs straight into the output, quoted afterwards in the rare case they need it.
        const std::size_t inizioGlifi = u.size();
        AccodaGlifiTesto(u, r.glifi, uscitaUtf8);
        if (CampoCsvDaQuotare(std::string_view(u).substr(inizioGlifi), sep)) {
            campo.assign(u, inizioGlifi);
            u.resize(inizioGlifi);
            AccodaCampoCsv(u, campo, sep);
        }
        u += sep;
        campo.clear();
        if (uscitaUtf8)
            AccodaCp1252InUtf8(campo, r.hrc);
        else
            campo = r.hrc;
        AccodaCampoCsv(u, campo, sep);
        u += sep;
        campoUtf8(r.errore);
        u += fineRiga;
        uscita.Forse();
        if (!r.errore.empty()) {
            rifiuti = true;
            std::string& e = errori.Buffer();
            e += "krt-encode: line ";
            e += std::to_string(lettore.Riga());
            e += ": ";
            e += r.errore;
            e += '\n';
            errori.Forse();
        }
    }
    if (!scrittoriSani()) return UscitaRiuscita;
    return fine(rifiuti ? UscitaRifiuti : UscitaRiuscita);
}

}  // namespace krt
