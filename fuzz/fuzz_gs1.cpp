// The GS1 input parser: a "(AI)VALUE..." line, and the same bytes as AI=VALUE pairs
// (split at NUL, the AI before the first '='). What the checks accept in ASCII must
// compose into content that the EAN 128 encoder takes, as the wizard's OK relies on.
// Left out: bytes above 127, which the checks let through in text values and the encoder
// refuses (the content is then refused with its reason), and NUL, which the escaped
// content cannot carry (krt-encode refuses it before composing).
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "barcodes/codifica.h"
#include "barcodes/errori.h"
#include "gs1/composizione_ai.h"

namespace {

void Componi(const krt::EsitoRigheAI& esito) {
    if (!esito.errore.empty()) return;
    const krt::CodiceComposto codice = krt::ComponiCodiceAI(esito.righe);
    if (esito.righe.empty()) return;
    for (const auto& riga : esito.righe)
        for (const char c : riga.valore)
            if (static_cast<unsigned char>(c) > 127 || c == '\0') return;
    try {
        if (krt::CodificaBarcode(codice.contenuto, "E128", false).empty()) std::abort();
    } catch (const krt::OverflowCheckSum&) {
        // Too many element strings for one symbol: the engine's own fault, reported as such.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    const std::string_view testo(reinterpret_cast<const char*>(dati), n);
    Componi(krt::LeggiRigaGS1(testo));

    std::vector<std::pair<std::string, std::string>> coppie;
    for (std::size_t inizio = 0; inizio <= testo.size();) {
        const auto fine = std::min(testo.find('\0', inizio), testo.size());
        const std::string_view parte = testo.substr(inizio, fine - inizio);
        const auto uguale = parte.find('=');
        if (uguale != std::string_view::npos)
            coppie.emplace_back(std::string(parte.substr(0, uguale)), std::string(parte.substr(uguale + 1)));
        inizio = fine + 1;
    }
    Componi(krt::PreparaRigheAI(coppie));
    return 0;
}
