#include "cycle/configurazione_record.h"

namespace krt {

namespace {

// What a field read from the file may hold; anything else is garbage and the field keeps
// its default:
// - a boolean: 0 is false, any other value reads as true (-1), like the 16-bit booleans
//   always did;
// - an option box: 0 or 1;
// - a size: 1 to the given maximum. The barcode size box takes any positive 16-bit number;
//   the HRC size stops at 1638 points, the largest size word processors accept;
// - a text: no control character (below 32) anywhere. The font name must not be blank
//   either, while a blank symbology or style is what a first save may legitimately hold.
enum class Regola { Booleano, Casella, Dimensione };

struct Campo16 {
    std::size_t offset;
    std::int16_t Configurazione::*campo;
    Regola regola;
    std::int16_t massimo;
};

constexpr Campo16 kCampi16[] = {
    {128, &Configurazione::GrassettoHRC, Regola::Booleano, 0},
    {130, &Configurazione::CorsivoHRC, Regola::Booleano, 0},
    {132, &Configurazione::BarratoHRC, Regola::Booleano, 0},
    {134, &Configurazione::SottolineatoHRC, Regola::Booleano, 0},
    {136, &Configurazione::DimensioneHRC, Regola::Dimensione, 1638},
    {168, &Configurazione::HRC, Regola::Casella, 0},
    {170, &Configurazione::CheckDigit, Regola::Casella, 0},
    {172, &Configurazione::Dimensione, Regola::Dimensione, 32767},
    {238, &Configurazione::CheckDigitInHRC, Regola::Booleano, 0},
};

constexpr std::size_t kOffsetNomeFontHRC = 0;
constexpr std::size_t kOffsetSimbologia = 138;
constexpr std::size_t kOffsetStile = 174;

bool Accettabile(std::int16_t& valore, const Campo16& c) {
    switch (c.regola) {
        case Regola::Booleano:
            valore = valore == 0 ? kFalso : kVero;
            return true;
        case Regola::Casella:
            return valore == 0 || valore == 1;
        case Regola::Dimensione:
            return valore >= 1 && valore <= c.massimo;
    }
    return false;
}

template <std::size_t N>
void ScriviTesto(std::span<std::uint8_t> record, std::size_t offset, const TestoFisso<N>& testo) {
    std::copy_n(testo.Testo().begin(), N, record.begin() + static_cast<std::ptrdiff_t>(offset));
}

template <std::size_t N>
void LeggiTesto(std::span<const std::uint8_t> dati, std::size_t offset, TestoFisso<N>& testo, bool nonVuoto) {
    if (dati.size() < offset + N) return;
    std::string letto(N, ' ');
    for (std::size_t i = 0; i < N; ++i) {
        if (dati[offset + i] < 32) return;
        letto[i] = static_cast<char>(dati[offset + i]);
    }
    if (nonVuoto && letto.find_first_not_of(' ') == std::string::npos) return;
    testo.Imposta(letto);
}

}  // namespace

void ApplicaPredefiniti(Configurazione& configurazione, std::string_view stileNormale) {
    const std::int16_t checkDigitInHRC = configurazione.CheckDigitInHRC;
    configurazione = Configurazione{};
    configurazione.NomeFontHRC.Imposta("Courier");
    configurazione.DimensioneHRC = 10;
    configurazione.Dimensione = 100;
    configurazione.Stile.Imposta(stileNormale);
    configurazione.CheckDigitInHRC = checkDigitInHRC;
}

std::array<std::uint8_t, kDimensioneRecordConfigurazione> ScriviRecordConfigurazione(const Configurazione& configurazione) {
    std::array<std::uint8_t, kDimensioneRecordConfigurazione> record{};
    ScriviTesto(record, kOffsetNomeFontHRC, configurazione.NomeFontHRC);
    ScriviTesto(record, kOffsetSimbologia, configurazione.Simbologia);
    ScriviTesto(record, kOffsetStile, configurazione.Stile);
    for (const auto& c : kCampi16) {
        const auto valore = static_cast<std::uint16_t>(configurazione.*c.campo);
        record[c.offset] = static_cast<std::uint8_t>(valore & 0xFF);
        record[c.offset + 1] = static_cast<std::uint8_t>(valore >> 8);
    }
    return record;
}

Configurazione LeggiRecordConfigurazione(std::span<const std::uint8_t> dati, const Configurazione& predefinita) {
    Configurazione letta = predefinita;
    LeggiTesto(dati, kOffsetNomeFontHRC, letta.NomeFontHRC, true);
    LeggiTesto(dati, kOffsetSimbologia, letta.Simbologia, false);
    LeggiTesto(dati, kOffsetStile, letta.Stile, false);
    for (const auto& c : kCampi16) {
        if (dati.size() < c.offset + 2) continue;
        auto valore = static_cast<std::int16_t>(static_cast<std::uint16_t>(dati[c.offset] | (dati[c.offset + 1] << 8)));
        if (Accettabile(valore, c)) letta.*c.campo = valore;
    }
    return letta;
}

}  // namespace krt
