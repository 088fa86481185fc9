// Sheets of labels: which sheets have cells, where label i goes (across, down, next page),
// symbols centred on whole dots.
#include "cycle/etichette.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace krt {
namespace {

// Label indice's page and cell corner; the pages for indice + 1 labels end on its page; a
// 40 × 20 mm symbol centred in the cell on whole 600-dpi dots.
TEST(Etichette, PostiSulFoglio) {
    constexpr FoglioEtichette A4, Letter{215.9, 279.4, 2, 5, 12.7, 15, 5, 8};  // uneven margins
    const struct {
        const char* nome;
        FoglioEtichette foglio;
        long indice;  // -1: the sheet has no cells
        long pagina = 0;
        double x = 0, y = 0;
        long dotsX = 0, dotsY = 0;
    } righe[] = {
        {"a4_first", A4, 0, 0, 10, 10, 512, 409},
        {"a4_last_of_page", A4, 23, 0, 10 + 380.0 / 3, 252.375, 3504, 6134},
        {"a4_next_page", A4, 24, 1, 10, 10, 512, 409},
        {"one_column_fourth_down", {210, 297, 1, 8}, 3, 0, 10, 113.875, 2008, 2863},
        {"letter_uneven_margins", Letter, 13, 1, 5 + 101.45, 12.7 + 50.34, 3240, 1847},
        {"one_label_no_margins", {210, 297, 1, 1, 0, 0, 0, 0}, 1, 1, 0, 0, 2008, 3272},
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
        const PuntoDots o = OrigineCentrata(p.cella, 40, 20, 600);
        EXPECT_EQ(std::pair(o.x, o.y), std::pair(r.dotsX, r.dotsY));
    }
    // A symbol exactly as large as its cell fits; a millimetre more does not.
    EXPECT_TRUE(EntraInCella({25.4, 50.8, 50.8, 25.4}, 50.8, 25.4));
    EXPECT_FALSE(EntraInCella({0, 0, 30, 30}, 10, 31));
}

}  // namespace
}  // namespace krt
