// Streaming input and output of krt-encode: fixed buffers, whatever the number of lines.
#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace krt {

// Reads up to n bytes into dati: the number read, 0 at the end of the input, -1 on a
// fault with errno telling which.
using FunzioneLettura = std::function<std::ptrdiff_t(char* dati, std::size_t n)>;
// Writes up to n bytes of dati: the number written (at least one), -1 on a fault with errno.
using FunzioneScrittura = std::function<std::ptrdiff_t(const char* dati, std::size_t n)>;

// The same on a file descriptor, retrying what a signal interrupts.
FunzioneLettura LetturaDescrittore(int descrittore);
FunzioneScrittura ScritturaDescrittore(int descrittore);

// Writes through a buffer; Scarica writes what is pending. After the first fault nothing
// more is written: the buffer is dropped and Errore keeps the errno of the fault.
class Scrittore {
public:
    explicit Scrittore(FunzioneScrittura scrivi) : scrivi_(std::move(scrivi)) {}
    ~Scrittore() { Scarica(); }
    Scrittore(const Scrittore&) = delete;
    Scrittore& operator=(const Scrittore&) = delete;

    // The buffer to append to; call Forse after each append.
    std::string& Buffer() { return buffer_; }
    void Forse() {
        if (buffer_.size() >= Soglia) Scarica();
    }
    // Appends and writes at once: for the short texts that end a run.
    bool Scrivi(std::string_view testo) {
        buffer_ += testo;
        Scarica();
        return errore_ == 0;
    }
    void Scarica();
    int Errore() const { return errore_; }

private:
    static constexpr std::size_t Soglia = 1 << 16;
    FunzioneScrittura scrivi_;
    std::string buffer_;
    int errore_ = 0;
};

// Reads lines. Before every read that may wait for data it calls primaDiLeggere
// (krt-encode empties its writers there), so a program talking to krt-encode through
// pipes gets each answer as soon as krt-encode needs its next question. When
// primaDiLeggere answers false the input ends there, unread.
class LettoreRighe {
public:
    LettoreRighe(FunzioneLettura leggi, std::size_t lunghezzaMassima, std::function<bool()> primaDiLeggere);

    // The next line without its LF (and a CR just before the LF or at the end of the
    // input); false at the end or on a read fault (see Errore). A line over
    // lunghezzaMassima bytes sets troppoLunga and keeps only its beginning, so memory
    // stays bounded whatever the input.
    bool Prossima(std::string& riga, bool& troppoLunga);
    // The same without a copy: riga views the line inside the reader, valid until the
    // next call.
    bool Prossima(std::string_view& riga, bool& troppoLunga);
    // The errno of a read fault, 0 when the input simply ended. A fault ends the input:
    // the bytes of an unfinished line before it are dropped, not taken as a line.
    int Errore() const { return errore_; }

private:
    bool Riempi();
    std::string_view Chiudi(std::string_view riga, bool& troppoLunga) const;

    FunzioneLettura leggi_;
    std::size_t lunghezzaMassima_;
    std::function<bool()> primaDiLeggere_;
    std::vector<char> buffer_;
    std::string spezzata_;  // a line that runs over the end of buffer_, gathered here
    std::size_t inizio_ = 0;
    std::size_t fine_ = 0;
    bool finito_ = false;
    int errore_ = 0;
};

}  // namespace krt
