// CSV reading and writing: the awkward files, each read whole and one byte at a time
// (so that every record, quote and CR LF also falls across the reads).
#include "text/csv.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

namespace krt {
namespace {

using Record = std::vector<std::string>;

struct Caso {
    const char* nome;
    std::string ingresso;
    char separatore;  // '\0': detected
    std::vector<Record> record;
    std::vector<std::size_t> righe;  // line of each record
    char separatoreRilevato;
    const char* fineRiga;
    GuastoCsv guasto;
    std::size_t rigaGuasto;
};

const Caso Casi[] = {
    {"plain lines", "a,b\n1,2\n", 0, {{"a", "b"}, {"1", "2"}}, {1, 2}, ',', "\n", GuastoCsv::Nessuno, 0},
    {"crlf and no final line end", "a,b\r\n1,2", 0, {{"a", "b"}, {"1", "2"}}, {1, 2}, ',', "\r\n", GuastoCsv::Nessuno,
     0},
    {"lone cr line ends", "a\r1\r", 0, {{"a"}, {"1"}}, {1, 2}, ',', "\r", GuastoCsv::Nessuno, 0},
    {"quoted delimiter, doubled quote, line breaks inside",
     "id;text\r\n1;\"x;y \"\"q\"\"\r\nz\nw\"\r\n2;\"\"\r\n", 0,
     {{"id", "text"}, {"1", "x;y \"q\"\r\nz\nw"}, {"2", ""}}, {1, 2, 5}, ';', "\r\n", GuastoCsv::Nessuno, 0},
    {"bom skipped, tab detected", "\xEF\xBB\xBFk\tv\tw\nA\t\"1,2\"\t3\n", 0, {{"k", "v", "w"}, {"A", "1,2", "3"}},
     {1, 2}, '\t', "\n", GuastoCsv::Nessuno, 0},
    {"semicolon wins over commas in quotes", "\"a,b,c\";d\n", 0, {{"a,b,c", "d"}}, {1}, ';', "\n",
     GuastoCsv::Nessuno, 0},
    {"single column: comma", "code\nX\n", 0, {{"code"}, {"X"}}, {1, 2}, ',', "\n", GuastoCsv::Nessuno, 0},
    {"given delimiter", "a;b,c\n", ',', {{"a;b", "c"}}, {1}, ',', "\n", GuastoCsv::Nessuno, 0},
    {"empty line, empty fields, trailing delimiter", "a,b\n\n,\nx,\n", 0, {{"a", "b"}, {""}, {"", ""}, {"x", ""}},
     {1, 2, 3, 4}, ',', "\n", GuastoCsv::Nessuno, 0},
    {"quote inside an unquoted field is data", "a\n12\" pipe\n", 0, {{"a"}, {"12\" pipe"}}, {1, 2}, ',', "\n",
     GuastoCsv::Nessuno, 0},
    {"quote not closed: its own line", "a\n1\n\"x\ny\nz", 0, {{"a"}, {"1"}}, {1, 2}, ',', "\n",
     GuastoCsv::VirgoletteAperte, 3},
    {"text after the closing quote", "a,b\n\"x\"y,1\n", 0, {{"a", "b"}}, {1}, ',', "\n", GuastoCsv::DopoVirgolette,
     2},
    {"empty input", "", 0, {}, {}, ',', "", GuastoCsv::Nessuno, 0},
    {"bom only", "\xEF\xBB\xBF", 0, {}, {}, ',', "", GuastoCsv::Nessuno, 0},
    {"record over the bound", "a\n\"" + std::string(LunghezzaMassimaRecordCsv + 10, 'x') + "\"\n", 0, {{"a"}}, {1},
     ',', "\n", GuastoCsv::RecordTroppoLungo, 2},
};

// The fields of one record written in testo.
Record Rileggi(std::string_view testo, char separatore) {
    bool letto = false;
    LettoreCsv lettore(
        [&](char* dati, std::size_t n) -> std::ptrdiff_t {
            if (letto) return 0;
            letto = true;
            n = std::min(n, testo.size());
            std::memcpy(dati, testo.data(), n);
            return static_cast<std::ptrdiff_t>(n);
        },
        separatore);
    std::vector<std::string_view> campi;
    if (!lettore.Prossimo(campi)) return {};
    return Record(campi.begin(), campi.end());
}

class LetturaCsvTest : public ::testing::TestWithParam<Caso> {};

TEST_P(LetturaCsvTest, RecordRigheEGuasto) {
    const Caso& c = GetParam();
    for (const std::size_t passo : {std::size_t{1} << 20, std::size_t{1}}) {
        if (passo == 1 && c.ingresso.size() > 100000) continue;
        SCOPED_TRACE("reads of " + std::to_string(passo) + " bytes");
        std::size_t letti = 0;
        LettoreCsv lettore(
            [&](char* dati, std::size_t n) -> std::ptrdiff_t {
                n = std::min({n, passo, c.ingresso.size() - letti});
                std::memcpy(dati, c.ingresso.data() + letti, n);
                letti += n;
                return static_cast<std::ptrdiff_t>(n);
            },
            c.separatore);
        std::vector<Record> record;
        std::vector<std::size_t> righe;
        std::vector<std::string_view> campi;
        bool fedeli = true;
        while (lettore.Prossimo(campi)) {
            record.emplace_back(campi.begin(), campi.end());
            righe.push_back(lettore.Riga());
            fedeli = fedeli && lettore.GrezzoFedele();
            // A record copied as written reads back as the same fields.
            if (lettore.GrezzoFedele()) {
                EXPECT_EQ(Rileggi(std::string(lettore.Grezzo()) + "\n", lettore.Separatore()), record.back());
            }
        }
        EXPECT_EQ(fedeli, c.nome != std::string_view("quote inside an unquoted field is data"));
        EXPECT_EQ(record, c.record);
        EXPECT_EQ(righe, c.righe);
        EXPECT_EQ(lettore.Separatore(), c.separatoreRilevato);
        EXPECT_EQ(lettore.FineRiga(), c.fineRiga);
        EXPECT_EQ(lettore.Guasto(), c.guasto);
        if (c.guasto != GuastoCsv::Nessuno) {
            EXPECT_EQ(lettore.Riga(), c.rigaGuasto);
        }
        EXPECT_EQ(lettore.ConBom(), c.ingresso.starts_with("\xEF\xBB\xBF"));
        EXPECT_EQ(lettore.ErroreLettura(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Casi, LetturaCsvTest, ::testing::ValuesIn(Casi), [](const auto& info) {
    std::string nome;
    for (const char* p = info.param.nome; *p; ++p) nome += std::isalnum(static_cast<unsigned char>(*p)) ? *p : '_';
    return nome;
});

// What the writer quotes reads back as it was, whatever the delimiter.
TEST(ScritturaCsv, QuotaSoloIlNecessarioEToraIndietro) {
    const std::vector<std::string> campi = {"plain", "a,b", "a;b", "a\tb", "say \"hi\"", "two\r\nlines", "", " sp "};
    for (const char sep : {',', ';', '\t'}) {
        SCOPED_TRACE(std::string("delimiter ") + (sep == '\t' ? "tab" : std::string(1, sep)));
        std::string testo;
        for (std::size_t i = 0; i < campi.size(); ++i) {
            if (i != 0) testo += sep;
            AccodaCampoCsv(testo, campi[i], sep);
        }
        EXPECT_EQ(testo.find("\"plain\""), std::string::npos);
        EXPECT_EQ(testo.find("\" sp \""), std::string::npos);
        EXPECT_EQ(Rileggi(testo, sep), campi);
    }
}

TEST(ColonnaCsv, PerNomeONumero) {
    const std::vector<std::string_view> intestazione = {"ISBN", "2", "Title"};
    struct Riga {
        const char* testo;
        std::size_t indice;
    } const righe[] = {{"ISBN", 0}, {"title", 2}, {"2", 1}, {"3", 2}, {"4", std::string_view::npos},
                       {"0", std::string_view::npos}, {"Price", std::string_view::npos}};
    for (const auto& r : righe) EXPECT_EQ(RisolviColonnaCsv(intestazione, r.testo), r.indice) << r.testo;
}

TEST(LetturaCsvTest, GuastoDiLettura) {
    LettoreCsv lettore([](char*, std::size_t) -> std::ptrdiff_t {
        errno = EIO;
        return -1;
    });
    std::vector<std::string_view> campi;
    EXPECT_FALSE(lettore.Prossimo(campi));
    EXPECT_EQ(lettore.ErroreLettura(), EIO);
}

}  // namespace
}  // namespace krt
