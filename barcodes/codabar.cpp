// Codabar: the content characters, start and stop included, with "|" between each two.
#include "barcodes/codabar.h"

namespace krt {

std::string CodificaCodabar(std::string_view contenuto) {
    std::string risultato;
    risultato.reserve(2 * contenuto.size());
    for (std::size_t i = 0; i < contenuto.size(); ++i) {
        if (i > 0) risultato += '|';
        risultato += contenuto[i];
    }
    return risultato;
}

}  // namespace krt
