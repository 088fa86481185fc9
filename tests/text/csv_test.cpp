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

// A reader of testo that hands out at most passo bytes a read.
LettoreCsv Lettore(std::string_view testo, char separatore, std::size_t passo = SIZE_MAX) {
    return LettoreCsv(
        [testo, passo](char* dati, std::size_t n) mutable -> std::ptrdiff_t {
            n = std::min({n, passo, testo.size()});
            std::memcpy(dati, testo.data(), n);
            testo.remove_prefix(n);
            return static_cast<std::ptrdiff_t>(n);
        },
        separatore);
}

// The records read, each as "line:field|field/" ("~" instead of "/" when it is not written as
// the writer writes it).
std::string Letti(LettoreCsv& lettore) {
    std::string letti;
    std::vector<std::string_view> campi;
    while (lettore.Prossimo(campi)) {
        letti += std::to_string(lettore.Riga()) + ":";
        for (std::size_t i = 0; i < campi.size(); ++i) letti += (i ? "|" : "") + std::string(campi[i]);
        letti += lettore.GrezzoFedele() ? "/" : "~";
        // A record copied as written reads back as the same fields.
        if (lettore.GrezzoFedele()) {
            const std::string grezzo = std::string(lettore.Grezzo()) + "\n";
            LettoreCsv copia = Lettore(grezzo, lettore.Separatore());
            std::vector<std::string_view> riletti;
            EXPECT_TRUE(copia.Prossimo(riletti));
            EXPECT_TRUE(std::equal(campi.begin(), campi.end(), riletti.begin(), riletti.end()));
        }
    }
    return letti;
}

struct Caso {
    const char* nome;
    std::string ingresso, letti;
    char separatore;
    const char* fineRiga;
    GuastoCsv guasto = GuastoCsv::Nessuno;
    std::size_t rigaGuasto = 0;
    char dato = '\0';  // the delimiter given; '\0': detected
};

const Caso Casi[] = {
    {"plain lines", "a,b\n1,2\n", "1:a|b/2:1|2/", ',', "\n"},
    {"crlf and no final line end", "a,b\r\n1,2", "1:a|b/2:1|2/", ',', "\r\n"},
    {"lone cr line ends", "a\r1\r", "1:a/2:1/", ',', "\r"},
    {"quoted delimiter, doubled quote, line breaks inside", "id;text\r\n1;\"x;y \"\"q\"\"\r\nz\nw\"\r\n2;\"\"\r\n",
     "1:id|text/2:1|x;y \"q\"\r\nz\nw/5:2|/", ';', "\r\n"},
    {"bom skipped, tab detected", "\xEF\xBB\xBFk\tv\tw\nA\t\"1,2\"\t3\n", "1:k|v|w/2:A|1,2|3/", '\t', "\n"},
    {"semicolon wins over commas in quotes", "\"a,b,c\";d\n", "1:a,b,c|d/", ';', "\n"},
    {"single column: comma", "code\nX\n", "1:code/2:X/", ',', "\n"},
    {"given delimiter", "a;b,c\n", "1:a;b|c/", ',', "\n", GuastoCsv::Nessuno, 0, ','},
    {"empty line, empty fields, trailing delimiter", "a,b\n\n,\nx,\n", "1:a|b/2:/3:|/4:x|/", ',', "\n"},
    {"quote inside an unquoted field is data", "a\n12\" pipe\n", "1:a/2:12\" pipe~", ',', "\n"},
    {"stray quote in the header: delimiter still found", "5\" pipe;x\n1;2\n", "1:5\" pipe|x~2:1|2/", ';', "\n"},
    {"bom then a quoted header with a line break", "\xEF\xBB\xBF\"a\nb\";c\n1;2\n", "1:a\nb|c/3:1|2/", ';', "\n"},
    {"quote not closed: its own line", "a\n1\n\"x\ny\nz", "1:a/2:1/", ',', "\n", GuastoCsv::VirgoletteAperte, 3},
    {"text after the closing quote", "a,b\n\"x\"y,1\n", "1:a|b/", ',', "\n", GuastoCsv::DopoVirgolette, 2},
    {"empty input", "", "", ',', ""},
    {"bom only", "\xEF\xBB\xBF", "", ',', ""},
    {"record over the bound", "a\n\"" + std::string(LunghezzaMassimaRecordCsv + 10, 'x') + "\"\n", "1:a/", ',', "\n",
     GuastoCsv::RecordTroppoLungo, 2},
};

void PrintTo(const Caso& c, std::ostream* os) { *os << c.nome; }

class LetturaCsvTest : public ::testing::TestWithParam<Caso> {};

TEST_P(LetturaCsvTest, RecordRigheEGuasto) {
    const Caso& c = GetParam();
    for (const std::size_t passo : {std::size_t{1} << 20, std::size_t{1}}) {
        if (passo == 1 && c.ingresso.size() > 100000) continue;
        SCOPED_TRACE("reads of " + std::to_string(passo) + " bytes");
        LettoreCsv lettore = Lettore(c.ingresso, c.dato, passo);
        EXPECT_EQ(Letti(lettore), c.letti);
        EXPECT_EQ(std::tuple(lettore.Separatore(), lettore.FineRiga(), lettore.Guasto(), lettore.ErroreLettura()),
                  std::tuple(c.separatore, std::string_view(c.fineRiga), c.guasto, 0));
        if (c.guasto != GuastoCsv::Nessuno)
            EXPECT_EQ(lettore.Riga(), c.rigaGuasto);
        else
            EXPECT_EQ(lettore.ByteLetti(), c.ingresso.size());
        EXPECT_EQ(lettore.ConBom(), c.ingresso.starts_with("\xEF\xBB\xBF"));
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
        LettoreCsv lettore = Lettore(testo, sep);
        EXPECT_EQ(Letti(lettore), "1:plain|a,b|a;b|a\tb|say \"hi\"|two\r\nlines|| sp /");
    }
}

TEST(ColonnaCsv, PerNomeONumero) {
    const std::vector<std::string_view> intestazione = {"ISBN", "2", "Title"};
    struct Riga {
        const char* testo;
        std::size_t indice;
    } const righe[] = {{"ISBN", 0}, {"title", 2}, {"1", 0}, {"2", 1}, {"3", 2}, {"4", std::string_view::npos},
                       {"0", std::string_view::npos}, {"12", std::string_view::npos},
                       {"Price", std::string_view::npos}};
    for (const auto& r : righe) EXPECT_EQ(RisolviColonnaCsv(intestazione, r.testo), r.indice) << r.testo;
}

// A read fault is kept; an input stopped before a read stays stopped.
TEST(LetturaCsvTest, GuastoOInterruzioneDiLettura) {
    LettoreCsv guasto([](char*, std::size_t) -> std::ptrdiff_t {
        errno = EIO;
        return -1;
    });
    std::vector<std::string_view> campi;
    EXPECT_FALSE(guasto.Prossimo(campi));
    EXPECT_EQ(guasto.ErroreLettura(), EIO);
    int domande = 0;
    const auto sempreA = [](char* dati, std::size_t) -> std::ptrdiff_t {
        *dati = 'a';
        return 1;
    };
    LettoreCsv fermato(sempreA, ',', [&] { return ++domande > 1; });
    EXPECT_FALSE(fermato.Prossimo(campi));
    EXPECT_FALSE(fermato.Prossimo(campi));
    EXPECT_EQ(domande, 1);
}

}  // namespace
}  // namespace krt
