// Delta-Distance A: start, every character after a "|" separator, a last "|" and the stop.
#include "barcodes/delta.h"

namespace krt {

std::string CodificaDelta(std::string_view contenuto) {
    std::string risultato;
    risultato.reserve(2 * contenuto.size() + 3);
    risultato += '*';
    for (char c : contenuto) {
        risultato += '|';
        risultato += c;
    }
    risultato += "|#";
    return risultato;
}

}  // namespace krt
