// The options-record reader on arbitrary file contents. Whatever it reads must be a
// record it would write again unchanged: reading, writing and reading back give the
// same options, so a damaged file can never turn into a worse one.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "cycle/configurazione_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    krt::Configurazione predefinita;
    krt::ApplicaPredefiniti(predefinita, "Normal");
    const krt::Configurazione letta = krt::LeggiRecordConfigurazione(std::span(dati, n), predefinita);
    const auto record = krt::ScriviRecordConfigurazione(letta);
    const krt::Configurazione riletta = krt::LeggiRecordConfigurazione(record, predefinita);
    if (!(riletta == letta)) std::abort();
    if (krt::ScriviRecordConfigurazione(riletta) != record) std::abort();
    // A record the program wrote is read whole from its own bytes: no default shows through.
    krt::Configurazione altra;
    krt::ApplicaPredefiniti(altra, "Normale");
    altra.CheckDigitInHRC = krt::kVero;
    if (!(krt::LeggiRecordConfigurazione(record, altra) == letta)) std::abort();
    return 0;
}
