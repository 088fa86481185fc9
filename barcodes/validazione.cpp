// Content validation: which contents each symbology accepts, and their normal form.
#include "barcodes/validazione.h"

#include <algorithm>

namespace krt {

bool ValidaCodice(std::string& /*contenuto*/, std::string_view /*codice*/, bool /*checkDigit*/) { return {}; }

bool SoloCifre(std::string_view testo) {
    return std::all_of(testo.begin(), testo.end(), IsDigit);
}

std::string RiempiSinistra(std::string_view testo, std::size_t lunghezza, std::string_view riempimento) {
    if (testo.size() > lunghezza) return std::string(testo.substr(0, lunghezza));
    const char c = riempimento.empty() ? ' ' : riempimento.front();
    std::string risultato(lunghezza - testo.size(), c);
    risultato += testo;
    return risultato;
}

}  // namespace krt
