// The decisions of the scan check (see attesa_scansione.h).
#include "cycle/attesa_scansione.h"

#include <array>
#include <utility>

#include "barcodes/codifica.h"
#include "barcodes/controllo.h"

namespace krt {

namespace {

// Codabar start/stop characters as readers report them: upper case, the alternates
// T, N (or M), * and E read as A, B, C and D.
constexpr std::array<std::pair<char, char>, 5> AlternativeCodabar{{
    {'T', 'A'}, {'N', 'B'}, {'M', 'B'}, {'*', 'C'}, {'E', 'D'},
}};

char LetturaCodabar(char c) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    for (const auto& [scritto, letto] : AlternativeCodabar)
        if (scritto == c) return letto;
    return c;
}

std::string SpaziPerTrattini(std::string testo) {
    std::replace(testo.begin(), testo.end(), '_', ' ');
    return testo;
}

void Utf8(std::string& uscita, unsigned codice) {
    if (codice < 0x80) {
        uscita += static_cast<char>(codice);
    } else {
        uscita += static_cast<char>(0xC0 | (codice >> 6));
        uscita += static_cast<char>(0x80 | (codice & 0x3F));
    }
}

// Decoded Code 128 content (codes 128-132 for NUL, FNC1-FNC4) as a reader reports it.
std::string LetturaCode128(std::string_view contenuto) {
    std::string uscita;
    for (std::size_t i = 0; i < contenuto.size(); ++i) {
        const auto c = static_cast<unsigned char>(contenuto[i]);
        switch (c) {
            case 128: uscita += '\0'; break;
            case 129: if (i > 0) uscita += '\x1D'; break;
            case 130:
            case 131: break;
            case 132:
                if (i + 1 < contenuto.size()) Utf8(uscita, static_cast<unsigned char>(contenuto[++i]) + 128u);
                break;
            default: Utf8(uscita, c);
        }
    }
    return uscita;
}

}  // namespace

FormatoLettore FormatoPerCodice(std::string_view codice) {
    const DescrittoreSimbologia* d = DescrittorePerCodice(codice);
    return d != nullptr ? d->lettore : FormatoLettore::Nessuno;
}

AttesaScansione AttesaPerVoce(const VoceCatalogo& voce, const GenerazioneVoce& generazione) {
    AttesaScansione attesa;
    attesa.formato = FormatoPerCodice(voce.codice);
    if (attesa.formato == FormatoLettore::Nessuno || !generazione.accettato) return attesa;

    // The engine leaves the content it encoded, check characters included, in place.
    std::string dati = generazione.parti.principale;
    std::string glifi;
    CodificaBarcode(dati, voce.codice, generazione.check, glifi);
    switch (voce.simbologia) {
        case TipoSimbologia::Code39: attesa.testo = SpaziPerTrattini(dati); break;
        case TipoSimbologia::Code39Full:
            attesa.asciiEsteso = true;
            attesa.testo = dati;
            // The check character is a native one, drawn before the stop character.
            if (generazione.check && glifi.size() >= 2)
                attesa.testo += SpaziPerTrattini(glifi.substr(glifi.size() - 2, 1));
            break;
        case TipoSimbologia::Code93:
            if (generazione.check && dati.size() >= 2) dati.resize(dati.size() - 2);
            dati = SpaziPerTrattini(dati);
            [[fallthrough]];
        case TipoSimbologia::Code93Full:
            attesa.senzaCheck93 = !generazione.check;
            attesa.testo = dati;
            break;
        case TipoSimbologia::Code128: attesa.testo = LetturaCode128(dati); break;
        case TipoSimbologia::Ean128: attesa.testo = LetturaCode128("\x81" + dati); break;
        case TipoSimbologia::Codabar:
            for (std::size_t i = 0; i < dati.size(); ++i)
                attesa.testo += (i == 0 || i + 1 == dati.size()) ? LetturaCodabar(dati[i]) : dati[i];
            break;
        case TipoSimbologia::Isbn10: attesa.testo = CalcolaCheckEAN("978" + dati.substr(0, 9)); break;
        case TipoSimbologia::Isbn13: attesa.testo = CalcolaCheckEAN(dati.substr(0, 12)); break;
        default: attesa.testo = dati;
    }

    if (!generazione.parti.addOn.empty()) {
        attesa.addOn = true;
        attesa.testo += ' ';
        attesa.testo += generazione.parti.addOn.substr(0, static_cast<std::size_t>(voce.addOn));
    }
    return attesa;
}

EsitoScansione ValutaScansione(const AttesaScansione& attesa, const LetturaScansione& lettura) {
    if (attesa.formato == FormatoLettore::Nessuno) return EsitoScansione::NessunLettore;
    if (!lettura.letto) return attesa.senzaCheck93 ? EsitoScansione::NonLetto93 : EsitoScansione::NonLetto;
    return lettura.testo == attesa.testo ? EsitoScansione::Letto : EsitoScansione::LettoDiverso;
}

}  // namespace krt
