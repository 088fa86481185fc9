// krt-encode --csv: a CSV column in, the rows out with barcode, hrc and error appended.
#pragma once
#include "cli/elaborazione.h"
#include "cli/flusso.h"
#include "cli/opzioni.h"

namespace krt {

// Reads CSV from ingresso and writes the rows to uscita, the refusals ("line N: reason")
// and the faults to errori. Returns 0 (all accepted), 1 (some refused), 2 (not CSV, an
// unknown column) or 3 (a read fault); a write fault stops the run and is left in the
// writer for the caller to report.
int CodificaCsv(const Simbologia& simbologia, const OpzioniCli& opzioni, FunzioneLettura ingresso,
                Scrittore& uscita, Scrittore& errori);

}  // namespace krt
