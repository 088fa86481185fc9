// Streaming input and output of krt-encode: fixed buffers, whatever the number of lines.
#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace krt {

// Writes to a file descriptor through a buffer; Scarica writes what is pending.
class Scrittore {
public:
    explicit Scrittore(int descrittore) : descrittore_(descrittore) {}
    ~Scrittore() { Scarica(); }
    Scrittore(const Scrittore&) = delete;
    Scrittore& operator=(const Scrittore&) = delete;

    // The buffer to append to; call Forse after each append.
    std::string& Buffer() { return buffer_; }
    void Forse() {
        if (buffer_.size() >= Soglia) Scarica();
    }
    void Scarica();
    bool Errore() const { return errore_; }

private:
    static constexpr std::size_t Soglia = 1 << 16;
    int descrittore_;
    std::string buffer_;
    bool errore_ = false;
};

// Reads lines from a file descriptor. Before every read that may wait for data it calls
// primaDiLeggere (krt-encode empties its writers there), so a program talking to
// krt-encode through pipes gets each answer as soon as krt-encode needs its next question.
class LettoreRighe {
public:
    LettoreRighe(int descrittore, std::size_t lunghezzaMassima, std::function<void()> primaDiLeggere);

    // The next line without its LF (and a CR just before the LF or at the end of the
    // input); false at the end. A line over lunghezzaMassima bytes sets troppoLunga and
    // keeps only its beginning, so memory stays bounded whatever the input.
    bool Prossima(std::string& riga, bool& troppoLunga);
    // The same without a copy: riga views the line inside the reader, valid until the
    // next call.
    bool Prossima(std::string_view& riga, bool& troppoLunga);

private:
    bool Riempi();
    std::string_view Chiudi(std::string_view riga, bool& troppoLunga) const;

    int descrittore_;
    std::size_t lunghezzaMassima_;
    std::function<void()> primaDiLeggere_;
    std::vector<char> buffer_;
    std::string spezzata_;  // a line that runs over the end of buffer_, gathered here
    std::size_t inizio_ = 0;
    std::size_t fine_ = 0;
    bool finito_ = false;
};

}  // namespace krt
