#include "cycle/configurazione_record.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using krt::Configurazione;
using Record = std::array<std::uint8_t, krt::kDimensioneRecordConfigurazione>;

Configurazione Predefinita() {
    Configurazione c;
    krt::ApplicaPredefiniti(c, "Normal");
    return c;
}

Configurazione Esempio() {
    Configurazione c;
    c.NomeFontHRC.Imposta("Arial");
    c.GrassettoHRC = krt::kVero;
    c.CorsivoHRC = krt::kFalso;
    c.BarratoHRC = krt::kVero;
    c.SottolineatoHRC = krt::kFalso;
    c.DimensioneHRC = 12;
    c.Simbologia.Imposta("Codice 39");
    c.HRC = 1;
    c.CheckDigit = 0;
    c.Dimensione = 0x1234;
    c.Stile.Imposta("Stretto e corto");
    c.CheckDigitInHRC = krt::kVero;
    return c;
}

void Scrivi(Record& r, std::size_t offset, std::string_view testo, std::size_t lunghezza) {
    for (std::size_t i = 0; i < lunghezza; ++i) r[offset + i] = i < testo.size() ? static_cast<std::uint8_t>(testo[i]) : ' ';
}

void Scrivi16(Record& r, std::size_t offset, std::uint16_t valore) {
    r[offset] = static_cast<std::uint8_t>(valore & 0xFF);
    r[offset + 1] = static_cast<std::uint8_t>(valore >> 8);
}

// The record of Esempio(), written by hand at the offsets of the file layout.
Record RecordAMano() {
    Record r{};
    Scrivi(r, 0, "Arial", 128);
    Scrivi16(r, 128, 0xFFFF);
    Scrivi16(r, 130, 0);
    Scrivi16(r, 132, 0xFFFF);
    Scrivi16(r, 134, 0);
    Scrivi16(r, 136, 12);
    Scrivi(r, 138, "Codice 39", 30);
    Scrivi16(r, 168, 1);
    Scrivi16(r, 170, 0);
    Scrivi16(r, 172, 0x1234);
    Scrivi(r, 174, "Stretto e corto", 64);
    Scrivi16(r, 238, 0xFFFF);
    return r;
}

TEST(RecordConfigurazione, ByteAByteNelleDueDirezioni) {
    const Record atteso = RecordAMano();
    const Record scritto = krt::ScriviRecordConfigurazione(Esempio());
    for (std::size_t i = 0; i < atteso.size(); ++i) EXPECT_EQ(scritto[i], atteso[i]) << "offset " << i;
    EXPECT_EQ(scritto[172], 0x34);  // little-endian
    EXPECT_EQ(scritto[173], 0x12);
    EXPECT_EQ(krt::LeggiRecordConfigurazione(atteso, Predefinita()), Esempio());
}

TEST(RecordConfigurazione, TestiTagliatiOCompletatiConSpazi) {
    Configurazione c = Predefinita();
    c.Simbologia.Imposta(std::string(40, 'x'));
    c.Stile.Imposta("\xE9");  // Windows-1252 byte kept as it is
    const Record r = krt::ScriviRecordConfigurazione(c);
    EXPECT_EQ(r[167], 'x');
    EXPECT_EQ(r[168], 0);  // the cut text does not run into HRC
    EXPECT_EQ(r[174], 0xE9);
    EXPECT_EQ(r[175], ' ');
    EXPECT_EQ(r[237], ' ');
    EXPECT_EQ(krt::TestoFisso<8>("  a b ").Rifilato(), "a b");
}

// A record cut after n bytes: the fields wholly inside are read, the others keep the default.
TEST(RecordConfigurazione, FileCorto) {
    const struct {
        std::size_t lunghezza;
        int campiLetti;  // of: font, bold, HRC size, symbology, HRC, size, style, check in HRC
    } casi[] = {{0, 0}, {127, 0}, {129, 1}, {138, 3}, {167, 3}, {174, 6}, {239, 7}, {240, 8}};
    const Record completo = RecordAMano();
    const Configurazione pred = Predefinita(), es = Esempio();
    for (const auto& c : casi) {
        const auto l = krt::LeggiRecordConfigurazione(std::span(completo).first(c.lunghezza), pred);
        const bool letti[] = {l.NomeFontHRC == es.NomeFontHRC, l.GrassettoHRC == es.GrassettoHRC,
                              l.DimensioneHRC == es.DimensioneHRC, l.Simbologia == es.Simbologia, l.HRC == es.HRC,
                              l.Dimensione == es.Dimensione, l.Stile == es.Stile, l.CheckDigitInHRC == es.CheckDigitInHRC};
        for (int i = 0; i < 8; ++i) EXPECT_EQ(letti[i], i < c.campiLetti) << "length " << c.lunghezza << " field " << i;
    }
}

// One field overwritten with an odd value: what the field then reads as.
TEST(RecordConfigurazione, ValoriStrani) {
    const struct {
        const char* nome;
        std::size_t offset;
        std::uint16_t grezzo;
        std::int16_t Configurazione::*campo;
        std::int16_t letto;
    } casi[] = {
        {"bold 1 reads as true", 128, 1, &Configurazione::GrassettoHRC, krt::kVero},
        {"bold 0x8000 reads as true", 128, 0x8000, &Configurazione::GrassettoHRC, krt::kVero},
        {"HRC size 0", 136, 0, &Configurazione::DimensioneHRC, 10},
        {"HRC size 1638", 136, 1638, &Configurazione::DimensioneHRC, 1638},
        {"HRC size 1639", 136, 1639, &Configurazione::DimensioneHRC, 10},
        {"HRC box 2", 168, 2, &Configurazione::HRC, 0},
        {"check box 1", 170, 1, &Configurazione::CheckDigit, 1},
        {"size 0", 172, 0, &Configurazione::Dimensione, 100},
        {"size 1", 172, 1, &Configurazione::Dimensione, 1},
        {"size 32767", 172, 0x7FFF, &Configurazione::Dimensione, 32767},
        {"check in HRC 7", 238, 7, &Configurazione::CheckDigitInHRC, krt::kVero},
    };
    for (const auto& c : casi) {
        Record r = krt::ScriviRecordConfigurazione(Predefinita());
        Scrivi16(r, c.offset, c.grezzo);
        EXPECT_EQ(krt::LeggiRecordConfigurazione(r, Predefinita()).*c.campo, c.letto) << c.nome;
    }
}

TEST(RecordConfigurazione, TestiIlleggibiliRestanoPredefiniti) {
    const struct {
        const char* nome;
        std::size_t offset;
        std::string testo;
        std::size_t lunghezza;
    } casi[] = {
        {"font with a NUL", 0, std::string("Ari\0al", 6), 128},
        {"blank font", 0, "", 128},
        {"symbology with a tab", 138, "Code\t39", 30},
        {"style with a line feed", 174, "Normal\n", 64},
    };
    const Configurazione pred = Predefinita();
    for (const auto& c : casi) {
        Record r = krt::ScriviRecordConfigurazione(Esempio());
        Scrivi(r, c.offset, c.testo, c.lunghezza);
        const auto letta = krt::LeggiRecordConfigurazione(r, pred);
        Configurazione attesa = Esempio();
        if (c.offset == 0) attesa.NomeFontHRC = pred.NomeFontHRC;
        if (c.offset == 138) attesa.Simbologia = pred.Simbologia;
        if (c.offset == 174) attesa.Stile = pred.Stile;
        EXPECT_EQ(letta, attesa) << c.nome;
    }
    Record vuoti = krt::ScriviRecordConfigurazione(Esempio());
    Scrivi(vuoti, 138, "", 30);
    EXPECT_EQ(krt::LeggiRecordConfigurazione(vuoti, pred).Simbologia.Rifilato(), "");  // a blank symbology is valid
}

TEST(RecordConfigurazione, SoloIPrimi240ByteContano) {
    std::vector<std::uint8_t> lungo(300, 0xAB);
    const Record r = RecordAMano();
    std::copy(r.begin(), r.end(), lungo.begin());
    EXPECT_EQ(krt::LeggiRecordConfigurazione(lungo, Predefinita()), Esempio());
}

}  // namespace
