// Sheets of labels: which sheets have cells, where label i goes (across, down, next page),
// symbols centred on whole dots.
#include "cycle/etichette.h"

#include <gtest/gtest.h>

#include <cmath>

namespace krt {
namespace {

// Label indice's page and cell corner; the pages for indice + 1 labels end on its page.
TEST(Etichette, PostiSulFoglio) {
    constexpr FoglioEtichette A4, Letter{215.9, 279.4, 2, 5, 12.7, 15, 5, 8};  // uneven margins
    const struct {
        const char* nome;
        FoglioEtichette foglio;
        long indice;  // -1: the sheet has no cells
        long pagina = 0;
        double x = 0, y = 0;
    } righe[] = {
        {"a4_first", A4, 0, 0, 10, 10},
        {"a4_last_of_page", A4, 23, 0, 10 + 380.0 / 3, 252.375},
        {"a4_next_page", A4, 24, 1, 10, 10},
        {"letter_uneven_margins", Letter, 13, 1, 5 + 101.45, 12.7 + 50.34},
        {"one_label_no_margins", {210, 297, 1, 1, 0, 0, 0, 0}, 1, 1, 0, 0},
        {"no_rows", {210, 297, 3, 0}, -1},
        {"too_many_columns", {210, 297, EtichetteMassimePerLato + 1, 8}, -1},
        {"side_margins_fill_width", {210, 297, 3, 8, 10, 10, 105, 105}, -1},
        {"top_margins_past_height", {210, 297, 3, 8, 200, 100}, -1},
        {"negative_margin", {210, 297, 3, 8, -1}, -1},
        {"nan_margin", {210, 297, 3, 8, NAN}, -1},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE(r.nome);
        ASSERT_EQ(FoglioValido(r.foglio), r.indice >= 0);
        if (r.indice < 0) continue;
        const PostoEtichetta p = PostoDiEtichetta(r.foglio, r.indice);
        EXPECT_EQ(p.pagina, r.pagina);
        EXPECT_NEAR(p.cella.x, r.x, 1e-9);
        EXPECT_NEAR(p.cella.y, r.y, 1e-9);
        EXPECT_EQ(PagineEtichette(r.foglio, r.indice + 1), r.pagina + 1);
    }
}

TEST(Etichette, OrigineCentrataSuPuntiInteri) {
    const struct {
        const char* nome;
        RettangoloMm cella;
        double larghezza, altezza;
        int dpi;
        bool entra;
        long x, y;
    } righe[] = {
        {"centred_600dpi", {10, 10, 190.0 / 3, 34.625}, 40, 20, 600, true, 512, 409},
        {"exact_fit_203dpi", {25.4, 50.8, 50.8, 25.4}, 50.8, 25.4, 203, true, 203, 406},
        {"taller_than_cell", {0, 0, 30, 30}, 10, 31, 600, false, 236, -12},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE(r.nome);
        EXPECT_EQ(EntraInCella(r.cella, r.larghezza, r.altezza), r.entra);
        const PuntoDots o = OrigineCentrata(r.cella, r.larghezza, r.altezza, r.dpi);
        EXPECT_EQ(o.x, r.x);
        EXPECT_EQ(o.y, r.y);
    }
}

}  // namespace
}  // namespace krt
