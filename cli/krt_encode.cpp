// krt-encode: the encoding engine on the command line.
#include <span>

#include "cli/flusso.h"
#include "cli/programma.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#ifdef KRT_MODULO_ESPORTAZIONE
#include <dlfcn.h>
#include <unistd.h>

#include <string>

namespace {

// --export: the drawing module, looked for beside the program (build tree) and in the
// library folder beside its bin/ (installed), loaded only by a run that exports.
int EsportaConModulo(const krt::RichiestaEsportazione& richiesta, std::string& errore) {
    std::string programma(4096, '\0');
    const ssize_t n = readlink("/proc/self/exe", programma.data(), programma.size() - 1);
    programma.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    const std::string cartella = programma.substr(0, programma.rfind('/') + 1);
    void* modulo = nullptr;
    std::string motivo;
    for (const std::string& percorso : {cartella + KRT_MODULO_ESPORTAZIONE,
                                        cartella + KRT_CARTELLA_MODULI "/" KRT_MODULO_ESPORTAZIONE}) {
        modulo = dlopen(percorso.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (modulo != nullptr) break;
        if (const char* e = dlerror(); e != nullptr && motivo.empty()) motivo = e;
    }
    using Funzione = int (*)(const krt::RichiestaEsportazione&, std::string&);
    auto* esporta = modulo != nullptr ? reinterpret_cast<Funzione>(dlsym(modulo, "krt_esporta_simbolo")) : nullptr;
    if (esporta == nullptr) {
        errore = "--export: cannot load " KRT_MODULO_ESPORTAZIONE ": " + motivo;
        return krt::UscitaIO;
    }
    return esporta(richiesta, errore);
}

}  // namespace
#endif

int main(int argc, char** argv) {
#ifdef _WIN32
    _setmode(0, _O_BINARY);
    _setmode(1, _O_BINARY);
#endif
    const std::span<const char* const> argomenti(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0));
#if defined(KRT_MODULO_ESPORTAZIONE)
    const krt::FunzioneEsportazione esporta = EsportaConModulo;
#elif defined(KRT_CON_ESPORTAZIONE)
    const krt::FunzioneEsportazione esporta = krt::EsportaSimbolo;
#else
    const krt::FunzioneEsportazione esporta;
#endif
    return krt::EseguiKrtEncode(argomenti, krt::LetturaDescrittore(0), krt::ScritturaDescrittore(1),
                                krt::ScritturaDescrittore(2), esporta);
}
