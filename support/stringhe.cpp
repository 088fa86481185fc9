#include "support/stringhe.h"

#include <algorithm>
#include <limits>
#include <string>

#include "resources/tabella_stringhe.h"

namespace krt {

namespace {

// Read and written only by the user-interface thread.
std::int16_t offsetLingua = kOffsetInglese;

bool In16Bit(int valore) {
    return valore >= std::numeric_limits<std::int16_t>::min() && valore <= std::numeric_limits<std::int16_t>::max();
}

std::string Descrizione(ErroreTabellaStringhe::Motivo motivo, int id) {
    if (motivo == ErroreTabellaStringhe::Motivo::Overflow)
        return "string table: id " + std::to_string(id) + " is out of the 16-bit range";
    return "string table: no text for id " + std::to_string(id);
}

}  // namespace

ErroreTabellaStringhe::ErroreTabellaStringhe(Motivo motivo, int id)
    : std::runtime_error(Descrizione(motivo, id)), motivo_(motivo), id_(id) {}

std::int16_t OffsetLingua() { return offsetLingua; }

void ImpostaOffsetLingua(std::int16_t offset) { offsetLingua = offset; }

QString CaricaStringaFissa(int id) {
    if (!In16Bit(id)) throw ErroreTabellaStringhe(ErroreTabellaStringhe::Motivo::Overflow, id);
    const auto tabella = TabellaStringhe();
    const auto voce = std::lower_bound(tabella.begin(), tabella.end(), id,
                                       [](const VoceTabellaStringhe& v, int cercato) { return v.id < cercato; });
    if (voce == tabella.end() || voce->id != id)
        throw ErroreTabellaStringhe(ErroreTabellaStringhe::Motivo::IdMancante, id);
    return QString::fromUtf8(voce->testo.data(), static_cast<qsizetype>(voce->testo.size()));
}

QString CaricaStringa(int id) {
    if (!In16Bit(id)) throw ErroreTabellaStringhe(ErroreTabellaStringhe::Motivo::Overflow, id);
    const int somma = id + offsetLingua;
    if (!In16Bit(somma)) throw ErroreTabellaStringhe(ErroreTabellaStringhe::Motivo::Overflow, somma);
    return CaricaStringaFissa(somma);
}

}  // namespace krt
