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
struct Troncato {
    std::size_t lunghezza;
    bool font, grassetto, dimensioneHRC, simbologia, hrc, dimensione, stile, checkInHRC;
};

TEST(RecordConfigurazione, FileCorto) {
    const Troncato casi[] = {
        {0, false, false, false, false, false, false, false, false},
        {127, false, false, false, false, false, false, false, false},
        {128, true, false, false, false, false, false, false, false},
        {129, true, false, false, false, false, false, false, false},
        {138, true, true, true, false, false, false, false, false},
        {167, true, true, true, false, false, false, false, false},
        {174, true, true, true, true, true, true, false, false},
        {238, true, true, true, true, true, true, true, false},
        {239, true, true, true, true, true, true, true, false},
        {240, true, true, true, true, true, true, true, true},
    };
    const Record completo = RecordAMano();
    const Configurazione pred = Predefinita();
    const Configurazione es = Esempio();
    for (const auto& c : casi) {
        const auto letta = krt::LeggiRecordConfigurazione(std::span(completo).first(c.lunghezza), pred);
        EXPECT_EQ(letta.NomeFontHRC, c.font ? es.NomeFontHRC : pred.NomeFontHRC) << c.lunghezza;
        EXPECT_EQ(letta.GrassettoHRC, c.grassetto ? es.GrassettoHRC : pred.GrassettoHRC) << c.lunghezza;
        EXPECT_EQ(letta.DimensioneHRC, c.dimensioneHRC ? es.DimensioneHRC : pred.DimensioneHRC) << c.lunghezza;
        EXPECT_EQ(letta.Simbologia, c.simbologia ? es.Simbologia : pred.Simbologia) << c.lunghezza;
        EXPECT_EQ(letta.HRC, c.hrc ? es.HRC : pred.HRC) << c.lunghezza;
        EXPECT_EQ(letta.Dimensione, c.dimensione ? es.Dimensione : pred.Dimensione) << c.lunghezza;
        EXPECT_EQ(letta.Stile, c.stile ? es.Stile : pred.Stile) << c.lunghezza;
        EXPECT_EQ(letta.CheckDigitInHRC, c.checkInHRC ? es.CheckDigitInHRC : pred.CheckDigitInHRC) << c.lunghezza;
    }
}

// One field overwritten with an odd value: what the field then reads as.
struct Valore {
    const char* nome;
    std::size_t offset;
    std::uint16_t grezzo;
    std::int16_t Configurazione::*campo;
    std::int16_t letto;
};

TEST(RecordConfigurazione, ValoriStrani) {
    const Valore casi[] = {
        {"bold 1 reads as true", 128, 1, &Configurazione::GrassettoHRC, krt::kVero},
        {"bold 0x8000 reads as true", 128, 0x8000, &Configurazione::GrassettoHRC, krt::kVero},
        {"strike 0", 132, 0, &Configurazione::BarratoHRC, krt::kFalso},
        {"HRC size 0", 136, 0, &Configurazione::DimensioneHRC, 10},
        {"HRC size -5", 136, 0xFFFB, &Configurazione::DimensioneHRC, 10},
        {"HRC size 1638", 136, 1638, &Configurazione::DimensioneHRC, 1638},
        {"HRC size 1639", 136, 1639, &Configurazione::DimensioneHRC, 10},
        {"HRC box 2", 168, 2, &Configurazione::HRC, 0},
        {"HRC box -1", 168, 0xFFFF, &Configurazione::HRC, 0},
        {"check box 1", 170, 1, &Configurazione::CheckDigit, 1},
        {"size 0", 172, 0, &Configurazione::Dimensione, 100},
        {"size -100", 172, 0xFF9C, &Configurazione::Dimensione, 100},
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

struct TestoStrano {
    const char* nome;
    std::size_t offset;
    std::string testo;
    std::size_t lunghezza;
};

TEST(RecordConfigurazione, TestiIlleggibiliRestanoPredefiniti) {
    const TestoStrano casi[] = {
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
