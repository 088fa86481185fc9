// krt-encode --export, the Qt-free half (see esportazione.h).
#include "cli/esportazione.h"

namespace krt {

bool EstensioneEsportabile(std::string_view file) {
    const auto punto = file.rfind('.');
    const auto barra = file.find_last_of("/\\");
    if (punto == std::string_view::npos || (barra != std::string_view::npos && punto < barra)) return false;
    std::string estensione;
    for (const char c : file.substr(punto + 1)) estensione += static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    return estensione == "png" || estensione == "svg" || estensione == "pdf";
}

}  // namespace krt
