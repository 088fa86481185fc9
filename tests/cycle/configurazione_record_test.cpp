// The options record: its bytes both ways, a short file, and fields holding what the
// program never writes.
#include "cycle/configurazione_record.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace std::literals;
using krt::Configurazione;
using Record = std::array<std::uint8_t, krt::kDimensioneRecordConfigurazione>;

Configurazione Predefinita() {
    Configurazione c;
    krt::ApplicaPredefiniti(c, "Normal");
    return c;
}

const Configurazione Esempio{"Arial"sv, krt::kVero, krt::kFalso, krt::kVero, krt::kFalso, 12, "Codice 39"sv, 1, 0,
                             0x1234, "Stretto e corto"sv, krt::kVero};

std::string Spazi(std::string testo, std::size_t n) { return testo + std::string(n - testo.size(), ' '); }

// The record of Esempio written by hand, field after field.
Record RecordAMano() {
    const std::string byte = Spazi("Arial", 128) + "\xFF\xFF\0\0\xFF\xFF\0\0\x0C\0"s + Spazi("Codice 39", 30) +
                             "\x01\0\0\0\x34\x12"s + Spazi("Stretto e corto", 64) + "\xFF\xFF";
    Record r{};
    EXPECT_EQ(byte.size(), r.size());
    std::copy_n(byte.begin(), r.size(), r.begin());
    return r;
}

Record Scrivi(Record r, std::size_t offset, const std::string& byte) {
    std::copy(byte.begin(), byte.end(), r.begin() + static_cast<std::ptrdiff_t>(offset));
    return r;
}

// Written as by hand; read back, from a longer file whose bytes past 240 do not count.
TEST(RecordConfigurazione, ByteAByteNelleDueDirezioni) {
    const Record atteso = RecordAMano();
    const Record scritto = krt::ScriviRecordConfigurazione(Esempio);
    for (std::size_t i = 0; i < atteso.size(); ++i) EXPECT_EQ(scritto[i], atteso[i]) << "offset " << i;
    std::vector<std::uint8_t> lungo(300, 0x01);
    std::copy(atteso.begin(), atteso.end(), lungo.begin());
    EXPECT_EQ(krt::LeggiRecordConfigurazione(lungo, Predefinita()), Esempio);
    // The first-run values
    EXPECT_EQ(Predefinita(), (Configurazione{"Courier"sv, 0, 0, 0, 0, 10, {}, 0, 0, 100, "Normal"sv, krt::kFalso}));
}

TEST(RecordConfigurazione, TestiTagliatiOCompletatiConSpazi) {
    Configurazione c = Predefinita();
    c.Simbologia.Imposta(std::string(40, 'x'));
    c.Stile.Imposta("\xE9");  // Windows-1252 byte kept as it is
    const Record predefinito = krt::ScriviRecordConfigurazione(Predefinita());
    EXPECT_EQ(krt::ScriviRecordConfigurazione(c),
              Scrivi(Scrivi(predefinito, 138, std::string(30, 'x')), 174, Spazi("\xE9", 64)));
    EXPECT_EQ(krt::TestoFisso<8>("  a b ").Rifilato(), "a b");
}

// A record cut after n bytes: the fields wholly inside are read, the others keep the default.
TEST(RecordConfigurazione, FileCorto) {
    const struct {
        std::size_t lunghezza;
        int campiLetti;  // of: font, bold, HRC size, symbology, HRC, size, style, check in HRC
    } casi[] = {{0, 0}, {127, 0}, {129, 1}, {138, 3}, {167, 3}, {174, 6}, {239, 7}, {240, 8}};
    const Record completo = RecordAMano();
    const Configurazione pred = Predefinita(), es = Esempio;
    for (const auto& c : casi) {
        const auto l = krt::LeggiRecordConfigurazione(std::span(completo).first(c.lunghezza), pred);
        const bool letti[] = {l.NomeFontHRC == es.NomeFontHRC,     l.GrassettoHRC == es.GrassettoHRC,
                              l.DimensioneHRC == es.DimensioneHRC, l.Simbologia == es.Simbologia,
                              l.HRC == es.HRC,                     l.Dimensione == es.Dimensione,
                              l.Stile == es.Stile,                 l.CheckDigitInHRC == es.CheckDigitInHRC};
        for (int i = 0; i < 8; ++i) EXPECT_EQ(letti[i], i < c.campiLetti) << "length " << c.lunghezza << " field " << i;
    }
}

// One field of Esempio overwritten with an odd value: the record then reads as Esempio with
// that field as given (a text that is not a plain text keeps the default).
TEST(RecordConfigurazione, ValoriStrani) {
    const Configurazione pred = Predefinita();
    const struct {
        const char* nome;
        std::size_t offset;
        std::string byte;
        void (*atteso)(Configurazione&, const Configurazione& predefinita);
    } casi[] = {
        {"bold 1 reads as true", 128, "\x01\0"s, [](auto& c, auto&) { c.GrassettoHRC = krt::kVero; }},
        {"italic 0x8000 reads as true", 130, "\0\x80"s, [](auto& c, auto&) { c.CorsivoHRC = krt::kVero; }},
        {"HRC size 0", 136, "\0\0"s, [](auto& c, auto& p) { c.DimensioneHRC = p.DimensioneHRC; }},
        {"HRC size 1638", 136, "\x66\x06"s, [](auto& c, auto&) { c.DimensioneHRC = 1638; }},
        {"HRC size 1639", 136, "\x67\x06"s, [](auto& c, auto& p) { c.DimensioneHRC = p.DimensioneHRC; }},
        {"HRC box 2", 168, "\x02\0"s, [](auto& c, auto& p) { c.HRC = p.HRC; }},
        {"check box 1", 170, "\x01\0"s, [](auto& c, auto&) { c.CheckDigit = 1; }},
        {"size 0", 172, "\0\0"s, [](auto& c, auto& p) { c.Dimensione = p.Dimensione; }},
        {"size 1", 172, "\x01\0"s, [](auto& c, auto&) { c.Dimensione = 1; }},
        {"size 32767", 172, "\xFF\x7F"s, [](auto& c, auto&) { c.Dimensione = 32767; }},
        {"size -1", 172, "\xFF\xFF"s, [](auto& c, auto& p) { c.Dimensione = p.Dimensione; }},
        {"check in HRC 7", 238, "\x07\0"s, [](auto& c, auto&) { c.CheckDigitInHRC = krt::kVero; }},
        {"font with a NUL", 0, "Ari\0al"s, [](auto& c, auto& p) { c.NomeFontHRC = p.NomeFontHRC; }},
        {"blank font", 0, Spazi("", 128), [](auto& c, auto& p) { c.NomeFontHRC = p.NomeFontHRC; }},
        {"blank symbology: valid", 138, Spazi("", 30), [](auto& c, auto&) { c.Simbologia = {}; }},
        {"symbology with a tab", 138, "Code\t39", [](auto& c, auto& p) { c.Simbologia = p.Simbologia; }},
        {"style with a line feed", 174, "Normal\n", [](auto& c, auto& p) { c.Stile = p.Stile; }},
    };
    for (const auto& c : casi) {
        Configurazione attesa = Esempio;
        c.atteso(attesa, pred);
        const Record r = Scrivi(krt::ScriviRecordConfigurazione(Esempio), c.offset, c.byte);
        EXPECT_EQ(krt::LeggiRecordConfigurazione(r, pred), attesa) << c.nome;
    }
}

}  // namespace
