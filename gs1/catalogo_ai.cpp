#include "gs1/catalogo_ai.h"

#include "gs1/validazione_ai.h"

namespace krt {

const std::array<VoceAI, NumeroVociAI> CatalogoAI{{
    {"00", "n18", 600},
    {"01", "n14", 601},
    {"02", "n14", 602},
    {"10", "av20", 603},
    {"11", "n6", 604},
    {"12", "n6", 605},
    {"13", "n6", 606},
    {"15", "n6", 607},
    {"17", "n6", 608},
    {"20", "n2", 609},
    {"21", "av20", 610},
    {"22", "av29", 611},
    {"23", "nl19", 612},
    {"240", "av30", 613},
    {"241", "av30", 614},
    {"250", "av30", 615},
    {"30", "nv8", 616},
    {"310", "nd6", 617},
    {"311", "nd6", 618},
    {"312", "nd6", 619},
    {"313", "nd6", 620},
    {"314", "nd6", 621},
    {"315", "nd6", 622},
    {"316", "nd6", 623},
    {"320", "nd6", 624},
    {"321", "nd6", 730},
    {"322", "nd6", 731},
    {"323", "nd6", 732},
    {"324", "nd6", 733},
    {"325", "nd6", 734},
    {"326", "nd6", 735},
    {"327", "nd6", 736},
    {"328", "nd6", 737},
    {"329", "nd6", 738},
    {"330", "nd6", 625},
    {"331", "nd6", 626},
    {"332", "nd6", 627},
    {"333", "nd6", 628},
    {"334", "nd6", 629},
    {"335", "nd6", 630},
    {"336", "nd6", 631},
    {"337", "nd6", 632},
    {"340", "nd6", 633},
    {"341", "nd6", 739},
    {"342", "nd6", 740},
    {"343", "nd6", 741},
    {"344", "nd6", 742},
    {"345", "nd6", 743},
    {"346", "nd6", 744},
    {"347", "nd6", 745},
    {"348", "nd6", 746},
    {"349", "nd6", 747},
    {"350", "nd6", 748},
    {"351", "nd6", 749},
    {"352", "nd6", 750},
    {"353", "nd6", 751},
    {"354", "nd6", 752},
    {"355", "nd6", 753},
    {"356", "nd6", 754},
    {"360", "nd6", 755},
    {"361", "nd6", 756},
    {"362", "nd6", 757},
    {"363", "nd6", 758},
    {"364", "nd6", 759},
    {"365", "nd6", 760},
    {"366", "nd6", 761},
    {"367", "nd6", 762},
    {"368", "nd6", 763},
    {"369", "nd6", 764},
    {"37", "nv8", 634},
    {"390", "nd15", 635},
    {"391", "nd18", 636},
    {"400", "av30", 637},
    {"401", "av30", 638},
    {"402", "n17", 639},
    {"403", "av30", 640},
    {"410", "n13", 641},
    {"411", "n13", 642},
    {"412", "n13", 643},
    {"413", "n13", 644},
    {"414", "n13", 645},
    {"415", "n13", 646},
    {"420", "av9", 647},
    {"421", "n3av9", 648},
    {"422", "n3", 649},
    {"8001", "n14", 650},
    {"8002", "av20", 651},
    {"8003", "n14av16", 652},
    {"8004", "av30", 653},
    {"8005", "n6", 654},
    {"8006", "n18", 655},
    {"8007", "av30", 656},
    {"8018", "n18", 657},
    {"8020", "av25", 658},
    {"8100", "n6", 659},
    {"8101", "n10", 660},
    {"8102", "n2", 661},
    {"90", "av30", 662},
    {"91", "av30", 663},
    {"92", "av30", 664},
    {"93", "av30", 665},
    {"94", "av30", 666},
    {"95", "av30", 667},
    {"96", "av30", 668},
    {"97", "av30", 669},
    {"98", "av30", 670},
    {"99", "av30", 671},
}};

namespace {

using enum TipoFormato;

constexpr RegolaFormato Regole[] = {
    {"n2", Numerico, 2, 2, 691, true},
    {"n3", Numerico, 3, 3, 691, true},
    {"n6", Numerico, 6, 6, 691, true},
    {"n10", Numerico, 10, 10, 691, true},
    {"n13", Numerico, 13, 13, 691, true},
    {"n14", Numerico, 14, 14, 691, true},
    {"n17", Numerico, 17, 17, 691, true},
    {"n18", NumericoConCheck, 18, 18, 691, true},
    {"av9", Alfanumerico, 9, 9, 690, true},
    {"av20", Alfanumerico, 20, 20, 690, true},
    {"av25", Alfanumerico, 25, 25, 690, true},
    {"av29", Alfanumerico, 29, 29, 690, true},
    {"av30", Alfanumerico, 30, 30, 690, true},
    // The box takes the point and some leading zeros: N + 1, at least 11.
    {"nd6", Decimale, 6, 11, 694, true},
    {"nd15", Decimale, 15, 16, 694, true},
    {"nd18", Decimale, 18, 19, 694, true},
    {"nl19", NumericoLungo, 19, 19, 695, false},
    {"nv8", NumericoVariabile, 8, 8, 696, false},
    {"n14av16", NumericoPiuTesto, 14, 30, 692, false},
    {"n3av9", NumericoPiuTesto, 3, 12, 693, false},
};

}  // namespace

RegolaFormato RegolaDelFormato(std::string_view formato) {
    for (const auto& regola : Regole) {
        if (regola.codice == formato) return regola;
    }
    return {formato, Sconosciuto, 0, 0, 0, false};
}

std::optional<int> LimiteValore(std::string_view formato) {
    const auto regola = RegolaDelFormato(formato);
    if (regola.tipo == Sconosciuto) return std::nullopt;
    return regola.limite;
}

std::string ComponiDescrizione(std::string_view formato, std::string_view testoDescrizione) {
    const auto regola = RegolaDelFormato(formato);
    if (regola.tipo == Sconosciuto) return {};
    if (!regola.conNumero) return std::string(testoDescrizione);
    return StrTran(testoDescrizione, "%", std::to_string(regola.n));
}

std::optional<std::size_t> CercaAI(std::string_view ai) {
    for (std::size_t i = 0; i < CatalogoAI.size(); ++i) {
        if (CatalogoAI[i].ai == ai) return i;
    }
    return std::nullopt;
}

}  // namespace krt
