// krt-encode: the encoding engine on the command line.
#include <span>

#include "cli/flusso.h"
#include "cli/programma.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

int main(int argc, char** argv) {
#ifdef _WIN32
    _setmode(0, _O_BINARY);
    _setmode(1, _O_BINARY);
#endif
    const std::span<const char* const> argomenti(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0));
#ifdef KRT_CON_ESPORTAZIONE
    const krt::FunzioneEsportazione esporta = krt::EsportaSimbolo;
#else
    const krt::FunzioneEsportazione esporta;
#endif
    return krt::EseguiKrtEncode(argomenti, krt::LetturaDescrittore(0), krt::ScritturaDescrittore(1),
                                krt::ScritturaDescrittore(2), esporta);
}
