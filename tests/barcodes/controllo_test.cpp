#include <gtest/gtest.h>

#include <string>

#include "barcodes/controllo.h"

namespace {

struct CasoCheck {
    std::string (*routine)(std::string_view);
    const char* nome;
    std::string ingresso;
    std::string atteso;
};

TEST(Controllo, ChecksAppendedToContent) {
    const CasoCheck casi[] = {
        {krt::CalcolaCheckEAN, "EAN", "400638133393", "4006381333931"},
        {krt::CalcolaCheckEAN, "EAN", "9638507", "96385074"},
        {krt::CalcolaCheckEAN, "EAN", "03600029145", "036000291452"},
        {krt::CalcolaCheckEAN, "EAN", "978030640615", "9780306406157"},
        {krt::CalcolaCheck39, "39", "CODE39", "CODE39W"},
        {krt::CalcolaCheck39, "39", "Z3", "Z3_"},
        {krt::CalcolaCheck39, "39", "", "0"},
        {krt::CalcolaCheck93, "93", "TEST", "TEST8M"},
        {krt::CalcolaCheck93, "93", "TEST93", "TEST93+6"},
    };
    for (const auto& c : casi)
        EXPECT_EQ(c.routine(c.ingresso), c.atteso) << c.nome << " of \"" << c.ingresso << "\"";
}

}  // namespace
