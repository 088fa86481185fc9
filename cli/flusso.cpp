// Streaming input and output of krt-encode (see flusso.h).
#include "cli/flusso.h"

#include <cerrno>
#include <algorithm>
#include <cstring>
#include <utility>

#ifdef _WIN32
#include <io.h>
#ifndef NOMINMAX
#define NOMINMAX  // std::min and std::max, not the macros
#endif
#include <windows.h>
#define KRT_READ _read
#define KRT_WRITE _write
// Wine's C runtime fails a larger write to a pipe whose reader has gone without the system's
// error, so that it could not be told from a fault of krt-encode.
constexpr std::size_t KRT_WRITE_MAX = 1 << 16;
#else
#include <unistd.h>
#define KRT_READ ::read
#define KRT_WRITE ::write
constexpr std::size_t KRT_WRITE_MAX = 1 << 30;
#endif

namespace krt {

FunzioneLettura LetturaDescrittore(int descrittore) {
    return [descrittore](char* dati, std::size_t n) -> std::ptrdiff_t {
        for (;;) {
            const auto letti = KRT_READ(descrittore, dati, static_cast<unsigned>(std::min<std::size_t>(n, 1 << 30)));
            if (letti < 0 && errno == EINTR) continue;
            return letti;
        }
    };
}

FunzioneScrittura ScritturaDescrittore(int descrittore) {
    return [descrittore](const char* dati, std::size_t n) -> std::ptrdiff_t {
        for (;;) {
            const auto scritti = KRT_WRITE(descrittore, dati, static_cast<unsigned>(std::min(n, KRT_WRITE_MAX)));
            if (scritti < 0 && errno == EINTR) continue;
#ifdef _WIN32
            // A pipe whose reader has gone: the C runtime says EINVAL, which would read as a fault of krt-encode.
            if (scritti < 0) {
                const DWORD guasto = GetLastError();
                if (guasto == ERROR_NO_DATA || guasto == ERROR_BROKEN_PIPE || guasto == ERROR_PIPE_NOT_CONNECTED)
                    errno = EPIPE;
            }
#endif
            return scritti;
        }
    };
}

void Scrittore::Scarica() {
    std::size_t scritti = 0;
    while (errore_ == 0 && scritti < buffer_.size()) {
        errno = 0;
        const std::ptrdiff_t n = scrivi_(buffer_.data() + scritti, buffer_.size() - scritti);
        if (n <= 0) {
            errore_ = n < 0 && errno != 0 ? errno : EIO;
            break;
        }
        scritti += static_cast<std::size_t>(n);
    }
    buffer_.clear();
}

LettoreRighe::LettoreRighe(FunzioneLettura leggi, std::size_t lunghezzaMassima, std::function<bool()> primaDiLeggere)
    : leggi_(std::move(leggi)), lunghezzaMassima_(lunghezzaMassima), primaDiLeggere_(std::move(primaDiLeggere)),
      buffer_(1 << 16) {}

bool LettoreRighe::Riempi() {
    inizio_ = fine_ = 0;
    if (finito_ || (primaDiLeggere_ && !primaDiLeggere_())) {
        finito_ = true;
        return false;
    }
    errno = 0;
    const std::ptrdiff_t n = leggi_(buffer_.data(), buffer_.size());
    if (n > 0) {
        fine_ = std::min(static_cast<std::size_t>(n), buffer_.size());
        return true;
    }
    finito_ = true;
    if (n < 0) errore_ = errno != 0 ? errno : EIO;
    return false;
}

// The line end, applied to the bytes of a whole line: the CR before the LF (or at the
// end of the input) goes, and a line over the limit keeps its beginning only. A line
// is gathered with one byte beyond the limit at most, in case that byte is the CR.
std::string_view LettoreRighe::Chiudi(std::string_view riga, bool& troppoLunga) const {
    if (riga.size() > lunghezzaMassima_ + 1) {
        troppoLunga = true;
        riga = riga.substr(0, lunghezzaMassima_ + 1);
    }
    if (!troppoLunga && !riga.empty() && riga.back() == '\r') riga.remove_suffix(1);
    if (riga.size() > lunghezzaMassima_) {
        troppoLunga = true;
        riga = riga.substr(0, lunghezzaMassima_);
    }
    return riga;
}

bool LettoreRighe::Prossima(std::string_view& riga, bool& troppoLunga) {
    troppoLunga = false;
    if (inizio_ == fine_ && !Riempi()) return false;
    const char* dati = buffer_.data() + inizio_;
    const std::size_t disponibili = fine_ - inizio_;
    if (const auto* lf = static_cast<const char*>(std::memchr(dati, '\n', disponibili))) {
        // The whole line is in the buffer: it is read where it lies.
        const std::size_t lunghezza = static_cast<std::size_t>(lf - dati);
        inizio_ += lunghezza + 1;
        riga = Chiudi(std::string_view(dati, lunghezza), troppoLunga);
        return true;
    }

    // The line goes on past the data read so far.
    spezzata_.clear();
    for (;;) {
        const char* parte = buffer_.data() + inizio_;
        const std::size_t disponibili = fine_ - inizio_;
        const auto* lf = static_cast<const char*>(std::memchr(parte, '\n', disponibili));
        const std::size_t lunghezza = lf != nullptr ? static_cast<std::size_t>(lf - parte) : disponibili;
        const std::size_t spazio = lunghezzaMassima_ + 1 - std::min(spezzata_.size(), lunghezzaMassima_ + 1);
        if (lunghezza > spazio) troppoLunga = true;
        spezzata_.append(parte, std::min(lunghezza, spazio));
        inizio_ += lunghezza;
        if (lf != nullptr) {
            ++inizio_;
            break;
        }
        if (!Riempi()) break;
    }
    if (errore_ != 0) return false;
    riga = Chiudi(spezzata_, troppoLunga);
    return true;
}

bool LettoreRighe::Prossima(std::string& riga, bool& troppoLunga) {
    std::string_view vista;
    if (!Prossima(vista, troppoLunga)) {
        riga.clear();
        return false;
    }
    riga.assign(vista);
    return true;
}

}  // namespace krt
