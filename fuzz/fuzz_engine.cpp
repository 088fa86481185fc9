// Feeds arbitrary bytes to the engine. The first byte picks the symbology code and
// the check option, the rest is the content; the same content also goes to the ISBN
// conversion. The engine's own faults (a bad escape, a check-sum overflow, a range
// lookup below its list) are expected; anything else aborts the run.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "barcodes/codifica.h"
#include "barcodes/errori.h"
#include "barcodes/isbn.h"
#include "barcodes/simbologie.h"

namespace {

// Every code of the symbology table.
constexpr auto Codici = [] {
    std::array<std::string_view, krt::Simbologie.size()> codici{};
    for (std::size_t i = 0; i < codici.size(); ++i) codici[i] = krt::Simbologie[i].codice;
    return codici;
}();

template <typename F>
void SenzaGuasti(F&& f) {
    try {
        f();
    } catch (const krt::EscapeNonValido&) {
    } catch (const krt::OverflowCheckSum&) {
    } catch (const krt::IntervalloNonValido&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    if (n == 0) return 0;
    const std::uint8_t scelta = dati[0];
    const std::string_view codice = Codici[scelta % Codici.size()];
    const bool check = (scelta / Codici.size()) % 2 != 0;
    // Lower-case codes too: the dispatcher upper-cases them.
    std::string codiceScritto(codice);
    if (scelta >= 2 * Codici.size() * 2)
        for (char& c : codiceScritto) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    const std::string contenuto(reinterpret_cast<const char*>(dati + 1), n - 1);

    SenzaGuasti([&] { krt::CodificaBarcode(contenuto, codiceScritto, check); });

    // The conversion reports everything by its status: no fault at all is expected here,
    // and every text it hyphenates can be drawn on the text line.
    std::string dieci, tredici;
    const std::int16_t stato = krt::ConvertiISBN(contenuto, dieci, tredici);
    if (stato > 0 || stato < -5) std::abort();
    if (stato == 0) krt::CodificaTestoISBN(dieci + tredici);
    return 0;
}
