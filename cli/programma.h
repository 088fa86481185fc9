// krt-encode as a function: its arguments, standard input and the two output streams in,
// the exit status out. The program's main only connects the descriptors.
#pragma once
#include <span>

#include "cli/esportazione.h"
#include "cli/flusso.h"

namespace krt {

// Exit statuses of krt-encode (also in --help and the man page). An I/O fault outranks
// refused content.
enum StatoUscita : int {
    UscitaRiuscita = 0,  // every content encoded
    UscitaRifiuti = 1,   // some content refused
    UscitaUso = 2,       // usage error
    UscitaIO = 3,        // standard input could not be read, or an output could not be written
};

// Runs krt-encode with argv[1...]. It stops at the first fault writing the output
// (with SIGPIPE ignored a closed pipe is such a fault), reports a fault reading the
// input as such rather than as its end, and checks every write down to the last.
// esporta draws --export; without it --export is refused as not built in.
int EseguiKrtEncode(std::span<const char* const> argomenti, FunzioneLettura ingresso, FunzioneScrittura uscita,
                    FunzioneScrittura errori, const FunzioneEsportazione& esporta = {});

}  // namespace krt
