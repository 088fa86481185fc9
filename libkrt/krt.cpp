// The C interface of the engine (see include/krt/krt.h): argument checks, the two text
// encodings, and the one place where the engine's exceptions become statuses.
#include "krt/krt.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "barcodes/catalogo.h"
#include "barcodes/codifica.h"
#include "barcodes/errori.h"
#include "barcodes/isbn.h"
#include "cycle/motivi.h"
#include "cycle/voce.h"
#include "gs1/composizione_ai.h"
#include "gs1/validazione_ai.h"
#include "text/codifica_testo.h"

struct krt_result {
    int stato = KRT_OK;
    unsigned flag = 0;
    std::string testi[KRT_FIELD_REASON + 1];
    krt_reason motivo{};
};

namespace {

using namespace krt;

// Longest content taken, as krt-encode takes it: beyond it a content is refused.
constexpr std::size_t LunghezzaMassima = 4096;

// Storage reused by every call of a thread, so that encoding one content after another
// allocates nothing once the strings have grown.
struct Spazio {
    std::string contenuto;
    std::string glifi;
    std::string utf8;
    std::string errore;
};
thread_local Spazio spazio;

// Runs the body and turns whatever it throws into a status.
template <class Corpo>
int AlConfine(Corpo&& corpo) noexcept {
    try {
        return corpo();
    } catch (const EscapeNonValido&) {
        return KRT_BAD_ESCAPE;
    } catch (const OverflowCheckSum&) {
        return KRT_CHECKSUM_OVERFLOW;
    } catch (const IntervalloNonValido&) {
        return KRT_OUT_OF_RANGE;
    } catch (const std::bad_alloc&) {
        return KRT_OUT_OF_MEMORY;
    } catch (...) {
        return KRT_INTERNAL_ERROR;
    }
}

void Svuota(char* buffer, std::size_t size, std::size_t* written) {
    if (buffer != nullptr && size > 0) buffer[0] = '\0';
    if (written != nullptr) *written = 0;
}

int Scrivi(std::string_view testo, char* buffer, std::size_t size, std::size_t* written) {
    if (written != nullptr) *written = testo.size();
    if (testo.size() >= size) {
        if (size > 0) buffer[0] = '\0';
        return KRT_BUFFER_TOO_SMALL;
    }
    std::memcpy(buffer, testo.data(), testo.size());
    buffer[testo.size()] = '\0';
    return KRT_OK;
}

std::string_view Contenuto(const char* content, std::size_t length) {
    return {content, length == KRT_NUL_TERMINATED ? std::strlen(content) : length};
}

// The text in the output encoding of the flags.
std::string InUscita(std::string_view byte, unsigned flags) {
    if ((flags & KRT_UTF8) == 0) return std::string(byte);
    std::string utf8;
    AccodaCp1252InUtf8(utf8, byte);
    return utf8;
}

bool Italiano(unsigned flags) { return (flags & KRT_ITALIAN) != 0; }

// A reason whose text is given in UTF-8 (the texts of the string table are).
void ScriviMotivo(krt_reason& motivo, int tipo, std::size_t posizione, unsigned char carattere,
                  std::string_view utf8, unsigned flags) {
    motivo.kind = tipo;
    motivo.position = posizione;
    motivo.character = carattere;
    std::string t;
    std::string errore;
    if ((flags & KRT_UTF8) != 0 || !Utf8InCp1252(utf8, t, errore)) t.assign(utf8);
    std::size_t n = std::min(t.size(), sizeof motivo.text - 1);
    // A text cut short ends on a whole character.
    if (n < t.size() && (flags & KRT_UTF8) != 0)
        while (n > 0 && (static_cast<unsigned char>(t[n]) & 0xC0) == 0x80) --n;
    std::memcpy(motivo.text, t.data(), n);
    motivo.text[n] = '\0';
}

std::string InMaiuscolo(std::string_view codice) {
    std::string m(codice);
    for (char& c : m)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return m;
}

// The engine's reason for a code, with its text in the language of the flags.
void ScriviRifiuto(krt_reason& motivo, const Rifiuto& rifiuto, std::string_view codice, unsigned flags) {
    ScriviMotivo(motivo, static_cast<int>(rifiuto.motivo), rifiuto.posizione,
                 static_cast<unsigned char>(rifiuto.carattere),
                 TestoRifiuto(rifiuto, InMaiuscolo(codice), Italiano(flags) ? 1000 : 0), flags);
    motivo.minimum = rifiuto.minimo;
    motivo.maximum = rifiuto.massimo;
}

// Content in Windows-1252 into uscita: KRT_OK, KRT_INVALID_ARGUMENT for malformed UTF-8, or
// KRT_REFUSED (*rifiuto set) for a character without a Windows-1252 code.
int InIngresso(std::string_view testo, unsigned flags, std::string& uscita, Rifiuto& rifiuto) {
    if ((flags & KRT_UTF8) == 0) {
        uscita.assign(testo);
        return KRT_OK;
    }
    std::string& errore = spazio.errore;
    if (Utf8InCp1252(testo, uscita, errore)) return KRT_OK;
    if (!Utf8BenFormato(testo)) return KRT_INVALID_ARGUMENT;
    // The characters converted before the one that failed give its position.
    rifiuto = Rifiuto::InCarattere(uscita.size() + 1, 0);
    return KRT_REFUSED;
}

bool CodiceNoto(std::string_view codice) { return TrovaVocePerCodice(codice) != nullptr; }

// krt_encode into spazio.glifi; the reason, when asked, for refusals and faults.
int Codifica(const char* symbology, const char* content, std::size_t length, unsigned flags, krt_reason* motivo) {
    Spazio& s = spazio;
    const std::string_view codice(symbology);
    Rifiuto rifiuto;
    const int stato = InIngresso(Contenuto(content, length), flags, s.contenuto, rifiuto);
    if (stato == KRT_OK && s.contenuto.size() > LunghezzaMassima)
        rifiuto = Rifiuto::DiLunghezza(1, LunghezzaMassima);
    if (stato == KRT_OK && !rifiuto) {
        try {
            rifiuto = CodificaBarcode(s.contenuto, codice, (flags & KRT_CHECK) != 0, s.glifi);
        } catch (const std::exception& guasto) {
            if (motivo != nullptr && RifiutoDaGuasto(guasto)) ScriviRifiuto(*motivo, RifiutoDaGuasto(guasto), codice, flags);
            throw;
        }
        if (!rifiuto) return s.glifi.empty() ? KRT_UNKNOWN_SYMBOLOGY : KRT_OK;
    }
    if (stato == KRT_INVALID_ARGUMENT) return stato;
    if (!CodiceNoto(codice)) return KRT_UNKNOWN_SYMBOLOGY;
    if (motivo != nullptr) ScriviRifiuto(*motivo, rifiuto, codice, flags);
    return KRT_REFUSED;
}

krt_result* NuovoRisultato() { return new (std::nothrow) krt_result; }

// Fills the result of a cycle on an entry.
void RiempiVoce(krt_result& r, const GenerazioneVoce& g, std::string_view contenuto, unsigned flags) {
    r.stato = KRT_OK;
    r.flag = (flags & KRT_UTF8) | (g.check ? KRT_CHECK : 0u);
    r.testi[KRT_FIELD_GLYPHS] = InUscita(g.glifi, flags);
    r.testi[KRT_FIELD_CODE] = g.codice;
    r.testi[KRT_FIELD_MAIN] = InUscita(g.parti.principale, flags);
    r.testi[KRT_FIELD_ADDON] = InUscita(g.parti.addOn, flags);
    r.testi[KRT_FIELD_FAMILY] = InUscita(g.famiglia, flags);
    r.testi[KRT_FIELD_HRC] = InUscita(g.hrc, flags);
    r.testi[KRT_FIELD_CONTENT] = InUscita(contenuto, flags);
}

// A refused result: no texts but the code and the reason's.
int Rifiuta(krt_result& r, int stato = KRT_REFUSED) {
    const std::string codice = std::move(r.testi[KRT_FIELD_CODE]);
    for (auto& t : r.testi) t.clear();
    r.testi[KRT_FIELD_CODE] = codice;
    r.testi[KRT_FIELD_REASON] = r.motivo.text;
    r.stato = stato;
    return stato;
}

int StatoDaGuasto(const Rifiuto& guasto) {
    switch (guasto.motivo) {
        case MotivoRifiuto::Escape: return KRT_BAD_ESCAPE;
        case MotivoRifiuto::Overflow: return KRT_CHECKSUM_OVERFLOW;
        case MotivoRifiuto::Intervallo: return KRT_OUT_OF_RANGE;
        default: return KRT_INTERNAL_ERROR;
    }
}

// The cycle of an entry on a content already in Windows-1252; the caller owns r.
int GeneraRisultato(const VoceCatalogo& voce, const std::string& contenuto, unsigned flags, const char* style,
                    std::string_view testoHRC, krt_result& r) {
    std::string stile = "Normal";
    Rifiuto rifiuto;
    if (style != nullptr && InIngresso(style, flags & KRT_UTF8, stile, rifiuto) != KRT_OK)
        return KRT_INVALID_ARGUMENT;
    r.testi[KRT_FIELD_CODE] = std::string(voce.codice);
    if (contenuto.size() > LunghezzaMassima) {
        ScriviRifiuto(r.motivo, Rifiuto::DiLunghezza(1, LunghezzaMassima), voce.codice, flags);
        return Rifiuta(r);
    }
    const OpzioniVoce opzioni{(flags & KRT_CHECK) != 0, (flags & KRT_HRC) != 0, (flags & KRT_CHECK_IN_HRC) != 0,
                              stile, testoHRC};
    GenerazioneVoce g;
    try {
        g = GeneraVoce(voce, contenuto, opzioni);
    } catch (const std::exception& guasto) {
        // A fault of the engine: its status, and the reason it stands for.
        const Rifiuto comeRifiuto = RifiutoDaGuasto(guasto);
        if (!comeRifiuto) throw;
        ScriviRifiuto(r.motivo, comeRifiuto, voce.codice, flags);
        return Rifiuta(r, StatoDaGuasto(comeRifiuto));
    }
    if (!g.accettato) {
        ScriviRifiuto(r.motivo, g.rifiuto ? g.rifiuto : Rifiuto::Di(MotivoRifiuto::Struttura), voce.codice, flags);
        return Rifiuta(r);
    }
    RiempiVoce(r, g, contenuto, flags);
    return KRT_OK;
}

// Runs a body that fills a new result; *result gets it for every status but
// KRT_UNKNOWN_SYMBOLOGY, KRT_INVALID_ARGUMENT and the library's own failures.
template <class Corpo>
int ConRisultato(krt_result** result, Corpo&& corpo) noexcept {
    if (result == nullptr) return KRT_INVALID_ARGUMENT;
    *result = nullptr;
    krt_result* r = NuovoRisultato();
    if (r == nullptr) return KRT_OUT_OF_MEMORY;
    const int stato = AlConfine([&] { return corpo(*r); });
    if (stato == KRT_OK || stato == KRT_REFUSED || stato == KRT_BAD_ESCAPE || stato == KRT_CHECKSUM_OVERFLOW ||
        stato == KRT_OUT_OF_RANGE) {
        *result = r;
    } else {
        delete r;
    }
    return stato;
}

// GS1-128: the checked lines composed and encoded as the EAN 128 entry.
int CodificaGS1(const EsitoRigheAI& esito, std::size_t posizione, unsigned flags, const char* style,
                krt_result& r) {
    const VoceCatalogo* voce = TrovaVocePerCodice("E128");
    if (!esito.errore.empty()) {
        int tipo = KRT_REASON_STRUCTURE;
        if (esito.idMessaggio == MessaggioLunghezzaErrata) tipo = KRT_REASON_LENGTH;
        if (esito.idMessaggio == MessaggioCodiceVuoto) tipo = KRT_REASON_EMPTY;
        ScriviMotivo(r.motivo, tipo, posizione, 0, esito.errore, flags);
        r.testi[KRT_FIELD_CODE] = "E128";
        return Rifiuta(r);
    }
    const CodiceComposto codice = ComponiCodiceAI(esito.righe);
    const int stato = GeneraRisultato(*voce, codice.contenuto, flags, style, codice.hrc, r);
    if (stato == KRT_OK) r.testi[KRT_FIELD_HRC] = InUscita(codice.hrc, flags);
    return stato;
}

// ISBN reasons in both languages.
struct TestoISBN {
    int tipo;
    const char* inglese;
    const char* italiano;
};
constexpr TestoISBN TestiISBN[] = {
    {KRT_REASON_EMPTY, "empty ISBN", "ISBN vuoto"},
    {KRT_REASON_LENGTH, "an ISBN has 10 or 13 characters", "un ISBN ha 10 o 13 caratteri"},
    {KRT_REASON_CHARACTER, "character not allowed in an ISBN", "carattere non ammesso in un ISBN"},
    {KRT_REASON_STRUCTURE, "wrong ISBN-10 check character", "carattere di controllo ISBN-10 errato"},
    {KRT_REASON_STRUCTURE, "wrong ISBN-13 check digit", "cifra di controllo ISBN-13 errata"},
};

// 1-based position, in the text as typed, of the first character an ISBN cannot hold.
std::size_t PosizioneNonValida(std::string_view testo) {
    std::size_t cifre = 0;
    for (const char c : testo)
        if (c != '-' && c != ' ') ++cifre;
    std::size_t n = 0;
    for (std::size_t i = 0; i < testo.size(); ++i) {
        const char c = testo[i];
        if (c == '-' || c == ' ') continue;
        const bool x = (c == 'X' || c == 'x') && cifre == 10 && n == 9;
        if (!(c >= '0' && c <= '9') && !x) return i + 1;
        ++n;
    }
    return 0;
}

}  // namespace

extern "C" {

int KRT_CALL krt_encode(const char* symbology, const char* content, size_t length, unsigned flags, char* glyphs,
               size_t size, size_t* written) {
    if (symbology == nullptr || content == nullptr || (glyphs == nullptr && size > 0)) {
        Svuota(glyphs, size, written);
        return KRT_INVALID_ARGUMENT;
    }
    const int stato = AlConfine([&]() -> int {
        const int esito = Codifica(symbology, content, length, flags, nullptr);
        if (esito != KRT_OK) return esito;
        if ((flags & KRT_UTF8) == 0) return Scrivi(spazio.glifi, glyphs, size, written);
        spazio.utf8.clear();
        AccodaCp1252InUtf8(spazio.utf8, spazio.glifi);
        return Scrivi(spazio.utf8, glyphs, size, written);
    });
    if (stato != KRT_OK && stato != KRT_BUFFER_TOO_SMALL) Svuota(glyphs, size, written);
    return stato;
}

const char* KRT_CALL krt_strerror(int status) {
    switch (status) {
        case KRT_OK: return "success";
        case KRT_REFUSED: return "content not allowed for the symbology";
        case KRT_UNKNOWN_SYMBOLOGY: return "unknown symbology";
        case KRT_BUFFER_TOO_SMALL: return "buffer too small";
        case KRT_BAD_ESCAPE: return "invalid escape sequence";
        case KRT_CHECKSUM_OVERFLOW: return "check sum overflow";
        case KRT_OUT_OF_RANGE: return "value out of range";
        case KRT_INVALID_ARGUMENT: return "invalid argument";
        case KRT_OUT_OF_MEMORY: return "out of memory";
        case KRT_INTERNAL_ERROR: return "internal error";
        default: return "unknown status";
    }
}

const char* KRT_CALL krt_version(void) { return KRT_VERSION; }

int KRT_CALL krt_explain(const char* symbology, const char* content, size_t length, unsigned flags, krt_reason* reason) {
    if (symbology == nullptr || content == nullptr || reason == nullptr) return KRT_INVALID_ARGUMENT;
    *reason = krt_reason{};
    return AlConfine([&] { return Codifica(symbology, content, length, flags, reason); });
}

int KRT_CALL krt_entry_encode(const char* name, const char* content, size_t length, unsigned flags, const char* style,
                     krt_result** result) {
    if (name == nullptr || content == nullptr) {
        if (result != nullptr) *result = nullptr;
        return KRT_INVALID_ARGUMENT;
    }
    return ConRisultato(result, [&](krt_result& r) -> int {
        const VoceCatalogo* voce = TrovaVocePerNome(name);
        if (voce == nullptr) voce = TrovaVocePerCodice(name);
        if (voce == nullptr) return KRT_UNKNOWN_SYMBOLOGY;
        std::string contenuto;
        Rifiuto rifiuto;
        const int stato = InIngresso(Contenuto(content, length), flags, contenuto, rifiuto);
        if (stato == KRT_REFUSED) {
            r.testi[KRT_FIELD_CODE] = std::string(voce->codice);
            ScriviRifiuto(r.motivo, rifiuto, voce->codice, flags);
            return Rifiuta(r);
        }
        if (stato != KRT_OK) return stato;
        return GeneraRisultato(*voce, contenuto, flags, style, {}, r);
    });
}

int KRT_CALL krt_gs1_encode(const char* const* ais, const char* const* values, size_t count, unsigned flags,
                   const char* style, krt_result** result) {
    if ((count > 0 && (ais == nullptr || values == nullptr))) {
        if (result != nullptr) *result = nullptr;
        return KRT_INVALID_ARGUMENT;
    }
    for (size_t i = 0; i < count; ++i) {
        if (ais[i] == nullptr || values[i] == nullptr) {
            if (result != nullptr) *result = nullptr;
            return KRT_INVALID_ARGUMENT;
        }
    }
    return ConRisultato(result, [&](krt_result& r) -> int {
        std::vector<std::pair<std::string, std::string>> coppie;
        coppie.reserve(count);
        for (size_t i = 0; i < count; ++i) {
            std::string valore;
            Rifiuto rifiuto;
            const int stato = InIngresso(values[i], flags, valore, rifiuto);
            if (stato == KRT_REFUSED) {
                ScriviRifiuto(r.motivo, rifiuto, "E128", flags);
                r.motivo.position = i + 1;
                r.testi[KRT_FIELD_CODE] = "E128";
                return Rifiuta(r);
            }
            if (stato != KRT_OK) return stato;
            coppie.emplace_back(ais[i], std::move(valore));
        }
        const EsitoRigheAI esito = PreparaRigheAI(coppie);
        // The refused pair: the first that is refused alone.
        std::size_t posizione = 0;
        if (!esito.errore.empty()) {
            for (std::size_t i = 0; i < coppie.size() && posizione == 0; ++i)
                if (!PreparaRigheAI({coppie[i]}).errore.empty()) posizione = i + 1;
        }
        return CodificaGS1(esito, posizione, flags, style, r);
    });
}

int KRT_CALL krt_gs1_encode_text(const char* text, size_t length, unsigned flags, const char* style, krt_result** result) {
    if (text == nullptr) {
        if (result != nullptr) *result = nullptr;
        return KRT_INVALID_ARGUMENT;
    }
    return ConRisultato(result, [&](krt_result& r) -> int {
        std::string riga;
        Rifiuto rifiuto;
        const int stato = InIngresso(Contenuto(text, length), flags, riga, rifiuto);
        if (stato == KRT_REFUSED) {
            ScriviRifiuto(r.motivo, rifiuto, "E128", flags);
            r.testi[KRT_FIELD_CODE] = "E128";
            return Rifiuta(r);
        }
        if (stato != KRT_OK) return stato;
        return CodificaGS1(LeggiRigaGS1(riga), 0, flags, style, r);
    });
}

int KRT_CALL krt_result_status(const krt_result* result) { return result == nullptr ? KRT_INVALID_ARGUMENT : result->stato; }

unsigned KRT_CALL krt_result_flags(const krt_result* result) { return result == nullptr ? 0u : result->flag; }

const char* KRT_CALL krt_result_text(const krt_result* result, int field, size_t* length) {
    if (result == nullptr || field < 0 || field > KRT_FIELD_REASON) {
        if (length != nullptr) *length = 0;
        return "";
    }
    const std::string& t = result->testi[field];
    if (length != nullptr) *length = t.size();
    return t.c_str();
}

int KRT_CALL krt_result_copy(const krt_result* result, int field, char* buffer, size_t size, size_t* written) {
    if (result == nullptr || field < 0 || field > KRT_FIELD_REASON || (buffer == nullptr && size > 0)) {
        Svuota(buffer, size, written);
        return KRT_INVALID_ARGUMENT;
    }
    return Scrivi(result->testi[field], buffer, size, written);
}

int KRT_CALL krt_result_reason(const krt_result* result, krt_reason* reason) {
    if (result == nullptr || reason == nullptr) return KRT_INVALID_ARGUMENT;
    *reason = result->motivo;
    return KRT_OK;
}

void KRT_CALL krt_result_free(krt_result* result) { delete result; }

int KRT_CALL krt_isbn_convert(const char* isbn, size_t length, unsigned flags, char* out, size_t size, size_t* written,
                     krt_reason* reason) {
    if (reason != nullptr) *reason = krt_reason{};
    if (isbn == nullptr || (out == nullptr && size > 0)) {
        Svuota(out, size, written);
        return KRT_INVALID_ARGUMENT;
    }
    const int stato = AlConfine([&]() -> int {
        const std::string_view testo = Contenuto(isbn, length);
        std::string isbn10, isbn13;
        const int esito = ConvertiISBN(testo, isbn10, isbn13);
        if (esito == 0) return Scrivi((flags & KRT_ISBN13) != 0 ? isbn13 : isbn10, out, size, written);
        if (reason != nullptr && esito >= -5 && esito <= -1) {
            const TestoISBN& t = TestiISBN[-esito - 1];
            const std::size_t posizione = t.tipo == KRT_REASON_CHARACTER ? PosizioneNonValida(testo) : 0;
            const unsigned char carattere = posizione > 0 ? static_cast<unsigned char>(testo[posizione - 1]) : 0;
            ScriviMotivo(*reason, t.tipo, posizione, carattere, Italiano(flags) ? t.italiano : t.inglese, 0);
        }
        return KRT_REFUSED;
    });
    if (stato != KRT_OK && stato != KRT_BUFFER_TOO_SMALL) Svuota(out, size, written);
    return stato;
}

int KRT_CALL krt_isbn_complete(const char* digits, size_t length, char* out, size_t size, size_t* written) {
    if (digits == nullptr || (out == nullptr && size > 0)) {
        Svuota(out, size, written);
        return KRT_INVALID_ARGUMENT;
    }
    const int stato = AlConfine([&]() -> int {
        const std::string_view cifre = Contenuto(digits, length);
        if (cifre.size() != 9 && cifre.size() != 12) return KRT_REFUSED;
        for (const char c : cifre)
            if (c < '0' || c > '9') return KRT_REFUSED;
        return Scrivi(CalcolaCheckISBN(cifre), out, size, written);
    });
    if (stato != KRT_OK && stato != KRT_BUFFER_TOO_SMALL) Svuota(out, size, written);
    return stato;
}

}  // extern "C"
