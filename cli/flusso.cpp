// Streaming input and output of krt-encode (see flusso.h).
#include "cli/flusso.h"

#include <cerrno>
#include <algorithm>
#include <cstring>
#include <utility>

#ifdef _WIN32
#include <io.h>
#define KRT_READ _read
#define KRT_WRITE _write
#else
#include <unistd.h>
#define KRT_READ ::read
#define KRT_WRITE ::write
#endif

namespace krt {

void Scrittore::Scarica() {
    std::size_t scritti = 0;
    while (!errore_ && scritti < buffer_.size()) {
        const auto n = KRT_WRITE(descrittore_, buffer_.data() + scritti,
                                 static_cast<unsigned>(buffer_.size() - scritti));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            errore_ = true;
            break;
        }
        scritti += static_cast<std::size_t>(n);
    }
    buffer_.clear();
}

LettoreRighe::LettoreRighe(int descrittore, std::size_t lunghezzaMassima, std::function<void()> primaDiLeggere)
    : descrittore_(descrittore), lunghezzaMassima_(lunghezzaMassima), primaDiLeggere_(std::move(primaDiLeggere)),
      buffer_(1 << 16) {}

bool LettoreRighe::Riempi() {
    if (primaDiLeggere_) primaDiLeggere_();
    inizio_ = fine_ = 0;
    while (!finito_) {
        const auto n = KRT_READ(descrittore_, buffer_.data(), static_cast<unsigned>(buffer_.size()));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            finito_ = true;
            break;
        }
        fine_ = static_cast<std::size_t>(n);
        return true;
    }
    return false;
}

bool LettoreRighe::Prossima(std::string& riga, bool& troppoLunga) {
    riga.clear();
    troppoLunga = false;
    bool letto = false;
    for (;;) {
        if (inizio_ == fine_ && !Riempi()) break;
        letto = true;
        const char* dati = buffer_.data() + inizio_;
        const std::size_t disponibili = fine_ - inizio_;
        const auto* lf = static_cast<const char*>(std::memchr(dati, '\n', disponibili));
        const std::size_t parte = lf != nullptr ? static_cast<std::size_t>(lf - dati) : disponibili;
        // One byte beyond the limit is kept, in case it is the CR of the line end.
        const std::size_t spazio = lunghezzaMassima_ + 1 - std::min(riga.size(), lunghezzaMassima_ + 1);
        if (parte > spazio) troppoLunga = true;
        riga.append(dati, std::min(parte, spazio));
        inizio_ += parte;
        if (lf != nullptr) {
            ++inizio_;
            break;
        }
    }
    if (!letto) return false;
    if (!troppoLunga && !riga.empty() && riga.back() == '\r') riga.pop_back();
    if (riga.size() > lunghezzaMassima_) {
        troppoLunga = true;
        riga.resize(lunghezzaMassima_);
    }
    return true;
}

}  // namespace krt
