#include "text/formatta.h"

#include "barcodes/validazione.h"

namespace krt {

namespace {

struct EscapeConNome {
    unsigned char codice;
    char lettera;
};

constexpr EscapeConNome kEscapeConNome[] = {
    {0, '0'}, {7, 'a'}, {8, 'b'}, {9, 't'}, {10, 'n'}, {11, 'v'}, {12, 'f'}, {13, 'r'}, {92, '\\'},
};

std::string Esadecimale(unsigned valore) {
    constexpr char kCifre[] = "0123456789ABCDEF";
    std::string cifre;
    do {
        cifre.insert(cifre.begin(), kCifre[valore % 16]);
        valore /= 16;
    } while (valore != 0);
    return cifre;
}

}  // namespace

std::string FormattaEscape(std::string_view testo) {
    std::string risultato;
    risultato.reserve(testo.size());
    for (const char carattere : testo) {
        const auto codice = static_cast<unsigned char>(carattere);
        if (codice >= 32 && codice < 127 && codice != 92) {
            risultato += carattere;
            continue;
        }
        risultato += '\\';
        bool conNome = false;
        for (const auto& voce : kEscapeConNome) {
            if (voce.codice == codice) {
                risultato += voce.lettera;
                conNome = true;
                break;
            }
        }
        if (!conNome) risultato += 'x' + RiempiSinistra(Esadecimale(codice), 2, "0");
    }
    return risultato;
}

}  // namespace krt
